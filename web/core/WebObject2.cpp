#include "core/WebObject2.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>
#include <boost/core/demangle.hpp>
#include <typeinfo>
#include <utility>

#include "../seam/ElementIdentity.h"
#include "ModuleEnd.h"
#include "PropertyMessage.h"
#include "PropertyNames.h"
#include "PropertyState.h"
#include "TextConversions.h"
#include "core/WebObjectService2.h"

namespace DOVA {

namespace {

constexpr int s_deepestDestruction = 500;

WebObject2* s_first = nullptr;

QJsonArray toArray(const std::vector<std::u16string>& values) {
    QJsonArray array;
    for (const std::u16string& value : values) {
        array.append(toQString(value));
    }
    return array;
}

bool isNumbersObject(const QJsonValue& value) {
    const QJsonObject object = value.toObject();
    bool numbers = value.isObject();
    for (const QJsonValue member : object) {
        numbers = numbers && member.isDouble();
    }
    return numbers;
}

}  // namespace

void destroyWebObjects() noexcept {
    while (s_first) {
        s_first->doDestory();
    }
}

WebObject2::WebObject2(DVObject2* front, DVObject2Emitters* emitters)
    : m_front(front),
      m_identifier(seam::identifierOf(*front)),
      m_service(WebObjectService2::instance()),
      m_identifierText(QString::number(m_identifier)) {
    using Emitters = DVObject2Emitters;
    bind(emitters, {binding<&Emitters::setParent, &WebObject2::doSetParent>,
                    binding<&Emitters::getParent, &WebObject2::doGetParent>,
                    binding<&Emitters::getChildren, &WebObject2::doGetChildren>,
                    binding<&Emitters::destroy, &WebObject2::doDestory>});
    joinLiving();
    joinService();
}

void WebObject2::joinLiving() {
    m_next = std::exchange(s_first, this);
    if (m_next) {
        m_next->m_previous = this;
    }
}

void WebObject2::leaveLiving() {
    (m_previous ? m_previous->m_next : s_first) = m_next;
    if (m_next) {
        m_next->m_previous = m_previous;
    }
}

// An object whose identifier is taken is none of the service's: it must not speak for the first,
// nor take its children and its window along when it goes.
void WebObject2::joinService() {
    if (!m_service) {
        return;
    }
    m_service->addObject(this);
    if (m_service->getObject(m_identifier) != this) {
        m_service = nullptr;
    }
}

WebObject2::~WebObject2() {
    leaveLiving();
    endBindings();
    if (m_service) {
        destroyChildren();
    }
    if (m_service) {
        m_service->removeObject(this);
    }
}

// Each level of a tree is a call within a call; far down, what is left goes from the leaves up.
void WebObject2::destroyChildren() {
    static int depth = 0;
    std::vector<Identifier> children = m_service->getChildIds(m_identifier);
    if (depth == s_deepestDestruction) {
        for (std::size_t i = 0; i < children.size(); ++i) {
            const std::vector<Identifier> below = m_service->getChildIds(children[i]);
            children.insert(children.end(), below.begin(), below.end());
        }
        std::reverse(children.begin(), children.end());
    }
    const int outer = std::exchange(depth, std::min(depth + 1, s_deepestDestruction));
    for (const Identifier child : children) {
        WebObject2* object = m_service ? m_service->getObject(child) : nullptr;
        if (object) {
            object->doDestory();
        }
    }
    depth = outer;
}

void WebObject2::doDestory() {
    delete this;
}

DVObject2* WebObject2::getHandle() const {
    return m_front;
}

bool WebObject2::isDVObjectValid() const {
    return DVObject::isObjectValid(m_front, m_identifier);
}

void WebObject2::setProperty(const std::u16string& name, const QJsonValue& value, bool notify) {
    if (stored().set(name, value) && notify) {
        sendMessage(name, value);
    }
}

void WebObject2::updateProperty(const QString& name, const QJsonValue& value) {
    sendMessage(toU16View(name), value);
}

void WebObject2::updateText(const std::u16string& name, const std::u16string& text) {
    sendMessage(name, std::u16string_view(text));
}

template <class Value>
void WebObject2::sendMessage(std::u16string_view name, const Value& value) {
    if (!m_service) {
        return;
    }
    const auto numbers = m_service->getConnectionNumbers(m_identifier);
    if (!numbers.empty()) {
        m_service->sendText(numbers, propertyMessage(m_identifier, getTypeName(), name, value));
    }
}

void WebObject2::setProperty(const std::u16string& name, bool value, bool notify) {
    setProperty(name, QJsonValue(value), notify);
}

void WebObject2::setProperty(const std::u16string& name, int value, bool notify) {
    setProperty(name, QJsonValue(value), notify);
}

void WebObject2::setProperty(const std::u16string& name, double value, bool notify) {
    setProperty(name, QJsonValue(value), notify);
}

void WebObject2::setProperty(const std::u16string& name, const char16_t* value, bool notify) {
    WebObject2::setProperty(name, std::u16string(value ? value : u""), notify);
}

void WebObject2::setProperty(const std::u16string& name, const std::u16string& value, bool notify) {
    if (stored().set(name, std::u16string_view(value)) && notify) {
        sendMessage(name, std::u16string_view(value));
    }
}

void WebObject2::setProperty(const std::u16string& name, int* values, int count, bool) {
    QJsonArray array;
    for (int i = 0; values && i < count; ++i) {
        array.append(values[i]);
    }
    stored().set(name, array);
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the signature that the toolkit calls.
void WebObject2::setProperty(const std::u16string& name, std::vector<std::u16string> values, bool) {
    stored().set(name, toArray(values));
}

// The array leaves the state while it is edited: with a second handle on it, each edit would copy
// the whole of it.
QJsonArray WebObject2::takeArray(const std::u16string& name) {
    return stored().take(name).toArray();
}

void WebObject2::insertToArrayProperty(const std::u16string& name, int index,
                                       const std::u16string& value, bool) {
    QJsonArray array = takeArray(name);
    const bool inside = index >= 0 && index < array.size();
    array.insert(inside ? index : array.size(), toQString(value));
    stored().set(name, array);
}

void WebObject2::addToArrayProperty(const std::u16string& name, const std::u16string& value, bool) {
    QJsonArray array = takeArray(name);
    array.append(toQString(value));
    stored().set(name, array);
}

void WebObject2::removeFromArrayProperty(const std::u16string& name, int index, bool) {
    QJsonArray array = takeArray(name);
    if (index >= 0 && index < array.size()) {
        array.removeAt(index);
    }
    stored().set(name, array);
}

QJsonValue WebObject2::getProperty(const std::u16string& name) const {
    const bool isStored = m_state || name == toU16View(keys::id);
    return isStored ? stored().value(name) : QJsonValue(QJsonValue::Undefined);
}

std::u16string WebObject2::getFromArrayProperty(const std::u16string& name, int index) const {
    return toU16(getProperty(name).toArray().at(index).toString());
}

int WebObject2::getArrayPropertySize(const std::u16string& name) const {
    return getProperty(name).toArray().size();
}

int WebObject2::getArrayPropertyIndex(const std::u16string& name, unsigned int value) const {
    const QJsonArray array = getProperty(name).toArray();
    const QString text = QString::number(value);
    for (int i = 0; i < array.size(); ++i) {
        const QJsonValue entry = array.at(i);
        if (entry == QJsonValue(static_cast<double>(value)) || entry == QJsonValue(text)) {
            return i;
        }
    }
    return -1;
}

void WebObject2::addAttributeToProperty(const std::u16string& name, const std::u16string& attribute,
                                        const std::u16string& value, bool) {
    QJsonObject object = stored().take(name).toObject();
    object.insert(toView(attribute), toQString(value));
    setProperty(name, QJsonValue(object), true);
}

void WebObject2::forgetProperty(const std::u16string& name) {
    stored().forget(name);
}

void WebObject2::storeClientOwned(const QJsonObject& message) {
    if (!m_clientOwned) {
        return;
    }
    for (const ClientOwned& property : *m_clientOwned) {
        const QJsonValue value = message.value(toView(property.name));
        const bool fits = property.kind == ClientOwned::Kind::Bool   ? value.isBool()
                          : property.kind == ClientOwned::Kind::Text ? value.isString()
                                                                     : isNumbersObject(value);
        if (fits) {
            stored().set(property.name, value);
        }
    }
}

void WebObject2::doSetParent(DVObject* parent) {
    if (!m_service) {
        return;
    }
    if (!parent) {
        m_service->setParent(m_identifier, 0);
    } else if (DVObject::isObjectValid(parent, seam::identifierOf(*parent))) {
        m_service->setParent(m_identifier, seam::identifierOf(*parent));
    }
}

DVObject* WebObject2::doGetParent() {
    if (!m_service) {
        return nullptr;
    }
    WebObject2* parent = this;
    do {
        parent = m_service->getObject(m_service->getParentId(parent->identifier()));
    } while (parent && parent->isLayout());
    return parent ? parent->getHandle() : nullptr;
}

std::vector<DVObject*> WebObject2::doGetChildren(bool recursive) {
    std::vector<DVObject*> children;
    std::vector<Identifier> pending;
    const auto prepend = [&](const std::vector<Identifier>& ids) {
        pending.insert(pending.end(), ids.rbegin(), ids.rend());
    };
    if (m_service) {
        prepend(m_service->getChildIds(m_identifier));
    }
    while (!pending.empty()) {
        const WebObject2* child = m_service->getObject(pending.back());
        pending.pop_back();
        if (!child) {
            continue;
        }
        children.push_back(child->getHandle());
        if (recursive) {
            prepend(m_service->getChildIds(child->identifier()));
        }
    }
    return children;
}

bool WebObject2::isWindow() const {
    return false;
}

bool WebObject2::isLayout() const {
    return false;
}

QJsonObject WebObject2::getJSonObject() const {
    return state();
}

// Most widgets store nothing that their element does not have.
PropertyState& WebObject2::stored() const {
    if (!m_state) {
        m_state = std::make_unique<PropertyState>();
        m_state->set(toU16View(keys::id), toU16View(m_identifierText));
    }
    return *m_state;
}

const QJsonObject& WebObject2::state() const {
    return stored().object();
}

void WebObject2::onDestroyRequested() {}

std::string WebObject2::getTypeName() const {
    if (seam::exists(m_element)) {
        return seam::typeNameOf(m_element);
    }
    const std::string name = boost::core::demangle(typeid(*this).name());
    const std::size_t scope = name.rfind(':');
    return scope == std::string::npos ? name : name.substr(scope + 1);
}

void WebObject2::setElement(tdom::Base element) {
    m_element = std::move(element);
    if (seam::exists(m_element)) {
        seam::setTag(m_element, toU16(m_identifierText));
    }
}

}  // namespace DOVA
