#include "TokenFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <boost/algorithm/string/trim.hpp>
#include <cerrno>
#include <system_error>

#include "runtime/StartError.h"

namespace DOVA::runtime {

namespace {

constexpr std::size_t s_longest = 1024;

class Descriptor {
public:
    explicit Descriptor(int number) : m_number(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (m_number >= 0) {
            ::close(m_number);
        }
    }
    int number() const { return m_number; }

private:
    int m_number;
};

bool writeAll(int file, const std::string& text) {
    return ::write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size());
}

}  // namespace

std::string TokenFile::read() const {
    // Without waiting for the other end of a pipe.
    const Descriptor file(::open(m_path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (file.number() < 0) {
        if (errno == ENOENT) {
            return {};
        }
        fail("read", errno);
    }
    struct stat status {};
    if (::fstat(file.number(), &status) != 0) {
        fail("read", errno);
    }
    if (!S_ISREG(status.st_mode)) {
        refuse("is not a regular file");
    }
    std::string token(s_longest, '\0');
    const ssize_t size = ::read(file.number(), token.data(), token.size());
    if (size < 0) {
        fail("read", errno);
    }
    token.resize(static_cast<std::size_t>(size));
    if (token.size() == s_longest) {
        refuse("is too long for a token");
    }
    boost::algorithm::trim(token);
    if (!token.empty()) {
        requirePrivate(status);
    }
    return token;
}

/// Whoever knows the token drives the program.
void TokenFile::requirePrivate(const struct stat& status) const {
    if (status.st_uid != ::geteuid()) {
        refuse("belongs to another user");
    }
    if ((status.st_mode & (S_IRWXG | S_IRWXO)) != 0) {
        refuse("can be read or changed by others; its mode must be 600");
    }
}

void TokenFile::refuse(const char* sentence) const {
    throw StartError("the token file \"" + m_path.string() + "\" " + sentence);
}

void TokenFile::write(const std::string& token) const {
    constexpr mode_t ownerOnly = S_IRUSR | S_IWUSR;
    const Descriptor file(
        ::open(m_path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, ownerOnly));
    // An empty file that was there before keeps its mode when it is opened.
    if (file.number() < 0 || ::fchmod(file.number(), ownerOnly) != 0 ||
        !writeAll(file.number(), token + "\n")) {
        fail("write", errno);
    }
}

void TokenFile::fail(const char* action, int error) const {
    throw StartError(std::string("cannot ") + action + " the token file \"" + m_path.string() +
                     "\": " + std::generic_category().message(error));
}

}  // namespace DOVA::runtime
