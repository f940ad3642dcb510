#include "ChildProcess.h"

#include <fcntl.h>
#include <grp.h>
#include <linux/close_range.h>
#include <pwd.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <boost/asio/buffer.hpp>
#include <cstring>
#include <sstream>
#include <system_error>

namespace DOVA::serve {

namespace {

constexpr std::size_t s_lastWords = 4096;
/// A program that prints without end is read slowly, and waits at its own expense.
constexpr std::chrono::milliseconds s_readPause{20};

[[noreturn]] void fail(const std::string& what, int error) {
    throw std::system_error(error, std::system_category(), what);
}

struct Account {
    uid_t user;
    gid_t group;
    std::string name;
};

std::optional<Account> accountOf(const std::string& name) {
    if (name.empty()) {
        return std::nullopt;
    }
    const passwd* const entry = getpwnam(name.c_str());
    if (!entry) {
        throw std::system_error(ENOENT, std::system_category(), "there is no user " + name);
    }
    return Account{entry->pw_uid, entry->pw_gid, name};
}

bool limit(__rlimit_resource resource, const std::optional<std::uint64_t>& value) {
    const rlimit both{value.value_or(0), value.value_or(0)};
    return !value || setrlimit(resource, &both) == 0;
}

bool setLimits(const Limits& limits) {
    return limit(RLIMIT_DATA, limits.memoryBytes) && limit(RLIMIT_NPROC, limits.processes) &&
           limit(RLIMIT_NOFILE, limits.files) && limit(RLIMIT_CPU, limits.cpuSeconds);
}

bool become(const std::optional<Account>& account) {
    return !account || (initgroups(account->name.c_str(), account->group) == 0 &&
                        setgid(account->group) == 0 && setuid(account->user) == 0);
}

void resetSignals() {
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    for (const int signal : {SIGPIPE, SIGINT, SIGTERM, SIGHUP, SIGUSR1}) {
        ::signal(signal, SIG_DFL);
    }
}

/// Standard error is the pipe; nothing is read and nothing else is shown.
bool redirect(int errors) {
    const int nothing = open("/dev/null", O_RDWR | O_CLOEXEC);
    return nothing >= 0 && dup2(nothing, STDIN_FILENO) >= 0 && dup2(nothing, STDOUT_FILENO) >= 0 &&
           dup2(errors, STDERR_FILENO) >= 0;
}

std::vector<std::string> environmentOf(const Command& command) {
    std::vector<std::string> result;
    for (char** entry = environ; *entry; ++entry) {
        result.emplace_back(*entry);
    }
    for (const auto& [name, value] : command.environment) {
        result.push_back(std::string(name).append("=").append(value));
    }
    return result;
}

std::vector<char*> pointers(std::vector<std::string>& texts) {
    std::vector<char*> result;
    for (std::string& text : texts) {
        result.push_back(text.data());
    }
    result.push_back(nullptr);
    return result;
}

/// In the child: becomes the program, or tells why it cannot.
[[noreturn]] void run(const Command& command, const std::optional<Account>& account, int errors,
                      int failure, char* const* arguments, char* const* environment) {
    resetSignals();
    const std::string folder = command.folder.string();
    // The sockets of this process among them, which its libraries open for children, too.
    close_range(STDERR_FILENO + 1, ~0u, CLOSE_RANGE_CLOEXEC);
    const bool isReady = redirect(errors) && (folder.empty() || chdir(folder.c_str()) == 0) &&
                         setLimits(command.limits) && become(account);
    if (isReady) {
        execvpe(arguments[0], arguments, environment);
    }
    const int error = errno;
    (void)!write(failure, &error, sizeof error);
    _exit(127);
}

struct Pipe {
    Pipe() {
        if (pipe2(ends.data(), O_CLOEXEC) != 0) {
            fail("cannot make a pipe", errno);
        }
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    ~Pipe() {
        closeEnd(0);
        closeEnd(1);
    }

    void closeEnd(std::size_t which) {
        if (ends[which] >= 0) {
            close(std::exchange(ends[which], -1));
        }
    }
    int take(std::size_t which) { return std::exchange(ends[which], -1); }

    std::array<int, 2> ends{-1, -1};
};

std::string describe(int status) {
    if (WIFSIGNALED(status)) {
        return "signal " + std::to_string(WTERMSIG(status)) + " (" + strsignal(WTERMSIG(status)) +
               ")";
    }
    return "exit code " + std::to_string(WEXITSTATUS(status));
}

}  // namespace

void requireRunnable(const Command& command) {
    accountOf(command.user);
    std::error_code error;
    if (!command.folder.empty() && !std::filesystem::is_directory(command.folder, error)) {
        fail("cannot work in " + command.folder.string(), ENOTDIR);
    }
    const std::string& program = command.arguments.front();
    if (program.find('/') != std::string::npos) {
        if (access(program.c_str(), X_OK) != 0) {
            fail("cannot start " + program, errno);
        }
        return;
    }
    const char* const path = getenv("PATH");
    std::istringstream folders(path ? path : "");
    for (std::string folder; std::getline(folders, folder, ':');) {
        if (access((folder + "/" + program).c_str(), X_OK) == 0) {
            return;
        }
    }
    fail("cannot start " + program, ENOENT);
}

std::shared_ptr<ChildProcess> ChildProcess::start(boost::asio::io_context& loop,
                                                  const Command& command,
                                                  std::function<void(const Ending&)> whenEnded) {
    const auto account = accountOf(command.user);
    std::vector<std::string> arguments = command.arguments, environment = environmentOf(command);
    const auto argumentPointers = pointers(arguments), environmentPointers = pointers(environment);
    Pipe errors, failure;
    const pid_t pid = fork();
    if (pid == 0) {
        run(command, account, errors.ends[1], failure.ends[1], argumentPointers.data(),
            environmentPointers.data());
    }
    if (pid < 0) {
        fail("cannot start another process", errno);
    }
    failure.closeEnd(1);
    int error = 0;
    if (read(failure.ends[0], &error, sizeof error) == sizeof error) {
        waitpid(pid, nullptr, 0);
        fail("cannot start " + command.arguments.front(), error);
    }
    const std::shared_ptr<ChildProcess> child(new ChildProcess(loop, std::move(whenEnded)));
    child->m_errors.assign(errors.take(0));
    child->m_errors.non_blocking(true);
    child->readErrors();
    child->watch(pid);
    return child;
}

std::shared_ptr<ChildProcess> ChildProcess::adopt(boost::asio::io_context& loop, pid_t pid,
                                                  std::function<void(const Ending&)> whenEnded) {
    const std::shared_ptr<ChildProcess> process(new ChildProcess(loop, std::move(whenEnded)));
    process->watch(pid);
    return process;
}

ChildProcess::ChildProcess(boost::asio::io_context& loop,
                           std::function<void(const Ending&)> whenEnded)
    : m_whenEnded(std::move(whenEnded)),
      m_process(loop.get_executor()),
      m_errors(loop.get_executor()),
      m_readTimer(loop.get_executor()),
      m_killTimer(loop.get_executor()) {}

void ChildProcess::watch(pid_t pid) {
    m_pid = pid;
    // Not by its C library function, which the headers of Debian 12 hide from C++.
    m_process.assign(static_cast<int>(syscall(SYS_pidfd_open, pid, 0)));
    m_process.async_wait(Descriptor::wait_read,
                         [self = shared_from_this()](boost::system::error_code error) {
                             if (!error) {
                                 self->onEnded();
                             }
                         });
}

void ChildProcess::readErrors() {
    m_errors.async_wait(Descriptor::wait_read,
                        [weak = weak_from_this()](boost::system::error_code error) {
                            const auto self = weak.lock();
                            if (!self || error) {
                                return;
                            }
                            self->drainErrors();
                            self->m_readTimer.expires_after(s_readPause);
                            self->m_readTimer.async_wait([weak](boost::system::error_code stopped) {
                                const auto reading = weak.lock();
                                if (reading && !stopped && reading->m_errors.is_open()) {
                                    reading->readErrors();
                                }
                            });
                        });
}

/// What is there, but no more than a pipe holds.
void ChildProcess::drainErrors() {
    std::array<char, 65536> words;
    boost::system::error_code error;
    const std::size_t count = m_errors.read_some(boost::asio::buffer(words), error);
    keep({words.data(), count});
    if (error && error != boost::asio::error::would_block) {
        boost::system::error_code ignored;
        m_errors.close(ignored);  // it has closed its side, and may go on without
    }
}

void ChildProcess::keep(std::string_view words) {
    m_lastWords += words;
    if (m_lastWords.size() > s_lastWords) {
        m_lastWords.erase(0, m_lastWords.size() - s_lastWords);
    }
}

void ChildProcess::terminate(std::chrono::milliseconds patience) {
    if (m_pid == 0) {
        return;
    }
    kill(m_pid, SIGTERM);
    kill(m_pid, SIGCONT);  // or one that is stopped would not hear of it
    m_killTimer.expires_after(patience);
    m_killTimer.async_wait([self = shared_from_this()](boost::system::error_code error) {
        if (!error && self->m_pid != 0) {
            kill(self->m_pid, SIGKILL);
        }
    });
}

void ChildProcess::onEnded() {
    int status = 0;
    const bool isOurs = waitpid(std::exchange(m_pid, 0), &status, 0) > 0;
    m_killTimer.cancel();
    m_readTimer.cancel();
    if (m_errors.is_open()) {
        drainErrors();
    }
    boost::system::error_code ignored;
    m_errors.close(ignored);
    m_process.close(ignored);
    const bool isFault = !WIFEXITED(status) || WEXITSTATUS(status) != 0;
    std::exchange(m_whenEnded, nullptr)(
        {isFault, isOurs ? describe(status) : "a former service knew it", std::move(m_lastWords)});
}

}  // namespace DOVA::serve
