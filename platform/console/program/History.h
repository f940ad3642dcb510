#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

struct editline;
struct history;

namespace DOVA::console {

/// What was entered at the prompt, here and in earlier runs: the last thousand lines, in a file
/// that only its owner can read. A line is there as soon as it is entered; several prompts may
/// share the file.
class History {
public:
    /// Below XDG_STATE_HOME, else below ".local/state" at home; empty when there is no home.
    static std::filesystem::path defaultFile();

    /// Takes over what the file has; none, or an empty path, is an empty history.
    explicit History(std::filesystem::path file);
    History(const History&) = delete;
    History& operator=(const History&) = delete;
    /// Shortens the file where it has grown far beyond its thousand lines.
    ~History();

    /// Has the arrow keys of a line editor go through it, which must not outlive it.
    void offerTo(struct editline* editor) const;

    /// Adds a line, unless it is empty or the same as the last one. If it cannot be kept in the
    /// file, one line on standard error says so, once.
    void add(const std::string& line);

private:
    struct Closer {
        void operator()(struct ::history* lines) const;
    };

    bool keep(const std::string& line) const;
    void shorten() const;

    const std::filesystem::path m_file;
    const std::unique_ptr<struct ::history, Closer> m_lines;
    std::string m_last;
    bool m_hasComplained = false;
};

}  // namespace DOVA::console
