#include "FuzzProgram.h"

#include <algorithm>
#include <cstdlib>
#include <type_traits>

#include "core/KorvidOnlineFlag.h"
#include "core/ModuleEntry.h"

namespace DOVA::fuzz {

namespace {

using tdom::messaging::InProcessBus;
using tdom::messaging::MessageBus;

const std::string s_root = "/dova2/web";

InProcessBus& bus() {
    static const auto instance = std::dynamic_pointer_cast<InProcessBus>(MessageBus::current());
    return *instance;
}

MessageBus::ConnectorId page() {
    static const MessageBus::ConnectorId connector = [] {
        initialize_dova2_web();
        web::KorvidOnlineFlag::set(true);
        return bus().attach("fuzz");
    }();
    return connector;
}

void publish(const std::string& channel, const std::string& text) {
    bus().publish(page(), channel, text);
    while (!bus().idle()) {
        bus().deliver();
    }
}

template <class Widget>
constexpr bool isPlain =
    !std::is_same_v<Widget, DVGroupBox2> && !std::is_same_v<Widget, DVComboBox2> &&
    !std::is_same_v<Widget, DVTab2> && !std::is_same_v<Widget, DVTabContainer2>;

}  // namespace

Input::Input(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return;
    }
    manners = data[0];
    lines.emplace_back();
    for (const std::uint8_t* byte = data + 1; byte != data + size; ++byte) {
        if (*byte == '\n') {
            lines.emplace_back();
        } else {
            lines.back().push_back(static_cast<char>(*byte));
        }
    }
}

FuzzProgram::FuzzProgram(std::uint8_t manners) : m_manners(manners) {
    publish(s_root, R"({"clientReady":"page"})");
    open();
    open();
}

FuzzProgram::~FuzzProgram() {
    m_manners = 0;
    publish(s_root, R"({"clientReady":"last"})");
    publish(s_root, R"({"clientDestroyed":"last"})");
}

template <class Widget>
Widget& FuzzProgram::put(Window& window, DVObject* parent) {
    auto widget = std::make_unique<Widget>(parent);
    Widget& made = *widget;
    auto& identifiers = isPlain<Widget> ? m_identifiers : m_holderIdentifiers;
    identifiers.push_back(std::to_string(made.identifier()));
    window.contents.push_back(std::move(widget));
    return made;
}

void FuzzProgram::open() {
    auto window = std::make_unique<Window>();
    window->dialog = std::make_unique<DVDialog2>();
    m_identifiers.push_back(std::to_string(window->dialog->identifier()));
    fill(*window);
    listen(*window);
    window->dialog->show();
    m_windows.push_back(std::move(window));
}

void FuzzProgram::fill(Window& window) {
    auto& rows = put<DVBoxLayout2>(window, nullptr);
    window.dialog->setLayout(&rows);
    auto& edit = put<DVEdit2>(window, window.dialog.get());
    auto& panel = put<DVPanel2>(window, window.dialog.get());
    auto& grid = put<DVGridLayout2>(window, &panel);
    auto& button = put<DVButton2>(window, &panel);
    auto& check = put<DVCheckBox2>(window, &panel);
    auto& text = put<DVText2>(window, &panel);
    text.setBuddy(&edit);
    rows.addWidget(&edit);
    rows.addWidget(&panel);
    panel.setLayout(&grid);
    grid.addWidget(&button);
    grid.addWidget(&check);
    fillBox(window);
    fillTabs(window);
    edit.onEdit([this] { react(); });
    edit.onEditFinish([this] { react(); });
    button.onClick([this] { react(); });
    button.onToggle([this] { react(); });
    check.onToggle([this] { react(); });
}

/// A box with a fixed and an editable choice, which lose and get items in their own events.
void FuzzProgram::fillBox(Window& window) {
    auto& box = put<DVGroupBox2>(window, window.dialog.get());
    for (const bool editable : {false, true}) {
        auto& choice = put<DVComboBox2>(window, &box);
        choice.addItems({u"small", u"medium", u"large"});
        choice.setEditable(editable);
        const auto change = [&choice] {
            choice.clear();
            choice.addItem(u"one");
            choice.setSelection(choice.count());
        };
        choice.onSelect([this, &choice, change] { react(choice, change); });
        choice.onEdit([this, &choice, change] { react(choice, change); });
        choice.onEditFinish([this, &choice, change] { react(choice, change); });
    }
}

