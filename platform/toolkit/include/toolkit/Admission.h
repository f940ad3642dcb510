#pragma once

#include <type_traits>
#include <utility>

#include "toolkit/Export.h"

namespace DOVA {

/// Keeps from the program what no user can have caused: events of a widget that is out of reach
/// (DVWidget2::isInReach), or that name what is not there. Such an event comes from a page that did
/// not know yet what the program did meanwhile, or from one that lies.
///
/// A front object judges each event once, before any handler. So when the first handler changes the
/// widget, the others get the event all the same. Main thread.
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

    /// Notes the verdict on the event at this address, which the handlers get next.
    static void judge(const void* event, bool admitted) { s_refused = admitted ? nullptr : event; }

private:
    static const void* s_refused;
};

}  // namespace DOVA
