#include "PropertyState.h"

#include <algorithm>
#include <utility>

#include "JsonText.h"
#include "PropertyNames.h"
#include "TextConversions.h"

namespace DOVA {

namespace {

constexpr auto s_isBefore = [](const auto& property, std::u16string_view name) {
    return property.name < name;
};

}  // namespace

const PropertyState::Property* PropertyState::find(std::u16string_view name) const {
    const auto at = std::lower_bound(m_properties.begin(), m_properties.end(), name, s_isBefore);
    return at != m_properties.end() && at->name == name && at->isSet ? &*at : nullptr;
}

PropertyState::Property& PropertyState::made(std::u16string_view name) {
    m_object.reset();
    auto at = std::lower_bound(m_properties.begin(), m_properties.end(), name, s_isBefore);
    if (at == m_properties.end() || at->name != name) {
        m_isWritable = m_isWritable && isAscii(name) && name != toU16View(keys::contents);
        at = m_properties.insert(at, {std::u16string(name), QJsonValue(), false});
    }
    return *at;
}

bool PropertyState::set(std::u16string_view name, std::u16string_view text) {
    Property& property = made(name);
    auto* stored = std::get_if<std::u16string>(&property.value);
    if (std::exchange(property.isSet, true) && stored && *stored == text) {
        return false;
    }
    if (stored) {
        stored->assign(text);  // into the same room
    } else {
        property.value.emplace<std::u16string>(text);
    }
    return true;
}

bool PropertyState::set(std::u16string_view name, const QJsonValue& value) {
    if (value.isString()) {
        return set(name, toU16View(value.toString()));
    }
    Property& property = made(name);
    auto* stored = std::get_if<QJsonValue>(&property.value);
    if (std::exchange(property.isSet, !value.isUndefined()) && stored && *stored == value) {
        return false;
    }
    property.value = value;
    return true;
}

void PropertyState::forget(std::u16string_view name) {
    made(name).isSet = false;
}

QJsonValue PropertyState::value(std::u16string_view name) const {
    const Property* property = find(name);
    return property ? toJson(*property) : QJsonValue(QJsonValue::Undefined);
}

QJsonValue PropertyState::take(std::u16string_view name) {
    Property& property = made(name);
    if (!std::exchange(property.isSet, false)) {
        return QJsonValue::Undefined;
    }
    QJsonValue taken = toJson(property);
    property.value = QJsonValue();
    return taken;
}

QJsonValue PropertyState::toJson(const Property& property) {
    const auto* text = std::get_if<std::u16string>(&property.value);
    return text ? QJsonValue(toQString(*text)) : std::get<QJsonValue>(property.value);
}

void PropertyState::write(const Property& property, JsonText& text) {
    if (!property.isSet) {
        return;
    }
    text.string(property.name);
    text.raw(':');
    if (const auto* stored = std::get_if<std::u16string>(&property.value)) {
        text.string(*stored);
    } else {
        text.value(std::get<QJsonValue>(property.value));
    }
    text.raw(',');
}

void PropertyState::writeBefore(JsonText& text) const {
    std::for_each(m_properties.begin(), behindContents(),
                  [&](const Property& property) { write(property, text); });
}

void PropertyState::writeBehind(JsonText& text) const {
    std::for_each(behindContents(), m_properties.end(),
                  [&](const Property& property) { write(property, text); });
}

PropertyState::Properties::const_iterator PropertyState::behindContents() const {
    return std::lower_bound(m_properties.begin(), m_properties.end(), toU16View(keys::contents),
                            s_isBefore);
}

const QJsonObject& PropertyState::object() const {
    if (!m_object) {
        m_object = std::make_unique<QJsonObject>();
        for (const Property& property : m_properties) {
            if (property.isSet) {
                m_object->insert(toView(property.name), toJson(property));
            }
        }
    }
    return *m_object;
}

}  // namespace DOVA
