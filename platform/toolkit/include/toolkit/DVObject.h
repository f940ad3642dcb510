#pragma once

#include <cstdint>

#include "toolkit/Export.h"
#include "toolkit/Mutex.h"

namespace DOVA {

/// The root of every front object. It has an identifier, and the toolkit knows whether it lives.
class DOVA_TOOLKIT_EXPORT DVObject {
public:
    using Identifier = std::uint32_t;

    DVObject(const DVObject&) = delete;
    DVObject& operator=(const DVObject&) = delete;
    virtual ~DVObject();

    /// Unique among the living objects; neither 0 nor 0xFFFFFFFF.
    Identifier identifier() const { return m_identifier; }

    /// True if `object` is a living object with this identifier. Does not touch what `object`
    /// points to. Any thread; the answer holds as long as the caller holds m_lock.
    static bool isObjectValid(const DVObject* object, Identifier identifier);

    /// Held while a backend emits an event to a front object, and while a front object leaves the
    /// living. Recursive.
    static Mutex m_lock;

protected:
    /// Takes the next free identifier.
    DVObject();
    /// Takes a given identifier. If another object has it already, that one stays the valid one.
    explicit DVObject(Identifier identifier);
    /// The identifier that was taken last; greater than those taken before.
    static Identifier lastIdentifier();
    /// From here on the object is not valid any more. Destructors of derived classes call it first,
    /// so that no thread starts to use an object that is half destroyed. May be repeated.
    void leaveTheLiving();

private:
    const Identifier m_identifier;
};

}  // namespace DOVA
