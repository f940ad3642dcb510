#pragma once

#include <cstddef>

namespace host::test {

/// While it lives, one allocation of this thread by `operator new` fails: the one of that number,
/// counted from 0. One at a time.
class FailingAllocation {
public:
    explicit FailingAllocation(std::size_t number);
    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;
    ~FailingAllocation();

    /// Whether so many were asked for that it was reached.
    bool hasFailed() const;
};

}  // namespace host::test
