#pragma once

#include <functional>
#include <memory>

#include "runtime/Export.h"
#include "toolkit/DVObject.h"

namespace DOVA::runtime {

/// What a later call belongs to: made while it lives, and then able to tell whether it still does.
/// A value: threads may hold and pass on copies for as long as they like.
class DOVA_RUNTIME_EXPORT Owner {
public:
    /// A front object, as a dialog or a widget. Main thread; explicit, for a thread that has no
    /// more than the object itself would have to touch it for that.
    explicit Owner(const DVObject& object);
    /// Anything shared, which lives as long as somebody has a share. The call that belongs to it
    /// has one while it runs. Any thread.
    explicit Owner(std::weak_ptr<const void> shared);

    /// A call that makes this one if the owner lives at that moment, else nothing. To be called and
    /// destroyed where the owner is destroyed: on the main thread.
    std::function<void()> whileAlive(std::function<void()> callable) const;

private:
    void callIfAlive(const std::function<void()>& callable) const;

    const DVObject* m_object = nullptr;  // not to be touched
    DVObject::Identifier m_identifier = 0;
    std::weak_ptr<const void> m_shared;
};

}  // namespace DOVA::runtime
