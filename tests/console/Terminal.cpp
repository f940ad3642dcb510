#include "Terminal.h"

#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace DOVA::test {

namespace {

// Far beyond what any answer takes: only a test that fails waits so long.
constexpr int s_patience = 20000;

[[noreturn]] void execute(const std::string& program, const std::vector<std::string>& arguments,
                          const std::vector<std::string>& environment) {
    for (const std::string& variable : environment) {
        ::putenv(::strdup(variable.c_str()));
    }
    std::vector<char*> words{const_cast<char*>(program.c_str())};
    for (const std::string& argument : arguments) {
        words.push_back(const_cast<char*>(argument.c_str()));
    }
    words.push_back(nullptr);
    ::execv(program.c_str(), words.data());
    ::_exit(127);
}

}  // namespace

Terminal::Terminal(const std::string& program, const std::vector<std::string>& arguments,
                   const std::vector<std::string>& environment) {
    winsize size{24, 200, 0, 0};
    m_process = ::forkpty(&m_terminal, nullptr, nullptr, &size);
    if (m_process < 0) {
        throw std::system_error(errno, std::generic_category(), "there is no pseudo-terminal");
    }
    if (m_process == 0) {
        execute(program, arguments, environment);
    }
}

Terminal::~Terminal() {
    if (m_process > 0) {
        ::kill(m_process, SIGKILL);
        ::waitpid(m_process, nullptr, 0);
    }
    hangUp();
}

void Terminal::hangUp() {
    if (m_terminal >= 0) {
        ::close(std::exchange(m_terminal, -1));
    }
}

void Terminal::type(const std::string& keys) {
    if (::write(m_terminal, keys.data(), keys.size()) != static_cast<ssize_t>(keys.size())) {
        throw std::runtime_error("the terminal takes no keys");
    }
}

std::string Terminal::readUntil(const std::string& text) {
    while (m_rest.find(text) == m_rest.npos) {
        char bytes[4096];
        pollfd output{m_terminal, POLLIN, 0};
        const bool isThere = ::poll(&output, 1, s_patience) > 0;
        const ssize_t count = isThere ? ::read(m_terminal, bytes, sizeof bytes) : 0;
        if (count <= 0) {
            throw std::runtime_error("\"" + text + "\" never came, but: " + m_rest);
        }
        m_rest.append(bytes, static_cast<std::size_t>(count));
    }
    const std::size_t end = m_rest.find(text) + text.size();
    std::string result = m_rest.substr(0, end);
    m_rest.erase(0, end);
    return result;
}

int Terminal::wait() {
    int status = 0;
    ::waitpid(m_process, &status, 0);
    m_process = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace DOVA::test
