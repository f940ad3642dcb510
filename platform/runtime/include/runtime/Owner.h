#pragma once

#include <functional>
#include <memory>

#include "runtime/Export.h"
#include "toolkit/DVObject.h"

namespace DOVA::runtime {

/// The object that a later call belongs to. Made while the object lives; tells afterwards whether
/// it still does. Any thread may keep and pass on copies for as long as it likes.
class DOVA_RUNTIME_EXPORT Owner {
public:
    /// A front object, such as a dialog or a widget. Main thread. Explicit, because this touches
    /// the object: another thread must be given the Owner, not the object.
    explicit Owner(const DVObject& object);
    /// Anything shared, which lives as long as somebody has a share. A call that belongs to it has
    /// a share while it runs. Any thread.
    explicit Owner(std::weak_ptr<const void> shared);

    /// A call that runs `callable` if the owner lives then, and does nothing else. Call and destroy
    /// it on the main thread, where the owner is destroyed.
    std::function<void()> whileAlive(std::function<void()> callable) const;

private:
    void callIfAlive(const std::function<void()>& callable) const;

    const DVObject* m_object = nullptr;  // not to be touched
    DVObject::Identifier m_identifier = 0;
    std::weak_ptr<const void> m_shared;
};

}  // namespace DOVA::runtime
