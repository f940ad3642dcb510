#include "Resources.h"

#include <sys/resource.h>
#include <unistd.h>

#include <fstream>
#include <stdexcept>
#include <string>

namespace DOVA::load {

void allowOpenFiles(std::size_t count) {
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    if (limit.rlim_cur >= count) {
        return;
    }
    const rlimit wanted{count, std::max<rlim_t>(limit.rlim_max, count)};
    if (setrlimit(RLIMIT_NOFILE, &wanted) != 0) {
        throw std::runtime_error("so many pages need " + std::to_string(count) +
                                 " open files, and the limit is " + std::to_string(limit.rlim_max) +
                                 " (ulimit -n)");
    }
}

std::chrono::microseconds processorTime() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto of = [](const timeval& time) {
        return std::chrono::seconds(time.tv_sec) + std::chrono::microseconds(time.tv_usec);
    };
    return of(usage.ru_utime) + of(usage.ru_stime);
}

std::uint64_t residentMemory() {
    std::ifstream file("/proc/self/statm");
    std::uint64_t whole = 0;
    std::uint64_t resident = 0;
    file >> whole >> resident;
    return resident * static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
}

}  // namespace DOVA::load
