#include "History.h"

#include <fcntl.h>
#include <histedit.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <new>
#include <system_error>
#include <utility>

namespace DOVA::console {

namespace fs = std::filesystem;

namespace {

constexpr int s_mostLines = 1000;
// The line editor's own form: this headline, and what is no letter or digit in octal.
constexpr std::string_view s_headline = "_HiStOrY_V2_\n";

std::string encoded(const std::string& line) {
    std::string text;
    for (const char character : line) {
        const auto byte = static_cast<unsigned char>(character);
        const bool isPlain = (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
                             (byte >= 'a' && byte <= 'z');
        if (isPlain) {
            text += character;
        } else {
            text += {'\\', static_cast<char>('0' + (byte >> 6)),
                     static_cast<char>('0' + (byte >> 3 & 7)), static_cast<char>('0' + (byte & 7))};
        }
    }
    return text + '\n';
}

/// The file for one change, while nobody else changes it.
class LockedFile {
public:
    explicit LockedFile(const fs::path& file)
        : m_descriptor(::open(file.c_str(), O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC, 0600)) {
        if (m_descriptor >= 0) {
            ::flock(m_descriptor, LOCK_EX);
        }
    }
    LockedFile(const LockedFile&) = delete;
    LockedFile& operator=(const LockedFile&) = delete;
    ~LockedFile() {
        if (m_descriptor >= 0) {
            ::close(m_descriptor);
        }
    }

    off_t size() const { return ::lseek(m_descriptor, 0, SEEK_END); }

    /// In one go: a process that ends meanwhile leaves the whole of it or nothing.
    bool append(std::string_view text) const {
        return m_descriptor >= 0 &&
               ::write(m_descriptor, text.data(), text.size()) == static_cast<ssize_t>(text.size());
    }

    std::string read() const {
        std::string text(static_cast<std::size_t>(std::max<off_t>(size(), 0)), '\0');
        const ssize_t count = ::pread(m_descriptor, text.data(), text.size(), 0);
        text.resize(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        return text;
    }

    void replace(std::string_view text) const {
        if (::ftruncate(m_descriptor, 0) == 0) {
            append(text);
        }
    }

private:
    const int m_descriptor;
};

/// Where the last so many lines of a text begin.
std::size_t lastLines(std::string_view text, int count) {
    std::size_t at = text.size();
    for (int line = 0; line <= count && at != text.npos && at > 0; ++line) {
        at = text.rfind('\n', at - 1);
    }
    return at == text.npos ? 0 : at + 1;
}

}  // namespace

fs::path History::defaultFile() {
    const char* const state = std::getenv("XDG_STATE_HOME");
    const char* const home = std::getenv("HOME");
    const fs::path name = fs::path("dova-host") / "history";
    if (state != nullptr && fs::path(state).is_absolute()) {  // others are to be ignored
        return state / name;
    }
    return home != nullptr && *home != 0 ? home / fs::path(".local/state") / name : fs::path();
}

History::History(fs::path file) : m_file(std::move(file)), m_lines(::history_init()) {
    if (!m_lines) {
        throw std::bad_alloc();
    }
    HistEvent event;
    ::history(m_lines.get(), &event, H_SETSIZE, s_mostLines);
    if (!m_file.empty()) {
        ::history(m_lines.get(), &event, H_LOAD, m_file.c_str());
    }
}

History::~History() {
    if (!m_file.empty()) {
        shorten();
    }
}

void History::Closer::operator()(struct ::history* lines) const {
    ::history_end(lines);
}

void History::offerTo(struct editline* editor) const {
    ::el_set(editor, EL_HIST, ::history, m_lines.get());
}

bool History::keep(const std::string& line) const {
    std::error_code error;
    fs::create_directories(m_file.parent_path(), error);
    const LockedFile file(m_file);
    return file.append((file.size() > 0 ? "" : std::string(s_headline)) + encoded(line));
}

void History::shorten() const {
    std::error_code error;
    if (!fs::exists(m_file, error)) {
        return;
    }
    const LockedFile file(m_file);
    const std::string text = file.read();
    const std::size_t begin = lastLines(text, s_mostLines);
    if (begin > s_headline.size()) {
        file.replace(std::string(s_headline) + text.substr(begin));
    }
}

void History::add(const std::string& line) {
    if (!line.empty() && line != m_last) {
        HistEvent event;
        ::history(m_lines.get(), &event, H_ENTER, line.c_str());
        m_last = line;
        if (!m_file.empty() && !keep(line) && !std::exchange(m_hasComplained, true)) {
            std::cerr << "dova-host: cannot keep the history in " + m_file.string() + "\n";
        }
    }
}

}  // namespace DOVA::console
