#include "OutputLines.h"

#include <algorithm>
#include <cstdio>
#include <utility>

namespace DOVA::console {

namespace {

constexpr std::size_t s_mostLines = 20;
constexpr std::size_t s_lineWidth = 80;
constexpr std::size_t s_longestLine = 400;

/// As many as it takes where a longer one is wrapped.
std::size_t rowsOf(const std::string& line) {
    return line.size() / s_lineWidth + 1;
}

}  // namespace

OutputLines::OutputLines(std::function<void()> onChange) : m_onChange(std::move(onChange)) {
    m_before = host::redirectConsole([this](std::string_view text) { add(text); });
}

OutputLines::~OutputLines() {
    host::redirectConsole(std::move(m_before));
}

void OutputLines::add(std::string_view text) {
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        std::fwrite(text.data(), 1, text.size(), stdout);
        std::fflush(stdout);
        for (const char character : text) {
            if (character == '\n') {
                m_lines.emplace_back();
            } else if (m_lines.back().size() < s_longestLine) {
                m_lines.back() += character;
            }
            if (m_lines.size() > s_mostLines + 1) {  // the one that was just begun, too
                m_lines.pop_front();
            }
        }
    }
    m_onChange();
}

std::string OutputLines::text() const {
    const std::lock_guard<std::mutex> lock(m_mutex);
    std::string result;
    std::size_t rows = 0;
    const auto last = m_lines.rbegin() + (m_lines.back().empty() ? 1 : 0);
    for (auto line = last; line != m_lines.rend(); ++line) {
        rows += rowsOf(*line);
        if (rows > s_mostLines) {
            break;
        }
        result.insert(0, line == last ? *line : *line + "\n");
    }
    return result;
}

}  // namespace DOVA::console
