#include "core/WebObjectService2.h"

#include <QJsonArray>
#include <algorithm>
#include <utility>

#include "MessageService.h"
#include "ModuleEnd.h"
#include "ObjectConnection.h"
#include "PropertyNames.h"
#include "ReceivedMessage.h"
#include "TextConversions.h"
#include "WireForm.h"
#include "core/HandlerErrors.h"
#include "core/WebObject2.h"

namespace DOVA {

namespace {

// A plain pointer, to be asked for until the end: front objects of static lifetime make and destroy
// others while the process ends.
WebObjectService2* s_service = nullptr;

}  // namespace

WebObjectService2::WebObjectService2() = default;

WebObjectService2::~WebObjectService2() noexcept {
    for (const auto& entry : m_objects) {
        entry.second->m_service = nullptr;
    }
}

WebObjectService2* WebObjectService2::instance() {
    return s_service;
}

void WebObjectService2::install(std::unique_ptr<WebObjectService2> service) noexcept {
    // Made after the module's constants, so that it goes before them.
    static const EndsModule end;
    // The previous one is destroyed when it is no longer reached: whatever its end sets off finds
    // the new one, or none.
    delete std::exchange(s_service, service.release());
}

void WebObjectService2::addObject(WebObject2* object) {
    m_objects.emplace(object->identifier(), object);
}

WebObject2* WebObjectService2::getObject(Identifier id) const {
    const auto found = m_objects.find(id);
    return found == m_objects.end() ? nullptr : found->second;
}

void WebObjectService2::removeObject(WebObject2* object) {
    const Identifier id = object->identifier();
    if (getObject(id) != object) {
        return;
    }
    m_objects.erase(id);
    m_parents.get<ByChild>().erase(id);
    m_served.get<ByObject>().erase(id);
}

void WebObjectService2::setParent(Identifier child, Identifier parent) {
    if (getParentId(child) == parent || isBelow(parent, child)) {
        return;
    }
    auto& links = m_parents.get<ByChild>();
    links.erase(child);
    if (parent != 0) {
        links.insert({child, parent});
    }
}

// Nothing is below what has no children: so a tree that is built from its root, however deep, costs
// no walk up for each object.
bool WebObjectService2::isBelow(Identifier id, Identifier ancestor) const {
    const auto& children = m_parents.get<ByParent>();
    if (id != ancestor && children.find(ancestor) == children.end()) {
        return false;
    }
    while (id != 0 && id != ancestor) {
        id = getParentId(id);
    }
    return id != 0;
}

WebObjectService2::Identifier WebObjectService2::getParentId(Identifier id) const {
    const auto& links = m_parents.get<ByChild>();
    const auto found = links.find(id);
    return found == links.end() ? 0 : found->parent;
}

std::vector<WebObjectService2::Identifier> WebObjectService2::getChildIds(Identifier id) const {
    std::vector<Identifier> children;
    const auto range = m_parents.get<ByParent>().equal_range(id);
    for (auto link = range.first; link != range.second; ++link) {
        children.push_back(link->child);
    }
    return children;
}

template <class Visit>
void WebObjectService2::visitSubtree(Identifier id, Visit visit) const {
    std::vector<Identifier> pending{id};
    while (!pending.empty()) {
        const Identifier next = pending.back();
        pending.pop_back();
        visit(next);
        const auto range = m_parents.get<ByParent>().equal_range(next);
        for (auto link = range.first; link != range.second; ++link) {
            pending.push_back(link->child);
        }
    }
}

WebObjectService2::ConnectionNumber WebObjectService2::addConnection(
    Identifier window, std::unique_ptr<ObjectConnection> connection) {
    const ConnectionNumber number = connection->number();
    m_connections[number] = {window, std::move(connection)};
    return number;
}

WebObjectService2::ConnectionNumber WebObjectService2::renewConnection(Identifier window,
                                                                       const std::string& channel) {
    for (const auto& [number, owned] : m_connections) {
        if (owned.window == window && owned.connection->channel() == channel) {
            m_served.get<ByConnection>().erase(number);
            owned.connection->clearReady();
            return number;
        }
    }
    return 0;
}

bool WebObjectService2::isConnected(Identifier window, const std::string& channel) const {
    return std::any_of(m_connections.begin(), m_connections.end(), [&](const auto& each) {
        return each.second.window == window && each.second.connection->channel() == channel;
    });
}

void WebObjectService2::serveSubtree(Identifier id, ConnectionNumber connection) {
    if (!getObject(id)) {
        return;
    }
    visitSubtree(id, [&](Identifier below) {
        if (!serves(connection, below)) {
            m_served.insert({below, connection});
        }
    });
}

// A window below keeps the records of its own connection: it tells the client of its end itself.
void WebObjectService2::dropServedSubtree(Identifier id) {
    visitSubtree(id, [&](Identifier below) {
        const WebObject2* object = getObject(below);
        if (below == id || !object || !object->isWindow()) {
            m_served.get<ByObject>().erase(below);
        }
    });
}

void WebObjectService2::removeConnections(Identifier window) {
    for (auto entry = m_connections.begin(); entry != m_connections.end();) {
        if (entry->second.window == window) {
            m_served.get<ByConnection>().erase(entry->first);
            entry = m_connections.erase(entry);
        } else {
            ++entry;
        }
    }
}

bool WebObjectService2::serves(ConnectionNumber connection, Identifier id) const {
    const auto range = m_served.get<ByObject>().equal_range(id);
    return std::any_of(range.first, range.second,
                       [=](const ServedBy& entry) { return entry.connection == connection; });
}

bool WebObjectService2::isReady(Identifier id) const {
    const ConnectionNumbers numbers = getConnectionNumbers(id);
    return std::any_of(numbers.begin(), numbers.end(), [&](ConnectionNumber number) {
        const auto found = m_connections.find(number);
        return found != m_connections.end() && found->second.connection->isReady();
    });
}

// The answer is mostly found on the first step, so nothing is collected on the way.
bool WebObjectService2::servesTree(ConnectionNumber connection, Identifier id) const {
    while (id != 0 && !serves(connection, id)) {
        id = getParentId(id);
    }
    return id != 0;
}

WebObjectService2::ConnectionNumbers WebObjectService2::getConnectionNumbers(Identifier id) const {
    ConnectionNumbers numbers;
    if (!getObject(id)) {
        return numbers;
    }
    for (; id != 0; id = getParentId(id)) {
        const auto range = m_served.get<ByObject>().equal_range(id);
        for (auto entry = range.first; entry != range.second; ++entry) {
            numbers.insert(entry->connection);
        }
    }
    return numbers;
}

void WebObjectService2::send(Identifier id, const QJsonDocument& document) {
    const ConnectionNumbers numbers = getConnectionNumbers(id);
    if (!numbers.empty()) {
        sendText(numbers, toWireText(document));
    }
}

void WebObjectService2::sendText(const ConnectionNumbers& numbers, const std::string& text) {
    sendText(numbers, std::string(text));
}

// The last connection, mostly the only one, takes the text over.
void WebObjectService2::sendText(const ConnectionNumbers& numbers, std::string&& text) {
    ObjectConnection* last = nullptr;
    for (const ConnectionNumber number : numbers) {
        const auto found = m_connections.find(number);
        if (found == m_connections.end()) {
            continue;
        }
        if (last) {
            last->sendText(text);
        }
        last = found->second.connection.get();
    }
    if (last) {
        last->sendText(std::move(text));
    }
}

void WebObjectService2::dispatch(ConnectionNumber connection, const QJsonDocument& document) {
    if (document.isObject()) {
        handleElement(connection, document.object());
        return;
    }
    const std::weak_ptr<const bool> alive = m_alive;
    const QJsonArray elements = document.array();
    for (const QJsonValue element : elements) {
        if (!handleElement(connection, element.toObject()) || alive.expired()) {
            return;
        }
    }
}

/// As above, for an object that reads messages without Qt's JSON; false for any other.
bool WebObjectService2::dispatch(ConnectionNumber connection, const ReceivedMessage& message) {
    const Identifier id = message.identifier();
    WebObject2* object = getObject(id);
    const WireForm::Receive receive = object ? WireForm::receiverOf(*object) : nullptr;
    if (receive && servesTree(connection, id)) {
        callHandlers([&] { receive(*object, message); });
    }
    return receive;
}

bool WebObjectService2::handleElement(ConnectionNumber connection, const QJsonObject& element) {
    const Identifier id = parseIdentifier(element.value(keys::id));
    if (id == 0) {
        return false;
    }
    WebObject2* object = getObject(id);
    if (object && servesTree(connection, id)) {
        object->storeClientOwned(element);
        callHandlers([&] { object->handleJSONMessage(element); });
    }
    return true;
}

QJsonObject WebObjectService2::describe(Identifier id) const {
    bool isCut = false;
    return describe(id, isCut);
}

QJsonObject WebObjectService2::describe(Identifier id, bool& isCut) const {
    constexpr int deepest = 4000;
    return describe(id, deepest, isCut);
}

QJsonObject WebObjectService2::describe(Identifier id, int levels, bool& isCut) const {
    const WebObject2* object = getObject(id);
    if (!object) {
        return {};
    }
    QJsonObject description = object->getJSonObject();
    const auto range = m_parents.get<ByParent>().equal_range(id);
    if (range.first == range.second) {
        return description;
    }
    if (levels == 0) {
        isCut = true;
        return description;
    }
    QJsonArray contents;
    for (auto link = range.first; link != range.second; ++link) {
        const QJsonObject child = describe(link->child, levels - 1, isCut);
        if (!child.isEmpty()) {
            contents.append(child);
        }
    }
    if (!contents.isEmpty()) {
        description.insert(keys::contents, contents);
    }
    return description;
}

}  // namespace DOVA
