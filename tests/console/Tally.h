#pragma once

#include <string>

#include "host/ribo/factory/CopyableDataTypeClassInfo.h"

namespace DOVA::test {

/// Counts its living copies.
struct Counted {
    Counted() { ++s_alive; }
    Counted(const Counted&) { ++s_alive; }
    Counted& operator=(const Counted&) = default;
    ~Counted() { --s_alive; }

    static inline int s_alive = 0;
};

/// The value of a class: a sum, and a name.
struct Tally {
    bool operator==(const Tally& other) const { return total == other.total && name == other.name; }

    double total = 0;
    std::u16string name;
    Counted counted;
};

/// The value of another class.
struct Marker {
    bool operator==(const Marker&) const { return true; }
};

}  // namespace DOVA::test

template <>
struct ribo::factory::TypeOf<DOVA::test::Tally> : InstanceType<DOVA::test::Tally> {
    DOVA_RIBO_TYPE_NAME("lab.inner.Tally")
};

template <>
struct ribo::factory::TypeOf<DOVA::test::Marker> : InstanceType<DOVA::test::Marker> {
    DOVA_RIBO_TYPE_NAME("lab.inner.Marker")
};
