#pragma once

#include <string>
#include <vector>

namespace DOVA::test {

/// A program on a terminal of its own, and the user before it.
class Terminal {
public:
    /// Starts it; `environment` has "NAME=value" beside what this process has.
    Terminal(const std::string& program, const std::vector<std::string>& arguments,
             const std::vector<std::string>& environment);
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;
    /// Kills it if it still runs.
    ~Terminal();

    void type(const std::string& keys);
    /// Reads until the text comes, and gives what came up to its end; throws when the output ends
    /// before, with what came instead.
    std::string readUntil(const std::string& text);
    /// Takes the terminal away from the program.
    void hangUp();
    /// Waits for its end and gives the exit code.
    int wait();

private:
    int m_terminal = -1;
    int m_process = -1;
    std::string m_rest;
};

}  // namespace DOVA::test
