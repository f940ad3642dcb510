#include "FuzzProgram.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <iterator>

#include "core/KorvidOnlineFlag.h"
#include "core/ModuleEntry.h"
#include "core/WebObject2.h"
#include "core/WebObjectService2.h"

namespace DOVA::fuzz {

namespace {

using tdom::messaging::InProcessBus;
using tdom::messaging::MessageBus;

const std::string s_root = "/dova2/web";

InProcessBus& bus() {
    static const auto instance = std::dynamic_pointer_cast<InProcessBus>(MessageBus::current());
    return *instance;
}

// Numbers that a text holds by chance name no object: those begin behind them. So an input means
// the same in every process.
void passSmallNumbers() {
    struct Numbered : DVObject {};
    for (int count = 0; count < 100000; ++count) {
        const Numbered passed;
    }
}

MessageBus::ConnectorId page() {
    static const MessageBus::ConnectorId connector = [] {
        passSmallNumbers();
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

QJsonObject describe(const std::string& identifier) {
    return WebObjectService2::instance()->getObject(std::stoul(identifier))->getJSonObject();
}

/// The place behind the first '$' from a place on; the text's size or npos if nothing stands there.
std::size_t behindMark(std::string_view text, std::size_t from) {
    const std::size_t mark = text.find('$', from);
    return mark == text.npos ? mark : mark + 1;
}

/// Says in the end how much of what was tried came to anything.
struct Reached {
    unsigned inputs = 0;
    unsigned handled = 0;

    ~Reached() { std::cerr << handled << " of " << inputs << " inputs reached a handler\n"; }
};

Reached s_reached;

}  // namespace

Input::Input(std::string_view named) {
    for (const char placeholder : named) {
        m_named.set(static_cast<unsigned char>(placeholder));
    }
}

Input::Input(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return;
    }
    manners = data[0];
    std::string_view rest(reinterpret_cast<const char*>(data) + 1, size - 1);
    for (std::size_t at = behindMark(rest, 0); at < rest.size(); at = behindMark(rest, at)) {
        m_named.set(static_cast<unsigned char>(rest[at]));
    }
    for (auto end = rest.find('\n'); end != rest.npos; end = rest.find('\n')) {
        lines.emplace_back(rest.substr(0, end));
        rest.remove_prefix(end + 1);
    }
    lines.emplace_back(rest);
}

bool Input::names(std::string_view placeholders) const {
    return std::any_of(placeholders.begin(), placeholders.end(),
                       [this](char each) { return m_named[static_cast<unsigned char>(each)]; });
}

FuzzProgram::FuzzProgram(const Input& input) : m_input(input), m_manners(input.manners) {
    publish(s_root, R"({"clientReady":"page"})");
    Window& first = add('0');
    fill(first);
    first.dialog->show();
    if (m_input.names("89")) {
        Window& second = add('8');
        if (auto* button = put<DVButton2>("9", second, second.dialog.get())) {
            button->onClick([this] { react(); });
        }
        second.dialog->show();
    }
    if (m_manners == 0) {
        for (const char window : {'0', '8'}) {
            layOut(window);
            m_putBack.emplace_back(window, [this, window] { layOut(window); });
        }
        std::transform(m_identifiers.begin(), m_identifiers.end(),
                       std::back_inserter(m_descriptions),
                       [](const auto& object) { return describe(object.second); });
    }
}

FuzzProgram::~FuzzProgram() {
    m_manners = 0;
}

FuzzProgram::Window& FuzzProgram::add(char placeholder) {
    auto window = std::make_unique<Window>();
    window->dialog = std::make_unique<DVDialog2>();
    m_identifiers.emplace_back(placeholder, std::to_string(window->dialog->identifier()));
    window->dialog->onKey([this] { react(); });
    window->dialog->onResize([this] { react(); });
    window->dialog->onCloseRequest([this] { react(); });
    m_windows.push_back(std::move(window));
    return *m_windows.back();
}

void FuzzProgram::open() {
    if (m_manners == 0) {
        m_windows.back()->dialog->stayOpen();
    } else if (m_windows.size() < 4) {
        add('\0').dialog->show();
    }
}

/// Makes a widget, which the first placeholder stands for, if the input names it or one that is to
/// be in it; null otherwise.
template <class Widget>
Widget* FuzzProgram::put(const char* placeholders, Window& window, DVObject* parent) {
    if (!m_input.names(placeholders)) {
        return nullptr;
    }
    auto widget = std::make_unique<Widget>(parent);
    Widget* made = widget.get();
    m_identifiers.emplace_back(*placeholders, std::to_string(made->identifier()));
    window.contents.push_back(std::move(widget));
    return made;
}

void FuzzProgram::fill(Window& window) {
    auto* rows = put<DVBoxLayout2>("1", window, nullptr);
    if (rows) {
        window.dialog->setLayout(rows);
    }
    auto* edit = put<DVEdit2>("2", window, window.dialog.get());
    if (edit) {
        edit->onEdit([this] { react(); });
        edit->onEditFinish([this] { react(); });
        m_putBack.emplace_back('2', [this] {
            say("/dova2/web/page/$0", R"({"event":"onEdit","id":"$2","value":""})");
        });
    }
    fillPanel(window, edit, rows);
    fillBox(window);
    fillTabs(window);
}

void FuzzProgram::fillPanel(Window& window, DVEdit2* edit, DVBoxLayout2* rows) {
    auto* panel = put<DVPanel2>("34567", window, window.dialog.get());
    auto* grid = put<DVGridLayout2>("4", window, panel);
    auto* button = put<DVButton2>("5", window, panel);
    auto* check = put<DVCheckBox2>("6", window, panel);
    auto* text = put<DVText2>("7", window, panel);
    if (rows) {
        rows->addWidget(edit);
        rows->addWidget(panel);
    }
    if (grid) {
        panel->setLayout(grid);
        grid->addWidget(button);
        grid->addWidget(check);
    }
    if (text) {
        text->setBuddy(edit);
    }
    if (button) {
        button->onClick([this] { react(); });
        button->onToggle([this] { react(); });
    }
    if (check) {
        check->onToggle([this] { react(); });
        m_putBack.emplace_back('6', [check] { check->setChecked(false); });
    }
}

/// A box with a fixed and an editable choice, which lose and get items in their own events.
void FuzzProgram::fillBox(Window& window) {
    auto* box = put<DVGroupBox2>("abc", window, window.dialog.get());
    for (const char* placeholder : {"b", "c"}) {
        auto* choice = put<DVComboBox2>(placeholder, window, box);
        if (!choice) {
            continue;
        }
        choice->addItems({u"small", u"medium", u"large"});
        choice->setEditable(*placeholder == 'c');
        const auto change = [choice] {
            choice->clear();
            choice->addItem(u"one");
            choice->setSelection(choice->count());
        };
        const auto reaction = [this, choice, change] { react(*choice, change); };
        choice->onSelect(reaction);
        choice->onEdit(reaction);
        choice->onEditFinish(reaction);
        m_putBack.emplace_back(*placeholder, [choice] {
            choice->setSelection(-1);
            choice->setText(u"");
        });
    }
}

/// Two pages, the first of which leaves its container, and comes again, in the container's events.
void FuzzProgram::fillTabs(Window& window) {
    auto* tabs = put<DVTabContainer2>("def", window, window.dialog.get());
    if (!tabs) {
        return;
    }
    tabs->setTabsClosable(true);
    for (const char* placeholders : {"ed", "fd"}) {
        auto* page = put<DVTab2>(placeholders, window, tabs);
        if (page) {
            tabs->addTab(page);
        }
    }
    const auto change = [tabs] {
        DVTab2* const page = tabs->tab(0);
        tabs->removeTab(0);
        if (page) {
            tabs->insertTab(0, page);
        }
        tabs->setCurrentIndex(tabs->tabCount());
    };
    m_putBack.emplace_back('d', [tabs] { tabs->setCurrentIndex(0); });
    tabs->onCurrentChanged([this, tabs, change] { react(*tabs, change); });
    tabs->onCloseRequest([this, tabs, change] { react(*tabs, change); });
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
                const std::size_t at = m_events % window.contents.size();
                window.contents.erase(window.contents.begin() + static_cast<std::ptrdiff_t>(at));
            }
            break;
        case 2:
            open();
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

/// The identifier that a placeholder stands for; null for one that stands for nothing.
const std::string* FuzzProgram::named(char placeholder) const {
    const auto found = std::find_if(m_identifiers.begin(), m_identifiers.end(),
                                    [=](const auto& each) { return each.first == placeholder; });
    return found == m_identifiers.end() ? nullptr : &found->second;
}

std::string FuzzProgram::fillIn(std::string_view text) const {
    std::string filled;
    std::size_t copied = 0;
    for (std::size_t at = behindMark(text, 0); at < text.size(); at = behindMark(text, at)) {
        if (const std::string* const identifier = named(text[at])) {
            filled.append(text, copied, at - 1 - copied).append(*identifier);
            copied = at + 1;
        }
    }
    return filled.append(text, copied);
}

void FuzzProgram::say(std::string_view channel, std::string_view text) {
    publish(fillIn(channel), fillIn(text));
}

/// Whether the page knows of the window and has not yet answered.
bool FuzzProgram::isNew(const Window& window) {
    return window.dialog->emitters()->isAnnounced.emit() &&
           !WebObjectService2::instance()->isReady(window.dialog->identifier());
}

/// The page says how a window is.
void FuzzProgram::layOut(char window) {
    const std::string placeholder{'$', window};
    say("/dova2/web/page/" + placeholder,
        "{\"id\":\"" + placeholder +
            R"(","geometry":{},"frameGeometry":{},"maximized":false,"minimized":false,"title":""})");
}

/// Looks at what the input names: nothing else can have changed in a program without manners.
bool FuzzProgram::isUntouchedBy(const Input& input) const {
    for (std::size_t index = 0; index < m_descriptions.size(); ++index) {
        const auto& [placeholder, identifier] = m_identifiers[index];
        if (input.names({&placeholder, 1}) && describe(identifier) != m_descriptions[index]) {
            return false;
        }
    }
    return true;
}

/// For a program without manners: back to a page that has just come, and to what the program has
/// shown there. False if something else has remained.
bool FuzzProgram::putBack(const Input& input) {
    for (const auto& window : m_windows) {
        if (!isNew(*window)) {
            publish(s_root, R"({"clientReady":"page"})");
            window->dialog->emitters()->showAgain.emit();
            window->dialog->stayOpen();
        }
    }
    for (const auto& [placeholder, change] : m_putBack) {
        if (input.names({&placeholder, 1})) {
            change();
        }
    }
    return isUntouchedBy(input);
}

void FuzzProgram::requireWorking() {
    m_events = 0;
    say("/dova2/web/page/$8", R"({"event":"onClick","id":"$9"})");
    if (m_events != 1) {
        std::abort();
    }
}

void run(const Input& input, std::string_view named, const Say& say) {
    static auto kept = std::make_unique<FuzzProgram>(Input(named));
    const auto hear = [&](FuzzProgram& program) {
        program.m_events = 0;
        for (const std::string& line : input.lines) {
            say(program, line);
        }
        ++s_reached.inputs;
        s_reached.handled += program.m_events > 0;
    };
    if (input.manners == 0) {
        hear(*kept);
    } else {
        FuzzProgram own(input);
        hear(own);
    }
    if (!kept->putBack(input)) {
        kept.reset();
        kept = std::make_unique<FuzzProgram>(Input(named));
    }
    kept->requireWorking();
}

}  // namespace DOVA::fuzz
