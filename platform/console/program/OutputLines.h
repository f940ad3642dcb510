#pragma once

#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>

#include "host/Console.h"

namespace DOVA::console {

/// Keeps the last lines of what is printed on the host's console, while it still goes to standard
/// output. What is longer than a screen is cut: this is for a look at it.
class OutputLines {
public:
    /// `onChange` is called after something was printed, on the thread that did.
    explicit OutputLines(std::function<void()> onChange);
    OutputLines(const OutputLines&) = delete;
    OutputLines& operator=(const OutputLines&) = delete;
    ~OutputLines();

    /// The last of the lines, as many as a screen shows, UTF-8, joined by line breaks. Any thread.
    std::string text() const;

private:
    void add(std::string_view text);

    const std::function<void()> m_onChange;
    mutable std::mutex m_mutex;
    std::deque<std::string> m_lines{std::string()};
    host::ConsoleSink m_before;
};

}  // namespace DOVA::console
