#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "host/ribo/Instance.h"
#include "host/ribo/InternedString.h"
#include "host/ribo/factory/kaArrayProxy.h"

namespace ribo::factory {

/// How a C++ type travels: the name of its host type, fromHost() and toHost(). fromHost REQUIRES:
/// the value fits the type of that name. A module specialises it for its own types: enumerations by
/// hand, classes by deriving from InstanceType.
template <class T>
struct TypeOf;

/// Defines name(), which looks the text up once.
#define DOVA_RIBO_TYPE_NAME(text)                                                            \
    static ::ribo::InternedString name() {                                                   \
        static const ::ribo::InternedString interned = ::ribo::internal::makeInterned(text); \
        return interned;                                                                     \
    }

template <>
struct TypeOf<void> {
    DOVA_RIBO_TYPE_NAME("void")
};

template <>
struct TypeOf<bool> {
    DOVA_RIBO_TYPE_NAME("logical scalar")
    static bool fromHost(const kaArray* value) { return kaIsLogicalScalarTrue(value); }
    static host::ArrayPointer toHost(bool value) {
        return host::ArrayPointer(kaCreateLogicalScalar(value));
    }
};

template <>
struct TypeOf<std::int32_t> {
    DOVA_RIBO_TYPE_NAME("int32 scalar")
    static std::int32_t fromHost(const kaArray* value) {
        return static_cast<std::int32_t>(kaGetScalar(value));
    }
    static host::ArrayPointer toHost(std::int32_t value) {
        return host::ArrayPointer(kaCreateInt32Scalar(value));
    }
};

template <>
struct TypeOf<std::uint64_t> {
    DOVA_RIBO_TYPE_NAME("uint64 scalar")
    static std::uint64_t fromHost(const kaArray* value) { return kaGetUInt64Scalar(value); }
    static host::ArrayPointer toHost(std::uint64_t value) {
        return host::ArrayPointer(kaCreateUInt64Scalar(value));
    }
};

template <>
struct TypeOf<double> {
    DOVA_RIBO_TYPE_NAME("double scalar")
    static double fromHost(const kaArray* value) { return kaGetScalar(value); }
    static host::ArrayPointer toHost(double value) {
        return host::ArrayPointer(kaCreateDoubleScalar(value));
    }
};

template <>
struct TypeOf<std::u16string> {
    DOVA_RIBO_TYPE_NAME("RiboFactoryString scalar")
    static const std::u16string& fromHost(const kaArray* value) { return kaViewString(value); }
    static host::ArrayPointer toHost(const std::u16string& value) {
        return host::ArrayPointer(kaCreateString(value));
    }
};

template <>
struct DOVA_HOST_EXPORT TypeOf<std::vector<std::u16string>> {
    DOVA_RIBO_TYPE_NAME("RiboFactoryString vector")
    static std::vector<std::u16string> fromHost(const kaArray* value);
    /// A row of cells with a text each; 0 x 0 for none.
    static host::ArrayPointer toHost(const std::vector<std::u16string>& value);
};

template <>
struct TypeOf<kaArrayProxy> {
    DOVA_RIBO_TYPE_NAME("any")
    static kaArrayProxy fromHost(const kaArray* value) { return kaArrayProxy(value); }
    static host::ArrayPointer toHost(kaArrayProxy value) { return std::move(value).release(); }
};

/// A new instance of the class with that full name. Throws host::Error when there is none, or none
/// any more.
DOVA_HOST_EXPORT std::shared_ptr<Instance> makeInstance(InternedString fullName);

/// The base for the TypeOf of a class whose instances hold a T each; the derived type adds name().
template <class T>
struct InstanceType {
    /// The value inside the instance itself: a method changes it in place.
    static T& fromHost(const kaArray* value) {
        return *static_cast<T*>(Instance::of(value)->getData());
    }
    static host::ArrayPointer toHost(T value) {
        auto instance = makeInstance(TypeOf<T>::name());
        *static_cast<T*>(instance->getData()) = std::move(value);
        return host::ArrayPointer(kaCreateObject(std::move(instance)));
    }
};

}  // namespace ribo::factory
