#pragma once

#include <deque>
#include <string>

#include "toolkit/DVText2.h"

namespace gallery {

/// The last things that happened, numbered, in a text that the user sees; the
/// latest is the first.
class EventLog {
public:
    /// `text` outlives the log.
    explicit EventLog(DOVA::DVText2& text);

    /// Adds a line; the oldest one goes.
    void tell(const std::u16string& event);

private:
    void showLines();

    DOVA::DVText2& m_text;
    std::deque<std::u16string> m_lines;
    int m_count = 0;
};

}  // namespace gallery
