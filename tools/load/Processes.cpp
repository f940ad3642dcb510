#include "Processes.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <memory>
#include <system_error>
#include <utility>

namespace DOVA::load {

namespace {

/// A process that was killed and is not started again yet; its number may be another's by now.
constexpr pid_t s_gone = 0;

/// The environment with two names more, as processes get it.
class Environment {
public:
    explicit Environment(std::vector<std::string> more) : m_more(std::move(more)) {
        for (char** entry = environ; *entry != nullptr; ++entry) {
            m_entries.push_back(*entry);
        }
        for (std::string& entry : m_more) {
            m_entries.push_back(entry.data());
        }
        m_entries.push_back(nullptr);
    }
    char** get() { return m_entries.data(); }

private:
    std::vector<std::string> m_more;
    std::vector<char*> m_entries;
};

/// Its output is not ours, which is one line.
pid_t startByShell(std::string command, Environment environment) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    std::string words[] = {"sh", "-c", "exec " + std::move(command)};
    char* arguments[] = {words[0].data(), words[1].data(), words[2].data(), nullptr};
    pid_t pid = 0;
    const int error = posix_spawn(&pid, "/bin/sh", &actions, nullptr, arguments, environment.get());
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0) {
        throw std::system_error(error, std::system_category(), "cannot start the shell");
    }
    return pid;
}

}  // namespace

Processes::Processes(Loop& loop, std::vector<Process> processes, std::string restart)
    : m_loop(loop), m_processes(std::move(processes)), m_restart(std::move(restart)) {}

Processes::~Processes() {
    for (const Process& process : m_processes) {
        if (process.pid != s_gone) {
            ::kill(process.pid, SIGCONT);
        }
    }
    for (const pid_t child : m_children) {
        ::kill(child, SIGTERM);
        waitpid(child, nullptr, 0);
    }
}

void Processes::stop(std::size_t index, Clock::duration time, std::function<void()> continued) {
    const pid_t pid = m_processes[index].pid;
    if (pid == s_gone) {
        return;
    }
    ::kill(pid, SIGSTOP);
    after(time, [this, index, pid, continued = std::move(continued)] {
        if (m_processes[index].pid == pid) {
            ::kill(pid, SIGCONT);
        }
        continued();
    });
}

void Processes::kill(std::size_t index, Clock::duration time, std::function<void()> restarted) {
    const pid_t pid = std::exchange(m_processes[index].pid, s_gone);
    if (pid == s_gone) {
        return;
    }
    ::kill(pid, SIGKILL);
    const auto child = std::find(m_children.begin(), m_children.end(), pid);
    if (child != m_children.end()) {
        waitpid(pid, nullptr, 0);
        m_children.erase(child);
    }
    after(time, [this, index, restarted = std::move(restarted)] {
        restart(index);
        restarted();
    });
}

void Processes::after(Clock::duration time, std::function<void()> call) {
    const auto timer = std::make_shared<Timer>(m_loop.get_executor(), time);
    timer->async_wait([timer, call = std::move(call)](boost::system::error_code) { call(); });
}

void Processes::restart(std::size_t index) {
    Process& process = m_processes[index];
    const auto number =
        std::count_if(m_processes.begin(), m_processes.begin() + static_cast<std::ptrdiff_t>(index),
                      [&process](const Process& other) { return other.role == process.role; });
    process.pid =
        startByShell(m_restart, Environment({"DOVA_LOAD_ROLE=" + process.role,
                                             "DOVA_LOAD_NUMBER=" + std::to_string(number)}));
    m_children.push_back(process.pid);
}

}  // namespace DOVA::load
