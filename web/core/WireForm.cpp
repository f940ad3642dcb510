#include "WireForm.h"

#include <QJsonArray>
#include <algorithm>

#include "../seam/ElementIdentity.h"
#include "../seam/Elements.h"
#include "JsonText.h"
#include "ModuleEnd.h"
#include "PropertyNames.h"
#include "PropertyState.h"
#include "TextConversions.h"
#include "widgets/WebWidget2.h"
#include "windows/WebBoxLayout2.h"
#include "windows/WebDialog2.h"
#include "windows/WebGridLayout2.h"
#include "windows/WebGroupBox2.h"
#include "windows/WebPanel2.h"
#include "windows/WebTab2.h"
#include "windows/WebTabContainer2.h"

namespace DOVA {

namespace {

struct ToText {
    void operator()(std::monostate) const {}
    void operator()(bool value) const { text.flag(value); }
    void operator()(std::int32_t value) const { text.number(value); }
    void operator()(std::u16string_view value) const { text.string(value); }
    void operator()(const std::string& value) const { text.utf8(value); }
    void operator()(const QJsonValue& value) const { text.value(value); }
    void operator()(const WireForm::Texts* values) const {
        text.raw('[');
        for (const std::u16string& value : *values) {
            text.string(value);
            text.raw(',');
        }
        text.close(']');
    }

    JsonText& text;
};

struct ToJson {
    QJsonValue operator()(std::monostate) const { return QJsonValue::Undefined; }
    QJsonValue operator()(bool value) const { return value; }
    QJsonValue operator()(std::int32_t value) const { return value; }
    QJsonValue operator()(std::u16string_view value) const {
        return toQString(value.data(), value.size());
    }
    QJsonValue operator()(const std::string& value) const { return QString::fromStdString(value); }
    QJsonValue operator()(const QJsonValue& value) const { return value; }
    QJsonValue operator()(const WireForm::Texts* values) const {
        QJsonArray array;
        for (const std::u16string& value : *values) {
            array.append(toQString(value));
        }
        return array;
    }
};

bool storesItsDescription(const WebObject2& object) {
    static const std::type_info* const kinds[] = {
        &typeid(WebBoxLayout2), &typeid(WebGridLayout2), &typeid(WebPanel2),       &typeid(WebTab2),
        &typeid(WebGroupBox2),  &typeid(WebDialog2),     &typeid(WebTabContainer2)};
    return std::find(std::begin(kinds), std::end(kinds), &typeid(object)) != std::end(kinds);
}

}  // namespace

WireForm::WireForm(const std::type_info& type, Receive receive, std::initializer_list<Row> own)
    : m_type(type), m_receive(receive) {
    add({{keys::id, [](const WebObject2& object) { return Value(seam::idOf(object.element())); }},
         {keys::type,
          [](const WebObject2& object) { return Value(seam::typeNameOf(object.element())); }},
         row<seam::Tooltip>(keys::tooltip),
         row<seam::Enabled>(keys::enable),
         row<seam::Visible>(keys::visible),
         {keys::style, [](const WebObject2& object) {
              const QJsonValue style = object.WebObject2::getProperty(names::style);
              return style.isUndefined() ? Value() : Value(style);
          }}});
    add(own);
    const auto isBehind = [](const Member& member) { return member.key > keys::contents; };
    std::sort(m_members.begin(), m_members.end(),
              [](const Member& one, const Member& other) { return one.key < other.key; });
    m_behind = std::find_if(m_members.begin(), m_members.end(), isBehind) - m_members.begin();
}

void WireForm::add(std::initializer_list<Row> rows) {
    for (const Row& row : rows) {
        m_members.push_back({row.key, '"' + row.key.toStdString() + "\":", row.read});
    }
}

const WireForm& WireForm::ofWidgets() {
    static const struct {
        WireForm form{typeid(WebWidget2), nullptr, {}};
        EndsModule end;
    } shared;
    return shared.form;
}

const WireForm* WireForm::of(const WebObject2& object) {
    const WireForm* form = object.m_form;
    return form && seam::exists(object.element()) && typeid(object) == form->m_type ? form
                                                                                    : nullptr;
}

WireForm::Receive WireForm::receiverOf(const WebObject2& object) {
    const WireForm* form = object.m_form;
    return form && typeid(object) == form->m_type ? form->m_receive : nullptr;
}

const PropertyState* WireForm::stateOf(const WebObject2& object) {
    const bool isWritable = storesItsDescription(object) && object.stored().isWritable();
    return isWritable ? object.m_state.get() : nullptr;
}

bool WireForm::isOwn(const WebObject2& object) {
    return storesItsDescription(object) ||
           (object.m_form && typeid(object) == object.m_form->m_type);
}

QJsonObject WireForm::describe(const WebObject2& object) const {
    QJsonObject description;
    for (const Member& member : m_members) {
        description.insert(member.key, std::visit(ToJson(), member.read(object)));
    }
    return description;
}

void WireForm::writeBefore(const WebObject2& object, JsonText& text) const {
    write(object, 0, m_behind, text);
}

void WireForm::writeBehind(const WebObject2& object, JsonText& text) const {
    write(object, m_behind, m_members.size(), text);
}

void WireForm::write(const WebObject2& object, std::size_t from, std::size_t to,
                     JsonText& text) const {
    for (std::size_t i = from; i < to; ++i) {
        const Value value = m_members[i].read(object);
        if (value.index() != 0) {
            text.raw(m_members[i].json);
            std::visit(ToText{text}, value);
            text.raw(',');
        }
    }
}

}  // namespace DOVA
