#include "Stage.h"

#include <stdexcept>

#include "core/WebObjectService2.h"
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
#include "widgets/WebButton2.h"
#include "widgets/WebCheckBox2.h"
#include "widgets/WebComboBox2.h"
#include "widgets/WebEdit2.h"
#include "widgets/WebText2.h"
#include "windows/WebBoxLayout2.h"
#include "windows/WebDialog2.h"
#include "windows/WebGridLayout2.h"
#include "windows/WebGroupBox2.h"
#include "windows/WebPanel2.h"
#include "windows/WebTab2.h"
#include "windows/WebTabContainer2.h"

namespace DOVA::test {

namespace {

QString fromU16(const std::u16string& text) {
    // As it is: Qt would take a byte order mark off the front.
    return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<int>(text.size()));
}

}  // namespace

Stage::~Stage() {
    for (const std::string& name : m_order) {
        destroy(name);
    }
}

template <class Web, class Emitters, class Front>
void Stage::make(const std::string& name) {
    auto front = std::make_unique<Front>();
    auto emitters = std::make_unique<Emitters>();
    new Web(front.get(), emitters.get(), nullptr);
    const std::uint32_t identifier = front->identifier();
    m_actors[name] = {identifier, std::move(front), std::move(emitters)};
    m_order.push_back(name);
}

void Stage::add(const QJsonObject& description) {
    using Maker = void (Stage::*)(const std::string&);
    static const std::map<QString, Maker> makers{
        {"BoxLayout", &Stage::make<WebBoxLayout2, DVBoxLayout2Emitters, DVBoxLayout2>},
        {"Button", &Stage::make<WebButton2, DVButton2Emitters, DVButton2>},
        {"CheckBox", &Stage::make<WebCheckBox2, DVCheckBox2Emitters, DVCheckBox2>},
        {"ComboBox", &Stage::make<WebComboBox2, DVComboBox2Emitters, DVComboBox2>},
        {"Dialog", &Stage::make<WebDialog2, DVDialog2Emitters, DVDialog2>},
        {"Edit", &Stage::make<WebEdit2, DVEdit2Emitters, DVEdit2>},
        {"GridLayout", &Stage::make<WebGridLayout2, DVGridLayout2Emitters, DVGridLayout2>},
        {"GroupBox", &Stage::make<WebGroupBox2, DVGroupBox2Emitters, DVGroupBox2>},
        {"Panel", &Stage::make<WebPanel2, DVPanel2Emitters, DVPanel2>},
        {"Tab", &Stage::make<WebTab2, DVTab2Emitters, DVTab2>},
        {"TabContainer", &Stage::make<WebTabContainer2, DVTabContainer2Emitters, DVTabContainer2>},
        {"Text", &Stage::make<WebText2, DVText2Emitters, DVText2>},
    };
    const std::string name = description["name"].toString().toStdString();
    (this->*makers.at(description["kind"].toString()))(name);
    if (description.contains("parent")) {
        place(name, description["parent"].toString().toStdString());
    }
}

void Stage::place(const std::string& name, const std::string& parent) {
    auto* layout = dynamic_cast<DVLayout2*>(front(name));
    auto* container = dynamic_cast<WebContainer2*>(web(parent));
    auto* page = dynamic_cast<DVTab2*>(front(name));
    auto* tabs = dynamic_cast<WebTabContainer2*>(web(parent));
    if (layout && container) {
        container->doSetLayout(layout);
    } else if (page && tabs) {
        tabs->doAddTab(page);
    } else if (auto* outer = dynamic_cast<WebLayout2*>(web(parent))) {
        outer->doAddWidget(front(name), Alignment::None);
    } else {
        web(name)->doSetParent(front(parent));
    }
}

void Stage::listen(const std::string& name) {
    DVObject2* object = front(name);
    const auto noter = [=](const char* event) {
        return [=](const QJsonArray& values) { note(name, event, values); };
    };
    if (auto* button = dynamic_cast<DVAbstractButton2*>(object)) {
        button->onClick([say = noter("click")] { say({}); });
        button->onToggle(
            [say = noter("toggle")](const DVButtonToggleEvent2& event) { say({event.checked()}); });
    } else if (auto* edit = dynamic_cast<DVEdit2*>(object)) {
        edit->onEdit([say = noter("edit")](const DVEditEvent2& e) { say({fromU16(e.text())}); });
        edit->onEditFinish(
            [say = noter("editFinish")](const DVEditEvent2& e) { say({fromU16(e.text())}); });
    } else if (auto* combo = dynamic_cast<DVComboBox2*>(object)) {
        combo->onSelect([say = noter("select")](const DVComboBoxSelectEvent2& event) {
            say({event.index(), fromU16(event.text()), event.cause()});
        });
        const auto edited = [=](const char* event) {
            return [say = noter(event)](const DVComboBoxEditEvent2& e) {
                say({fromU16(e.text()), e.cause()});
            };
        };
        combo->onEdit(edited("edit"));
        combo->onEditFinish(edited("editFinish"));
    } else if (auto* tabs = dynamic_cast<DVTabContainer2*>(object)) {
        tabs->onCurrentChanged([say = noter("currentChanged")](const DVTabContainerEvent2& event) {
            say({event.index()});
        });
        tabs->onCloseRequest([say = noter("closeRequest")](const DVTabContainerEvent2& event) {
            say({event.index()});
        });
    } else if (auto* dialog = dynamic_cast<DVDialog2*>(object)) {
        dialog->onKey([say = noter("key")](const DVKeyEvent2& event) {
            say({event.key(), static_cast<double>(event.modifiers())});
        });
        dialog->onResize([say = noter("resize")](const DVResizeEvent2& event) {
            say({event.oldSize().width, event.oldSize().height, event.newSize().width,
                 event.newSize().height});
        });
        dialog->onCloseRequest([say = noter("destroyRequest")] { say({}); });
    }
}

void Stage::react(const std::string& name, const std::string& event, Reaction reaction) {
    m_reactions[{name, event}] = std::move(reaction);
}

void Stage::note(const std::string& name, const std::string& event, const QJsonArray& values) {
    QJsonArray noted{QString::fromStdString(name), QString::fromStdString(event)};
    for (const QJsonValue value : values) {
        noted.append(value);
    }
    m_events.append(noted);
    const auto reaction = m_reactions.find({name, event});
    if (reaction != m_reactions.end()) {
        reaction->second();
    }
}

void Stage::destroy(const std::string& name) {
    Actor& actor = m_actors.at(name);
    // Out of the actor first: listeners that run meanwhile find the object gone.
    const auto front = std::move(actor.front);
    if (front) {
        actor.emitters->destroy.emit();
    }
}

DVObject2* Stage::front(const std::string& name) const {
    return m_actors.at(name).front.get();
}

WebObject2* Stage::web(const std::string& name) const {
    return WebObjectService2::instance()->getObject(identifier(name));
}

std::uint32_t Stage::identifier(const std::string& name) const {
    return m_actors.at(name).identifier;
}

QJsonArray Stage::takeEvents() {
    return std::exchange(m_events, {});
}

}  // namespace DOVA::test
