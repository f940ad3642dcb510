#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "Ledger.h"

namespace DOVA::load {

/// What a page knows of the window of dova-load-target: a field to type actions into, and a text
/// that says what was handled.
class TargetWindow {
public:
    /// The title by which pages know it.
    static constexpr const char* s_title = "Load target";

    bool isThere() const { return !m_id.empty(); }
    const std::string& id() const { return m_id; }
    /// Where the page and the program speak of it.
    std::string channel() const;

    /// A text of the page's own channel. True when it described such a window, with both widgets;
    /// every other window is left alone.
    bool described(std::string_view text);
    /// A text of the window's channel: calls for each write that says what was handled.
    void written(std::string_view text, const std::function<void(const Handled&)>& call) const;

    /// The texts of a page that shows it.
    std::string ready() const;
    std::string geometry() const;
    std::string typed(const Action& action) const;

private:
    std::string m_id;
    std::string m_field;
    std::string m_text;
};

}  // namespace DOVA::load
