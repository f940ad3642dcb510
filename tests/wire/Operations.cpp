#include "Operations.h"

#include <stdexcept>

#include "core/KorvidOnlineFlag.h"
#include "core/WebObjectService2.h"
#include "widgets/WebButton2.h"
#include "widgets/WebCheckBox2.h"
#include "widgets/WebEdit2.h"
#include "widgets/WebText2.h"
#include "windows/WebDialog2.h"
#include "windows/WebLayout2.h"
#include "windows/WebPanel2.h"

namespace DOVA::test {

namespace {

std::u16string u16(const QString& text) {
    return {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<std::size_t>(text.size())};
}

/// The arguments of a call, after object and operation.
struct Arguments {
    Stage& stage;
    const QJsonArray& call;

    QJsonValue at(int index) const { return call.at(index + 2); }
    bool flag(int index = 0) const { return at(index).toBool(); }
    int number(int index = 0) const { return at(index).toInt(); }
    std::u16string text() const { return u16(at(0).toString()); }
    std::string utf8() const { return at(0).toString().toStdString(); }
    DVObject2* object() const { return stage.front(utf8()); }
    diagram::PointTemplate<int> point() const { return {at(0)[0].toInt(), at(0)[1].toInt()}; }
    diagram::TSize<int> size() const { return {at(0)[0].toInt(), at(0)[1].toInt()}; }
    diagram::RectTemplate<int> rectangle() const {
        return {at(0)[0].toInt(), at(0)[1].toInt(), at(0)[2].toInt(), at(0)[3].toInt()};
    }
    Color color(int index) const {
        const QJsonArray channels = at(index).toArray();
        std::uint32_t rgba = 0;
        for (const QJsonValue channel : channels) {
            rgba = rgba << 8 | static_cast<std::uint32_t>(channel.toInt());
        }
        return Color(rgba);
    }
    std::vector<int> numbers() const {
        std::vector<int> all;
        const QJsonArray array = at(0).toArray();
        for (const QJsonValue number : array) {
            all.push_back(number.toInt());
        }
        return all;
    }
    TextMessage map() const {
        TextMessage texts;
        const QJsonObject object = at(0).toObject();
        for (auto entry = object.begin(); entry != object.end(); ++entry) {
            texts[entry.key().toStdString()] = u16(entry.value().toString());
        }
        return texts;
    }
};

using Operation = std::function<bool(WebObject2*, const Arguments&)>;
using Operations = std::multimap<std::string, Operation>;

/// An entry for objects of class Web; false for others, whose class may have an operation of the
/// same name.
template <class Web, class Call>
Operations::value_type entry(const char* name, Call call) {
    return {name, [call](WebObject2* object, const Arguments& arguments) {
                auto* web = dynamic_cast<Web*>(object);
                if (web) {
                    call(*web, arguments);
                }
                return web != nullptr;
            }};
}

using W = WebWidget2;
using A = Arguments;

Operations widgetOperations() {
    return {
        entry<W>("show", [](W& w, const A&) { w.doShow(); }),
        entry<W>("hide", [](W& w, const A&) { w.doHide(); }),
        entry<W>("raise", [](W& w, const A&) { w.doRaise(); }),
        entry<W>("refresh", [](W& w, const A&) { w.doRefresh(); }),
        entry<W>("update", [](W& w, const A&) { w.doUpdate(); }),
        entry<W>("adjustSize", [](W& w, const A&) { w.doAdjustSize(); }),
        entry<W>("setFocus", [](W& w, const A&) { w.doSetFocus(); }),
        entry<W>("setVisible", [](W& w, const A& a) { w.doSetVisible(a.flag()); }),
        entry<W>("setEnabled", [](W& w, const A& a) { w.doSetEnabled(a.flag()); }),
        entry<W>("setUpdatesEnabled", [](W& w, const A& a) { w.doSetUpdatesEnabled(a.flag()); }),
        entry<W>("setToolTip", [](W& w, const A& a) { w.doSetToolTipU(a.text()); }),
        entry<W>("setObjectName", [](W& w, const A& a) { w.doSetObjectName(a.utf8()); }),
        entry<W>("setColor",
                 [](W& w, const A& a) {
                     w.doSetColor(static_cast<ColorRole>(a.number(0)), a.color(1));
                 }),
        entry<W>("setPosition", [](W& w, const A& a) { w.doSetPosition(a.rectangle()); }),
        entry<W>("moveTo", [](W& w, const A& a) { w.doMoveTo(a.point()); }),
        entry<W>("resize", [](W& w, const A& a) { w.doResize(a.size()); }),
        entry<W>("setMinimumSize", [](W& w, const A& a) { w.doSetMinimumSize(a.size()); }),
        entry<W>("setMaximumSize", [](W& w, const A& a) { w.doSetMaximumSize(a.size()); }),
        entry<W>("setPreferredSize", [](W& w, const A& a) { w.doSetPreferredSize(a.size()); }),
        entry<W>("restoreGeometry", [](W& w, const A& a) { w.doRestoreGeometry(a.utf8()); }),
        entry<W>("setRowSpan",
                 [](W& w, const A& a) {
                     auto spans = a.numbers();
                     w.doSetRowSpan(spans.data(), static_cast<int>(spans.size()));
                 }),
        entry<W>("setColSpan",
                 [](W& w, const A& a) {
                     auto spans = a.numbers();
                     w.doSetColSpan(spans.data(), static_cast<int>(spans.size()));
                 }),
        entry<W>("sendTextMessage", [](W& w, const A& a) { w.doSendTextMessage(a.map()); }),
    };
}

Operations kindOperations() {
    using Button = WebAbstractButton2;
    using Layout = WebLayout2;
    return {
        entry<Button>("setLabel", [](Button& b, const A& a) { b.doSetLabelU(a.text()); }),
        entry<Button>("setCheckable", [](Button& b, const A& a) { b.doSetCheckable(a.flag()); }),
        entry<Button>("setChecked", [](Button& b, const A& a) { b.doSetChecked(a.flag()); }),
        entry<Button>("setExclusive", [](Button& b, const A& a) { b.doSetExclusive(a.flag()); }),
        entry<Button>("setIcon",
                      [](Button& b, const A& a) {
                          Icon icon;
                          icon.insertImage(a.utf8());
                          b.doSetIcon(icon);
                      }),
        entry<WebButton2>("setDefault",
                          [](WebButton2& b, const A& a) { b.doSetDefault(a.flag()); }),
        entry<WebEdit2>("setText", [](WebEdit2& e, const A& a) { e.doSetTextU(a.text()); }),
        entry<WebEdit2>("setPlaceHolderText",
                        [](WebEdit2& e, const A& a) { e.doSetPlaceHolderText(a.text()); }),
        entry<WebText2>("setText", [](WebText2& t, const A& a) { t.doSetTextU(a.text()); }),
        entry<WebText2>("setBuddy", [](WebText2& t, const A& a) { t.doSetBuddy(a.object()); }),
        entry<Layout>("addWidget",
                      [](Layout& l, const A& a) { l.doAddWidget(a.object(), Alignment::None); }),
        entry<Layout>("removeWidget", [](Layout& l, const A& a) { l.doRemoveWidget(a.object()); }),
        entry<Layout>("invalidate", [](Layout& l, const A&) { l.doInvalidate(); }),
        entry<Layout>("refresh", [](Layout& l, const A&) { l.doRefresh(); }),
        entry<Layout>("setEnabled", [](Layout& l, const A& a) { l.doSetEnabled(a.flag()); }),
        entry<Layout>("setSpacing", [](Layout& l, const A& a) { l.doSetSpacing(a.number()); }),
        entry<Layout>("setMargins", [](Layout& l, const A& a) { l.doSetMargins(a.rectangle()); }),
        entry<WebPanel2>("setButtonPanel",
                         [](WebPanel2& p, const A& a) { p.setButtonPanel(a.flag()); }),
        entry<WebContainer2>("setLayoutGrid",
                             [](WebContainer2& c, const A& a) {
                                 auto grid = a.numbers();
                                 c.doSetLayoutGrid(grid.data(), static_cast<int>(grid.size()));
                             }),
    };
}

Operations windowOperations() {
    using Window = WebAbstractWindow2;
    using Dialog = WebDialog2;
    return {
        entry<Window>("showNormal", [](Window& w, const A&) { w.doShowNormal(); }),
        entry<Window>("showMinimized", [](Window& w, const A&) { w.doShowMinimized(); }),
        entry<Window>("showMaximized", [](Window& w, const A&) { w.doShowMaximized(); }),
        entry<Window>("setTitle", [](Window& w, const A& a) { w.doSetTitle(a.text()); }),
        entry<Window>("setGeometry", [](Window& w, const A& a) { w.doSetGeometry(a.rectangle()); }),
        entry<Window>(
            "setFrameGeometry",
            [](Window& w, const A& a) { w.doSetFrameGeometry(a.rectangle(), a.flag(1)); }),
        entry<Window>("move", [](Window& w, const A& a) { w.doMove(a.point()); }),
        entry<Window>("setIconWithPath",
                      [](Window& w, const A& a) { w.doSetIconWithPath(a.text()); }),
        entry<Dialog>("setTransient", [](Dialog& d, const A& a) { d.doSetTransient(a.flag()); }),
        entry<Dialog>("setModal", [](Dialog& d, const A& a) { d.doSetModal(a.flag()); }),
        entry<Dialog>("setScrollable", [](Dialog& d, const A& a) { d.doSetScrollable(a.flag()); }),
        entry<Dialog>("monitorResize", [](Dialog& d, const A& a) { d.doMonitorResize(a.flag()); }),
    };
}

const Operations& operations() {
    static const Operations all = [] {
        Operations joined = widgetOperations();
        joined.merge(kindOperations());
        joined.merge(windowOperations());
        return joined;
    }();
    return all;
}

QJsonValue text(const std::u16string& value) {
    return QString::fromUtf16(value.data(), static_cast<int>(value.size()));
}

QJsonValue rectangle(diagram::RectTemplate<int> value) {
    return QJsonArray{value.x, value.y, value.width, value.height};
}

template <class Web>
Web& as(const Stage& stage, const std::string& object) {
    return dynamic_cast<Web&>(*stage.web(object));
}

QJsonValue askWindow(const WebAbstractWindow2& window, const std::string& question) {
    if (question == "getTitle") {
        return text(window.doGetTitle());
    }
    if (question == "isMaximized") {
        return window.doIsMaximized();
    }
    if (question == "isMinimized") {
        return window.doIsMinimized();
    }
    return question == "getGeometry"        ? rectangle(window.doGetGeometry())
           : question == "getFrameGeometry" ? rectangle(window.doGetFrameGeometry())
           : question == "getFrameOffset"   ? rectangle(window.doGetFrameOffset())
                                            : QJsonValue(QJsonValue::Undefined);
}

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
    const auto range = operations().equal_range(name);
    const Arguments arguments{stage, call};
    for (auto operation = range.first; operation != range.second; ++operation) {
        if (operation->second(stage.web(object), arguments)) {
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
    if (question == "isChecked") {
        return as<WebAbstractButton2>(stage, object).doIsChecked();
    }
    if (question == "getLabel") {
        return text(as<WebAbstractButton2>(stage, object).doGetLabelU());
    }
    if (question == "isEnabled") {
        return as<WebWidget2>(stage, object).doIsEnabled();
    }
    if (question == "getText") {
        return text(as<WebEdit2>(stage, object).doGetTextU(false));
    }
    return askWindow(as<WebAbstractWindow2>(stage, object), question);
}

}  // namespace DOVA::test
