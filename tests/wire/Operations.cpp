#include "Operations.h"

#include <optional>
#include <stdexcept>
#include <tuple>

#include "core/KorvidOnlineFlag.h"
#include "core/WebObjectService2.h"
#include "widgets/WebButton2.h"
#include "widgets/WebCheckBox2.h"
#include "widgets/WebComboBox2.h"
#include "widgets/WebEdit2.h"
#include "widgets/WebText2.h"
#include "windows/WebDialog2.h"
#include "windows/WebGroupBox2.h"
#include "windows/WebLayout2.h"
#include "windows/WebPanel2.h"
#include "windows/WebTab2.h"
#include "windows/WebTabContainer2.h"

namespace DOVA::test {

namespace {

/// An argument of a call as the rows write it; what is left out is nought, empty or none.
struct Argument {
    const Stage& stage;
    QJsonValue value;

    int number(int index) const { return value[index].toInt(); }

    void read(bool& flag) const { flag = value.toBool(); }
    void read(int& number) const { number = value.toInt(); }
    void read(std::string& text) const { text = value.toString().toStdString(); }
    void read(std::u16string& text) const {
        const QString utf16 = value.toString();
        text.assign(reinterpret_cast<const char16_t*>(utf16.utf16()),
                    static_cast<std::size_t>(utf16.size()));
    }
    void read(diagram::PointTemplate<int>& point) const { point = {number(0), number(1)}; }
    void read(diagram::TSize<int>& size) const { size = {number(0), number(1)}; }
    void read(diagram::RectTemplate<int>& place) const {
        place = {number(0), number(1), number(2), number(3)};
    }
    void read(std::vector<std::u16string>& texts) const {
        const QJsonArray written = value.toArray();
        for (const QJsonValue text : written) {
            Argument{stage, text}.read(texts.emplace_back());
        }
    }
    void read(Position& side) const { side = static_cast<Position>(value.toInt()); }
    void read(ColorRole& role) const { role = static_cast<ColorRole>(value.toInt()); }
    void read(Color& color) const {
        std::uint32_t rgba = 0;
        for (int channel = 0; channel < 4; ++channel) {
            rgba = rgba << 8 | static_cast<std::uint32_t>(number(channel));
        }
        color = Color(rgba);
    }
    void read(Icon& icon) const { icon.insertImage(value.toString().toStdString()); }
    void read(Alignment& alignment) const { alignment = Alignment::None; }
    template <class Front>
    void read(Front*& object) const {
        object = value.isString()
                     ? dynamic_cast<Front*>(stage.front(value.toString().toStdString()))
                     : nullptr;
    }
    void read(TextMessage& texts) const {
        const QJsonObject members = value.toObject();
        for (const QString& name : members.keys()) {
            Argument{stage, members[name]}.read(texts[name.toStdString()]);
        }
    }
};

template <class Value>
Value read(const Stage& stage, const QJsonValue& value) {
    Value read{};
    Argument{stage, value}.read(read);
    return read;
}

/// False for an object whose class does not have the operation, though another of that name.
using Operation = std::function<bool(WebObject2*, const Stage&, const QJsonArray& call)>;

template <class Web, class Result, class... Parameters>
Operation call(Result (Web::*method)(Parameters...)) {
    return [method](WebObject2* object, const Stage& stage, const QJsonArray& call) {
        auto* web = dynamic_cast<Web*>(object);
        if (web) {
            int index = 2;
            [[maybe_unused]] const auto next = [&] { return call.at(index++); };
            std::tuple<Web*, std::decay_t<Parameters>...> arguments{
                web, read<std::decay_t<Parameters>>(stage, next())...};
            std::apply(method, arguments);
        }
        return web != nullptr;
    };
}

template <class Web>
Operation call(void (Web::*method)(int*, int)) {
    return [method](WebObject2* object, const Stage&, const QJsonArray& call) {
        auto* web = dynamic_cast<Web*>(object);
        std::vector<int> numbers;
        const QJsonArray written = call.at(2).toArray();
        for (const QJsonValue number : written) {
            numbers.push_back(number.toInt());
        }
        if (web) {
            (web->*method)(numbers.data(), static_cast<int>(numbers.size()));
        }
        return web != nullptr;
    };
}

const std::multimap<std::string, Operation> s_operations{
    {"show", call(&WebWidget2::doShow)},
    {"hide", call(&WebWidget2::doHide)},
    {"raise", call(&WebWidget2::doRaise)},
    {"refresh", call(&WebWidget2::doRefresh)},
    {"update", call(&WebWidget2::doUpdate)},
    {"adjustSize", call(&WebWidget2::doAdjustSize)},
    {"setFocus", call(&WebWidget2::doSetFocus)},
    {"setVisible", call(&WebWidget2::doSetVisible)},
    {"setEnabled", call(&WebWidget2::doSetEnabled)},
    {"setUpdatesEnabled", call(&WebWidget2::doSetUpdatesEnabled)},
    {"setToolTip", call(&WebWidget2::doSetToolTipU)},
    {"setObjectName", call(&WebWidget2::doSetObjectName)},
    {"setColor", call(&WebWidget2::doSetColor)},
    {"setPosition", call(&WebWidget2::doSetPosition)},
    {"moveTo", call(&WebWidget2::doMoveTo)},
    {"resize", call(&WebWidget2::doResize)},
    {"setMinimumSize", call(&WebWidget2::doSetMinimumSize)},
    {"setMaximumSize", call(&WebWidget2::doSetMaximumSize)},
    {"setPreferredSize", call(&WebWidget2::doSetPreferredSize)},
    {"restoreGeometry", call(&WebWidget2::doRestoreGeometry)},
    {"setRowSpan", call(&WebWidget2::doSetRowSpan)},
    {"setColSpan", call(&WebWidget2::doSetColSpan)},
    {"sendTextMessage", call(&WebWidget2::doSendTextMessage)},
    {"setLabel", call(&WebAbstractButton2::doSetLabelU)},
    {"setCheckable", call(&WebAbstractButton2::doSetCheckable)},
    {"setChecked", call(&WebAbstractButton2::doSetChecked)},
    {"setExclusive", call(&WebAbstractButton2::doSetExclusive)},
    {"setIcon", call(&WebAbstractButton2::doSetIcon)},
    {"setDefault", call(&WebButton2::doSetDefault)},
    {"setText", call(&WebEdit2::doSetTextU)},
    {"setPlaceHolderText", call(&WebEdit2::doSetPlaceHolderText)},
    {"setText", call(&WebText2::doSetTextU)},
    {"setBuddy", call(&WebText2::doSetBuddy)},
    {"addWidget", call(&WebLayout2::doAddWidget)},
    {"removeWidget", call(&WebLayout2::doRemoveWidget)},
    {"invalidate", call(&WebLayout2::doInvalidate)},
    {"refresh", call(&WebLayout2::doRefresh)},
    {"setEnabled", call(&WebLayout2::doSetEnabled)},
    {"setSpacing", call(&WebLayout2::doSetSpacing)},
    {"setMargins", call(&WebLayout2::doSetMargins)},
    {"setButtonPanel", call(&WebPanel2::setButtonPanel)},
    {"setLayoutGrid", call(&WebContainer2::doSetLayoutGrid)},
    {"showNormal", call(&WebAbstractWindow2::doShowNormal)},
    {"showMinimized", call(&WebAbstractWindow2::doShowMinimized)},
    {"showMaximized", call(&WebAbstractWindow2::doShowMaximized)},
    {"showAgain", call(&WebAbstractWindow2::doShowAgain)},
    {"setTitle", call(&WebAbstractWindow2::doSetTitle)},
    {"setGeometry", call(&WebAbstractWindow2::doSetGeometry)},
    {"setFrameGeometry", call(&WebAbstractWindow2::doSetFrameGeometry)},
    {"move", call(&WebAbstractWindow2::doMove)},
    {"setIconWithPath", call(&WebAbstractWindow2::doSetIconWithPath)},
    {"setTransient", call(&WebDialog2::doSetTransient)},
    {"setModal", call(&WebDialog2::doSetModal)},
    {"setScrollable", call(&WebDialog2::doSetScrollable)},
    {"monitorResize", call(&WebDialog2::doMonitorResize)},
    {"setText", call(&WebComboBox2::doSetTextU)},
    {"setPlaceholderText", call(&WebComboBox2::doSetPlaceholderText)},
    {"setEditable", call(&WebComboBox2::doSetEditable)},
    {"setSelection", call(&WebComboBox2::doSetSelection)},
    {"addItems", call(&WebComboBox2::doAddItemsU)},
    {"insertItems", call(&WebComboBox2::doInsertItemsU)},
    {"removeItems", call(&WebComboBox2::doRemoveItems)},
    {"imEdit", call(&WebComboBox2::doimEdit)},
    {"imSelect", call(&WebComboBox2::doimSelect)},
    {"imSelectByString", call(&WebComboBox2::doimSelectByString)},
    {"addTab", call(&WebTabContainer2::doAddTab)},
    {"insertTab", call(&WebTabContainer2::doInsertTab)},
    {"removeTab", call(&WebTabContainer2::doRemoveTab)},
    {"setCurrentTab", call(&WebTabContainer2::doSetCurrentTab)},
    {"setCurrentTabWithSideEffects", call(&WebTabContainer2::doSetCurrentTabWithSideEffects)},
    {"setTabToolTip", call(&WebTabContainer2::doSetTabToolTip)},
    {"setTabMovable", call(&WebTabContainer2::doSetTabMovable)},
    {"moveTab", call(&WebTabContainer2::doMoveTab)},
    {"setTabPosition", call(&WebTabContainer2::doSetTabPosition)},
    {"setTabsClosable", call(&WebTabContainer2::doSetTabsClosable)},
    {"setDocumentMode", call(&WebTabContainer2::doSetDocumentMode)},
    {"setName", call(&WebTab2::doSetName)},
    {"setTabVisible", call(&WebTab2::doSetTabVisible)},
    {"setTabEnabled", call(&WebTab2::doSetTabEnabled)},
    {"setTitle", call(&WebGroupBox2::doSetTitleU)},
    {"setFlat", call(&WebGroupBox2::doSetFlat)},
};

template <class Plain>
QJsonValue written(Plain flagOrNumber) {
    return flagOrNumber;
}

QJsonValue written(const std::u16string& text) {
    // As it is: Qt would take a byte order mark off the front.
    return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<int>(text.size()));
}

QJsonValue written(diagram::RectTemplate<int> place) {
    return QJsonArray{place.x, place.y, place.width, place.height};
}

QJsonValue written(const std::vector<std::u16string>& texts) {
    QJsonArray array;
    for (const std::u16string& text : texts) {
        array.append(written(text));
    }
    return array;
}

/// No answer from an object whose class has no such getter, though another may have it.
using Question = std::function<std::optional<QJsonValue>(const WebObject2*)>;

template <class Web, class Answer, class... Given>
Question get(Answer (Web::*getter)(Given...) const) {
    return [getter](const WebObject2* object) -> std::optional<QJsonValue> {
        const auto* web = dynamic_cast<const Web*>(object);
        return web ? std::optional(written((web->*getter)(Given()...))) : std::nullopt;
    };
}

const std::multimap<std::string, Question> s_questions{
    {"isChecked", get(&WebAbstractButton2::doIsChecked)},
    {"getLabel", get(&WebAbstractButton2::doGetLabelU)},
    {"isEnabled", get(&WebWidget2::doIsEnabled)},
    {"getText", get(&WebEdit2::doGetTextU)},
    {"getText", get(&WebComboBox2::doGetTextU)},
    {"getItems", get(&WebComboBox2::doGetItemsU)},
    {"getSelection", get(&WebComboBox2::doGetSelection)},
    {"getTabCount", get(&WebTabContainer2::doGetTabCount)},
    {"getCurrentTab", get(&WebTabContainer2::doGetCurrentTab)},
    {"getTabsClosable", get(&WebTabContainer2::doGetTabsClosable)},
    {"getDocumentMode", get(&WebTabContainer2::doGetDocumentMode)},
    {"getTabMovable", get(&WebTabContainer2::doGetTabMovable)},
    {"getVisible", get(&WebTabContainer2::doGetVisible)},
    {"isTabVisible", get(&WebTab2::doIsTabVisible)},
    {"isModal", get(&WebDialog2::doIsModal)},
    {"isTransient", get(&WebDialog2::doIsTransient)},
    {"getTitle", get(&WebAbstractWindow2::doGetTitle)},
    {"isMaximized", get(&WebAbstractWindow2::doIsMaximized)},
    {"isMinimized", get(&WebAbstractWindow2::doIsMinimized)},
    {"getGeometry", get(&WebAbstractWindow2::doGetGeometry)},
    {"getFrameGeometry", get(&WebAbstractWindow2::doGetFrameGeometry)},
    {"getFrameOffset", get(&WebAbstractWindow2::doGetFrameOffset)},
};

}  // namespace

void perform(Stage& stage, const QJsonArray& call) {
    const std::string object = call.at(0).toString().toStdString();
    const std::string name = call.at(1).toString().toStdString();
    if (object == "program" && name == "online") {
        web::KorvidOnlineFlag::set(call.at(2).toBool());
        return;
    }
    if (name == "destroy") {
        stage.destroy(object);
        return;
    }
    const auto range = s_operations.equal_range(name);
    for (auto operation = range.first; operation != range.second; ++operation) {
        if (operation->second(stage.web(object), stage, call)) {
            return;
        }
    }
    throw std::logic_error("no operation " + name + " of " + object);
}

QJsonValue ask(const Stage& stage, const std::string& object, const std::string& question) {
    if (question == "exists") {
        return stage.web(object) != nullptr;
    }
    if (question == "ready") {
        return WebObjectService2::instance()->isReady(stage.identifier(object));
    }
    const auto range = s_questions.equal_range(question);
    for (auto entry = range.first; entry != range.second; ++entry) {
        if (const auto answer = entry->second(stage.web(object))) {
            return *answer;
        }
    }
    throw std::logic_error("no question " + question + " to " + object);
}

}  // namespace DOVA::test