/// Two pages, the first of which leaves its container, and comes again, in the container's events.
void FuzzProgram::fillTabs(Window& window) {
    auto& tabs = put<DVTabContainer2>(window, window.dialog.get());
    tabs.setTabsClosable(true);
    for (const char16_t* name : {u"first", u"second"}) {
        auto& page = put<DVTab2>(window, &tabs);
        page.setName(name);
        tabs.addTab(&page);
    }
    const auto change = [&tabs] {
        DVTab2* const page = tabs.tab(0);
        tabs.removeTab(0);
        if (page) {
            tabs.insertTab(0, page);
        }
        tabs.setCurrentIndex(tabs.tabCount());
    };
    tabs.onCurrentChanged([this, &tabs, change] { react(tabs, change); });
    tabs.onCloseRequest([this, &tabs, change] { react(tabs, change); });
}

void FuzzProgram::listen(Window& window) {
    window.dialog->onKey([this] { react(); });
    window.dialog->onResize([this] { react(); });
    window.dialog->onCloseRequest([this] { react(); });
}

/// What a program may do in the middle of a message: the manners say when, the count says what.
void FuzzProgram::react() {
    ++m_events;
    if (m_manners == 0 || m_windows.empty() || m_events % (m_manners % 4u + 1) != 0) {
        return;
    }
    Window& window = *m_windows.front();
    switch ((m_manners / 4u + m_events) % 6) {
        case 0:
            window.dialog.reset();
            m_closed.push_back(std::move(m_windows.front()));
            m_windows.erase(m_windows.begin());
            break;
        case 1:
            if (!window.contents.empty()) {
                window.contents.erase(window.contents.begin() + m_events % window.contents.size());
            }
            break;
        case 2:
            if (m_windows.size() < 4) {
                open();
            }
            break;
        case 3:
            while (!bus().idle()) {
                bus().deliver();
            }
            break;
        case 4:
            window.dialog->setTitle(u"t");
            window.dialog->setParent(m_windows.back()->dialog.get());
            break;
        default:
            window.contents.clear();
    }
}

/// In the upper half of the manners it is the object itself, or the one that was made before it,
/// that changes or goes in its own event.
void FuzzProgram::react(const DVObject2& own, const std::function<void()>& change) {
    if (m_manners < 128) {
        react();
        return;
    }
    ++m_events;
    if (m_events % (m_manners % 4u + 1) != 0) {
        return;
    }
    switch ((m_manners / 4u + m_events) % 4) {
        case 0:
            remove(own, 0);
            break;
        case 1:
            change();
            break;
        case 2:
            remove(own, 1);
            change();
            break;
        default:
            change();
            remove(own, 0);
    }
}

/// Destroys the object that was made so many before this one in its window.
void FuzzProgram::remove(const DVObject2& object, std::size_t before) {
    for (const auto* const windows : {&m_windows, &m_closed}) {
        for (const auto& window : *windows) {
            auto& contents = window->contents;
            const auto found =
                std::find_if(contents.begin(), contents.end(),
                             [&object](const auto& each) { return each.get() == &object; });
            const auto back = static_cast<std::ptrdiff_t>(before);
            if (found != contents.end() && found - contents.begin() >= back) {
                contents.erase(found - back);
                return;
            }
        }
    }
}

/// The identifier that a digit or letter stands for; null for any other character.
const std::string* FuzzProgram::named(char placeholder) const {
    const bool digit = placeholder >= '0' && placeholder <= '9';
    const auto& identifiers = digit ? m_identifiers : m_holderIdentifiers;
    const int index = placeholder - (digit ? '0' : 'a');
    const bool known = index >= 0 && index < static_cast<int>(identifiers.size());
    return known ? &identifiers[static_cast<std::size_t>(index)] : nullptr;
}

std::string FuzzProgram::fillIn(const std::string& text) const {
    std::string filled;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::string* const identifier =
            text[i] == '$' && i + 1 < text.size() ? named(text[i + 1]) : nullptr;
        if (identifier) {
            filled += *identifier;
            ++i;
        } else {
            filled += text[i];
        }
    }
    return filled;
}

void FuzzProgram::say(const std::string& channel, const std::string& text) {
    publish(fillIn(channel), fillIn(text));
}

void FuzzProgram::requireWorking() {
    publish(s_root, R"({"clientReady":"check"})");
    DVDialog2 window;
    DVButton2 button(&window);
    int clicks = 0;
    button.onClick([&] { ++clicks; });
    window.show();
    publish(s_root + "/check/" + std::to_string(window.identifier()),
            "{\"event\":\"onClick\",\"id\":\"" + std::to_string(button.identifier()) + "\"}");
    if (clicks != 1) {
        std::abort();
    }
}

}  // namespace DOVA::fuzz
