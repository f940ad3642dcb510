#pragma once

namespace host::test {

/// Counts the objects of a class that derives from it.
template <class Derived>
struct Living {
    static inline int s_count = 0;

    Living() { ++s_count; }
    Living(const Living&) { ++s_count; }
    Living& operator=(const Living&) = default;
    ~Living() { --s_count; }
};

}  // namespace host::test
