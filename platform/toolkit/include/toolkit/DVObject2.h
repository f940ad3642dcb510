#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "toolkit/DVObject.h"
#include "toolkit/DVObject2Emitters.h"

namespace DOVA {

class DVFactory2;

/// A front object: the program's handle on something that a backend shows. It draws nothing itself;
/// its emitters carry every request to the implementation that the chosen backend made for it. An
/// object without implementation (no backend registered, or close() was called) takes every call,
/// does nothing and gives default values.
///
/// The parent, given at construction or by setParent(), says where the object appears. When a
/// parent is destroyed, its children lose their implementations, but stay valid objects: their
/// owners destroy them before or after it. Children made with make() belong to their parent and are
/// deleted with it. Main thread.
class DOVA_TOOLKIT_EXPORT DVObject2 : public DVObject {
public:
    ~DVObject2() override;

    /// Moves the object below `parent`, to the end of its children; null takes it out of the tree.
    /// A parent that is its own descendant changes nothing. When a widget leaves a shown window,
    /// the page may still show it there, and it goes on to receive what the user does to it.
    virtual void setParent(DVObject* parent) { emitters()->setParent(parent); }
    /// The widget or window that the object is in, not a layout; null if there is none.
    virtual DVObject* parent() const { return emitters()->getParent(); }
    /// The objects below this one in their order; with `recursive` each is followed by its own.
    std::vector<DVObject*> children(bool recursive = false) const {
        return emitters()->getChildren(recursive);
    }

    /// Makes a child that this object owns. It may still be deleted earlier.
    template <class Child, class... Args>
    Child& make(Args&&... args) {
        auto* child = new Child(this, std::forward<Args>(args)...);
        own(child);
        return *child;
    }

    /// The requests to the implementation.
    DVObject2Emitters* emitters() const { return m_emitters.get(); }

protected:
    explicit DVObject2(std::unique_ptr<DVObject2Emitters> emitters);
    /// With a given identifier; see DVObject.
    DVObject2(std::unique_ptr<DVObject2Emitters> emitters, Identifier identifier);

    /// The factory that this object's implementation comes from, null if there is none.
    DVFactory2* factory() const { return m_factory; }
    /// The same once the object is made: null also when the factory has been destroyed since.
    DVFactory2* livingFactory() const;
    /// Leaves the living, deletes the owned children and destroys the implementation. A class that
    /// adds members which handlers use calls it first in its destructor.
    void dismantle();
    /// Destroys the implementation, and with it those of everything below the object.
    void destroyImplementation();
    /// From now on this object's implementation is destroyed with that of `object`. An object that
    /// has none changes nothing.
    void goWith(const DVObject* object);
    /// The object last given to goWith(); null once its implementation has gone.
    const DVObject2* companion() const;

private:
    /// Takes what the object shows off the display, before its implementation goes. Nothing here:
    /// an implementation that has an element in the model document is missed there.
    virtual void leaveDisplay() {}

    void own(DVObject2* child);
    void endImplementation();
    void leavePairs();
    static DVObject2* takeFollower();
    void deleteOwned();
    void leaveOwnedTo(DVObject2& other);

    std::unique_ptr<DVObject2Emitters> m_emitters;
    DVFactory2* m_factory;
    DVObject2* m_owner = nullptr;
    std::vector<DVObject2*> m_owned;
};

}  // namespace DOVA
