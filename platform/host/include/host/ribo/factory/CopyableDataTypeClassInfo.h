#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "host/ribo/factory/NonHandleClassInfo.h"
#include "host/ribo/factory/RiboFactoryClassInfo.h"

namespace ribo::factory {

/// A value class around a T, which has a default and a copy constructor, an assignment and an
/// operator==. Every such class has the same equality methods, constructors and hidden property,
/// before its own members.
template <class T>
class CopyableDataTypeClassInfo : public NonHandleClassInfo<T, T>, public RiboFactoryClassInfo {
public:
    /// A method that says whether two instances are equal, by T's operator==, which is all that
    /// "isequal", "isequaln" and "eq" of such a class can mean.
    class IsEqual : public RiboMethod {
    public:
        explicit IsEqual(std::string name)
            : RiboMethod(makeMethod(std::move(name), {}, &compare)) {}

    private:
        static bool compare(const T& left, const T& right) { return left == right; }
    };

    /// The hidden property with which the host copies a whole value. Reading it gives the address
    /// of the value; writing an address copies the value that stands there. REQUIRES: another
    /// instance of the class that still lives gave the address.
    static std::uint64_t getSelfProperty(const T& self) {
        return reinterpret_cast<std::uintptr_t>(&self);
    }
    static void setSelfProperty(T& self, std::uint64_t place) {
        // NOLINTNEXTLINE(performance-no-int-to-ptr): the host moves the place as a number.
        self = *reinterpret_cast<const T*>(static_cast<std::uintptr_t>(place));
    }

    bool isSealed() const override { return true; }

protected:
    /// Describes the members that this class has beside those of every such class.
    virtual void describeOwnMembers() = 0;

    /// Called after an instance copied a whole value through its hidden property.
    virtual void onSelfCopied(T&) const {}

private:
    void describe() final {
        detail::initStringDataTypes();
        method(IsEqual("isequal"));
        method(IsEqual("isequaln"));
        method(IsEqual("eq"));
        hiddenProperty("selfCopyingProperty", &getSelfProperty,
                       [this](T& self, std::uint64_t place) {
                           setSelfProperty(self, place);
                           onSelfCopied(self);
                       });
        constructor([] { return T(); });
        constructor([](const T& other) { return T(other); });
        describeOwnMembers();
    }
};

}  // namespace ribo::factory
