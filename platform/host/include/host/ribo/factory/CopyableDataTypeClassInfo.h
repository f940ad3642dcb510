#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "host/ribo/factory/NonHandleClassInfo.h"
#include "host/ribo/factory/RiboFactoryClassInfo.h"

namespace ribo::factory {

/// A value class around a T, which has a copy constructor and an operator==. Every such class has
/// the same equality methods, constructors and hidden property, before its own members.
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

    /// The hidden property with which the host copies a whole value: it reads as the place of the
    /// value in memory, and written with such a place takes over the value that stands there. Only
    /// what another instance of the class just gave may be written.
    static std::uint64_t getSelfProperty(const T& self) {
        return reinterpret_cast<std::uintptr_t>(&self);
    }
    static void setSelfProperty(T& self, std::uint64_t place) {
        self = *reinterpret_cast<const T*>(static_cast<std::uintptr_t>(place));
    }

    bool isSealed() const override { return true; }

protected:
    /// Describes what the class has beyond the members of all such classes.
    virtual void describeOwnMembers() = 0;

    /// An instance took over a whole value through its hidden property.
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
