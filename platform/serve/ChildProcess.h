#pragma once

#include <sys/types.h>

#include <boost/asio/io_context.hpp>
#include <boost/asio/posix/basic_stream_descriptor.hpp>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Loop.h"

namespace DOVA::serve {

/// What a process may use; nothing where there is no limit.
struct Limits {
    std::optional<std::uint64_t> memoryBytes;  ///< of its data; beyond it allocations fail
    std::optional<std::uint64_t> processes;    ///< of its user, threads included
    std::optional<std::uint64_t> files;
    std::optional<std::uint64_t> cpuSeconds;
};

/// How a process is started.
struct Command {
    std::vector<std::string> arguments;  ///< the program first; one without a slash is looked for
    std::filesystem::path folder;        ///< where it works; empty: where this process does
    std::vector<std::pair<std::string, std::string>> environment;  ///< beside that of this process
    std::string user;  ///< whose rights it gets; empty: those of this process
    Limits limits;
};

/// Throws std::system_error with a text for people when the program cannot be found or may not be
/// run, the folder is none or the user is unknown, as far as that can be seen beforehand.
void requireRunnable(const Command& command);

/// How a process ended.
struct Ending {
    bool isFault = false;   ///< by a signal, or with another exit code than 0
    std::string how;        ///< "exit code 3", "signal 11 (Segmentation fault)"
    std::string lastWords;  ///< the last 4 KiB of its standard error
};

/// A process that is looked after, and its end.
class ChildProcess : public std::enable_shared_from_this<ChildProcess> {
public:
    /// Starts it and calls `whenEnded` once, from the loop, when it has ended. Throws
    /// std::system_error with a text for people when it cannot be started.
    static std::shared_ptr<ChildProcess> start(boost::asio::io_context& loop,
                                               const Command& command,
                                               std::function<void(const Ending&)> whenEnded);

    /// A process that another one has started, and that has just shown that it is alive. Of its end
    /// nothing is known but that.
    static std::shared_ptr<ChildProcess> adopt(boost::asio::io_context& loop, pid_t pid,
                                               std::function<void(const Ending&)> whenEnded);

    pid_t pid() const { return m_pid; }

    /// Asks it to end, and makes it end when it has not after `patience`.
    void terminate(std::chrono::milliseconds patience);

private:
    using Descriptor = boost::asio::posix::basic_stream_descriptor<link::Executor>;

    ChildProcess(boost::asio::io_context& loop, std::function<void(const Ending&)> whenEnded);

    void watch(pid_t pid);
    void readErrors();
    void keep(std::string_view words);
    void drainErrors();
    void onEnded();

    std::function<void(const Ending&)> m_whenEnded;
    Descriptor m_process;  // becomes readable when the process has ended
    Descriptor m_errors;
    link::Timer m_readTimer;
    link::Timer m_killTimer;
    pid_t m_pid = 0;
    std::string m_lastWords;
};

}  // namespace DOVA::serve
