#pragma once

namespace DOVA::test {

/// Has one `calloc` of the library find no memory, while this lives. One at a time.
class ScarceMemory {
public:
    /// The one after so many that succeed.
    explicit ScarceMemory(int successes);
    ScarceMemory(const ScarceMemory&) = delete;
    ScarceMemory& operator=(const ScarceMemory&) = delete;
    ~ScarceMemory();
};

}  // namespace DOVA::test
