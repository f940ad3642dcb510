#pragma once

#include <QJsonObject>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
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

class FuzzProgram;

/// Has a page say one line of an input.
using Say = std::function<void(FuzzProgram& program, const std::string& line)>;

/// One input: its first byte says how the program's handlers behave, the lines after it are texts
/// of a page. In a line "$0" to "$9" stand for the identifiers of the program's plain objects, "$a"
/// to "$f" for those of its boxes, choices and tabs.
class Input {
public:
    /// Names these and says nothing.
    explicit Input(std::string_view named);
    Input(const std::uint8_t* data, std::size_t size);

    /// Whether one of these placeholders stands in a line.
    bool names(std::string_view placeholders) const;

    std::uint8_t manners = 0;
    std::vector<std::string> lines;

private:
    std::bitset<256> m_named;
};

/// A program with two windows and a handler for everything; now and then a handler destroys what it
/// can reach, its own window included. Of the widgets, one of each kind, there are those that the
/// input names and what they are in.
class FuzzProgram {
public:
    explicit FuzzProgram(const Input& input);
    ~FuzzProgram();

    /// A page says a text on a channel; placeholders in both are filled in.
    void say(std::string_view channel, std::string_view text);
    /// Opens one more window, if there are not many; a program without manners brings its second
    /// one back to the page.
    void open();

private:
    struct Window {
        std::unique_ptr<DVDialog2> dialog;
        std::vector<std::unique_ptr<DVObject2>> contents;
    };

    friend void run(const Input& input, std::string_view named, const Say& say);

    Window& add(char placeholder);
    template <class Widget>
    Widget* put(const char* placeholders, Window& window, DVObject* parent);
    void fill(Window& window);
    void fillPanel(Window& window, DVEdit2* edit, DVBoxLayout2* rows);
    void fillBox(Window& window);
    void fillTabs(Window& window);
    void react();
    void react(const DVObject2& own, const std::function<void()>& change);
    void remove(const DVObject2& object, std::size_t before);
    const std::string* named(char placeholder) const;
    std::string fillIn(std::string_view text) const;
    static bool isNew(const Window& window);
    bool isUntouchedBy(const Input& input) const;
    bool putBack(const Input& input);
    void layOut(char window);
    void requireWorking();

    const Input m_input;
    std::uint8_t m_manners;
    unsigned m_events = 0;
    std::vector<std::unique_ptr<Window>> m_windows;
    std::vector<std::unique_ptr<Window>> m_closed;            // handlers of these may still run
    std::vector<std::pair<char, std::string>> m_identifiers;  // by placeholder
    /// What takes back whatever a page may have switched in an object, by its placeholder.
    std::vector<std::pair<char, std::function<void()>>> m_putBack;
    std::vector<QJsonObject> m_descriptions;  // of the objects above, when the program was new
};

/// Gives an input to a program, line by line. One whose handlers change something gets a program of
/// its own. Any other gets one with the named widgets, which is kept: what the page may have
/// switched is switched back after the input, and if then anything is not described as it was at
/// first, a new program takes its place. So each input meets what it would meet if it were the only
/// one. Ends the process if a click does not arrive any more afterwards. `named`: placeholders, "9"
/// among them, the same in each call.
void run(const Input& input, std::string_view named, const Say& say);

}  // namespace DOVA::fuzz
