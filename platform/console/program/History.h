#pragma once

#include <filesystem>
#include <memory>
#include <string>

struct editline;
struct history;

namespace DOVA::console {

/// What was entered at the prompt, here and in earlier runs: the last thousand lines, in a file
/// that only its owner can read.
class History {
public:
    /// Below XDG_STATE_HOME, else below ".local/state" at home; empty when there is no home.
    static std::filesystem::path defaultFile();

    /// Takes over what the file has; none, or an empty path, is an empty history.
    explicit History(std::filesystem::path file);
    History(const History&) = delete;
    History& operator=(const History&) = delete;
    /// Writes the file. If that cannot be, one line on standard error says so.
    ~History();

    /// Has the arrow keys of a line editor go through it, which must not outlive it.
    void offerTo(struct editline* editor) const;

    /// Adds a line, unless it is empty or the same as the last one.
    void add(const std::string& line);

private:
    struct Closer {
        void operator()(struct ::history* lines) const;
    };

    bool save() const;

    const std::filesystem::path m_file;
    const std::unique_ptr<struct ::history, Closer> m_lines;
    std::string m_last;
};

}  // namespace DOVA::console
