#include "TokenFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <boost/algorithm/string/trim.hpp>
#include <cerrno>
#include <fstream>
#include <system_error>

#include "runtime/StartError.h"

namespace DOVA::runtime {

namespace {

constexpr std::streamsize s_longest = 1024;

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
    std::error_code error;
    const auto status = std::filesystem::status(m_path, error);
    if (status.type() == std::filesystem::file_type::not_found) {
        return {};
    }
    // Nothing else is opened: a pipe would keep the program waiting.
    if (status.type() != std::filesystem::file_type::regular) {
        throw StartError("the token file \"" + m_path.string() + "\" is not a regular file");
    }
    std::ifstream file(m_path, std::ios::binary);
    if (!file) {
        fail("read", errno);
    }
    std::string token(s_longest, '\0');
    file.read(token.data(), s_longest);
    token.resize(static_cast<std::size_t>(file.gcount()));
    if (token.size() == static_cast<std::size_t>(s_longest)) {
        throw StartError("the token file \"" + m_path.string() + "\" is too long for a token");
    }
    boost::algorithm::trim(token);
    return token;
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
