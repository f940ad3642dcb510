#pragma once

#include <sys/types.h>

#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include "Loop.h"

namespace DOVA::load {

/// A process that may be stopped or killed: what it is, and its identifier.
struct Process {
    std::string role;
    pid_t pid = 0;
};

/// The processes of the server, as far as a run may touch them.
class Processes {
public:
    /// `restart` is a line for the shell that becomes the process which it starts; empty: nothing
    /// is started again.
    Processes(Loop& loop, std::vector<Process> processes, std::string restart);
    Processes(const Processes&) = delete;
    Processes& operator=(const Processes&) = delete;
    /// What stands still goes on, and what was started here is ended.
    ~Processes();

    const Process& at(std::size_t index) const { return m_processes[index]; }
    /// It stands still for this time, then it goes on, and the call comes. This and kill() do
    /// nothing to a process that was killed and is not there again.
    void stop(std::size_t index, Clock::duration time, std::function<void()> continued);
    /// It is killed at once and started again after this time; then the call comes. The line finds
    /// its role and number, from 0, as DOVA_LOAD_ROLE and DOVA_LOAD_NUMBER.
    void kill(std::size_t index, Clock::duration time, std::function<void()> restarted);

private:
    void after(Clock::duration time, std::function<void()> call);
    void restart(std::size_t index);

    Loop& m_loop;
    std::vector<Process> m_processes;
    const std::string m_restart;
    std::vector<pid_t> m_children;
};

}  // namespace DOVA::load
