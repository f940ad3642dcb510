#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "messaging/InProcessBus.h"
#include "toolkit/DVBoxLayout2.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVCheckBox2.h"
#include "toolkit/DVComboBox2.h"
#include "toolkit/DVDialog2.h"
#include "toolkit/DVEdit2.h"
#include "toolkit/DVGridLayout2.h"
#include "toolkit/DVGroupBox2.h"
#include "toolkit/DVPanel2.h"
#include "toolkit/DVTab2.h"
#include "toolkit/DVTabContainer2.h"
#include "toolkit/DVText2.h"

namespace DOVA::fuzz {

/// One input: its first byte says how the program's handlers behave, the lines after it are texts
/// of a page. In a line "$0" to "$9" stand for the identifiers of the program's plain objects, "$a"
/// and on for those of its boxes, choices and tabs.
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size);

    std::uint8_t manners = 0;
    std::vector<std::string> lines;
};

/// A program with one widget of each kind in a window, a second window, and a handler for
/// everything; now and then a handler destroys what it can reach, its own window included. The
/// module is started once, and its client announced anew for each program.
class FuzzProgram {
public:
    explicit FuzzProgram(std::uint8_t manners);
    ~FuzzProgram();

    /// A page says a text on a channel; placeholders in both are filled in.
    void say(const std::string& channel, const std::string& text);
    /// Opens one more window.
    void open();
    /// Ends the process if a click on a new window of a new page does not arrive any more.
    void requireWorking();

private:
    struct Window {
        std::unique_ptr<DVDialog2> dialog;
        std::vector<std::unique_ptr<DVObject2>> contents;
    };

    template <class Widget>
    Widget& put(Window& window, DVObject* parent);
    void fill(Window& window);
    void fillBox(Window& window);
    void fillTabs(Window& window);
    void listen(Window& window);
    void react();
    void react(const DVObject2& own, const std::function<void()>& change);
    void remove(const DVObject2& object, std::size_t before);
    const std::string* named(char placeholder) const;
    std::string fillIn(const std::string& text) const;

    std::uint8_t m_manners;
    unsigned m_events = 0;
    std::vector<std::unique_ptr<Window>> m_windows;
    std::vector<std::unique_ptr<Window>> m_closed;  // handlers of these may still run
    std::vector<std::string> m_identifiers;        // of plain objects, "$0" and on
    std::vector<std::string> m_holderIdentifiers;  // of boxes, choices and tabs, "$a" and on
};

}  // namespace DOVA::fuzz
