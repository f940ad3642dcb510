#pragma once

#include <type_traits>
#include <utility>

#include "toolkit/Export.h"

namespace DOVA {

/// Holds back from the program what no user can have caused: events of a widget that is out of
/// reach (DVWidget2::isInReach), or that name what is not there. Such an event comes from a page
/// that did not know yet what the program did meanwhile, or from one that lies.
///
/// Each front object judges an event once, before anybody else hears it, so that what the first
/// handler does to the widget takes the event from none of the others. Main thread.
class DOVA_TOOLKIT_EXPORT Admission {
public:
    /// A program's handler, with or without the event for its argument; not called for what was
    /// refused.
    template <class Callable>
    struct Handler {
        Callable callable;

        template <class Event>
        void operator()(const Event& event) {
            if (s_refused == &event) {
                return;
            }
            if constexpr (std::is_invocable_v<Callable&, const Event&>) {
                callable(event);
            } else {
                callable();
            }
        }
    };

    template <class Callable>
    static Handler<std::decay_t<Callable>> handler(Callable&& callable) {
        return {std::forward<Callable>(callable)};
    }

    /// The verdict on an event that is about to be handed out; it is known by its address.
    static void judge(const void* event, bool admitted) { s_refused = admitted ? nullptr : event; }

private:
    static const void* s_refused;
};

}  // namespace DOVA
