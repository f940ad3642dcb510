#include "UnwaitingFile.h"

#include <fcntl.h>
#include <poll.h>
#include <pthread.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <ctime>

namespace DOVA::log {

namespace {

/// Keeps the signal that a pipe without a reader sends from ending the program.
class NoPipeSignal {
public:
    NoPipeSignal() {
        sigemptyset(&m_pipe);
        sigaddset(&m_pipe, SIGPIPE);
        sigset_t pending;
        sigpending(&pending);
        m_wasPending = sigismember(&pending, SIGPIPE) == 1;
        pthread_sigmask(SIG_BLOCK, &m_pipe, &m_before);
    }
    ~NoPipeSignal() {
        const timespec atOnce{};
        while (!m_wasPending && sigtimedwait(&m_pipe, nullptr, &atOnce) == -1 && errno == EINTR) {
        }
        pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
    }
    NoPipeSignal(const NoPipeSignal&) = delete;
    NoPipeSignal& operator=(const NoPipeSignal&) = delete;

private:
    sigset_t m_pipe{};
    sigset_t m_before{};
    bool m_wasPending = false;
};

bool isReady(int descriptor) {
    pollfd asked{descriptor, POLLOUT, 0};
    return ::poll(&asked, 1, 0) == 1 && (asked.revents & POLLOUT) != 0;
}

}  // namespace

UnwaitingFile::~UnwaitingFile() {
    if (m_own >= 0) {
        ::close(m_own);
    }
}

bool UnwaitingFile::write(const std::string& bytes) {
    return follow() && writeSome(bytes) == static_cast<ssize_t>(bytes.size());
}

ssize_t UnwaitingFile::writeSome(const std::string& bytes) {
    const NoPipeSignal guard;
    if (m_own >= 0) {
        return ::write(m_own, bytes.data(), bytes.size());
    }
    if (S_ISSOCK(m_followed.st_mode)) {
        return ::send(m_descriptor, bytes.data(), bytes.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
    }
    return isReady(m_descriptor) ? ::write(m_descriptor, bytes.data(), bytes.size()) : -1;
}

/// Sees what the descriptor stands for now; false when it is closed.
bool UnwaitingFile::follow() {
    struct stat status {};
    if (::fstat(m_descriptor, &status) != 0) {
        return false;
    }
    const bool isTheSame = status.st_dev == m_followed.st_dev && status.st_ino == m_followed.st_ino;
    if (!isTheSame) {
        if (m_own >= 0) {
            ::close(m_own);
        }
        m_own = ownDescription(status);
        m_followed = status;
    }
    return true;
}

/// Whether a write waits is a flag that everybody shares who has the same description, a parent
/// process or a terminal's shell among them. So pipes and terminals are opened once more.
int UnwaitingFile::ownDescription(const struct stat& status) const {
    const bool isTerminal = S_ISCHR(status.st_mode) && ::isatty(m_descriptor) == 1;
    if (!S_ISFIFO(status.st_mode) && !isTerminal) {
        return -1;
    }
    const std::string opened = "/proc/self/fd/" + std::to_string(m_descriptor);
    return ::open(opened.c_str(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
}

}  // namespace DOVA::log
