#include "EventLog.h"

#include "Words.h"

namespace gallery {

namespace {

constexpr std::size_t s_shown = 3;

}  // namespace

// From the beginning as many lines as there will ever be, so that the window stays as it is.
EventLog::EventLog(DOVA::DVText2& text) : m_text(text), m_lines(s_shown, u" ") {
    showLines();
}

void EventLog::tell(const std::u16string& event) {
    m_lines.pop_back();
    m_lines.push_front(number(++m_count) + u". " + event);
    showLines();
}

void EventLog::showLines() {
    std::u16string all;
    for (const std::u16string& line : m_lines) {
        all += (all.empty() ? u"" : u"\n") + line;
    }
    m_text.setText(all);
}

}  // namespace gallery
