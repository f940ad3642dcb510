#include "windows/WebAbstractWindow2.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "../core/BaseConnection.h"
#include "../core/DescriptionText.h"
#include "../core/ModuleEnd.h"
#include "../core/PropertyNames.h"
#include "../core/TextConversions.h"
#include "../core/WindowConnection.h"
#include "../seam/Host.h"
#include "../widgets/GeometryTexts.h"
#include "core/WebObjectService2.h"

namespace DOVA {

namespace {

std::u16string withSlashes(std::u16string path) {
    std::replace(path.begin(), path.end(), u'\\', u'/');
    return path;
}

// A client may report any number; one that no int holds becomes the nearest that an int does. The
// difference of two infinities, which only the program itself can have set, is no number.
int truncated(double value) {
    if (std::isnan(value)) {
        return 0;
    }
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(std::trunc(value), lowest, highest));
}

diagram::RectTemplate<int> difference(const QJsonObject& left, const QJsonObject& right) {
    const auto member = [&](const QString& key) {
        return truncated(left.value(key).toDouble(0.0) - right.value(key).toDouble(0.0));
    };
    return {member(received::x), member(received::y), member(received::width),
            member(received::height)};
}

// The channel of a window that the client had before is kept, with the message of it that may be
// under way.
std::uint64_t connect(std::uint32_t window, const ClientConnection& client,
                      WebObjectService2& service) {
    const std::string channel = WindowConnection::channelOf(window, client.channel());
    if (const auto number = service.renewConnection(window, channel)) {
        return number;
    }
    service.removeConnections(window);
    auto connection = std::make_unique<WindowConnection>(window, client.channel());
    connection->connect();
    return service.addConnection(window, std::move(connection));
}

void announceAgain(WebObject2& object) {
    if (auto* window = dynamic_cast<WebAbstractWindow2*>(&object)) {
        window->doShowAgain();
    }
}

}  // namespace

WebAbstractWindow2::WebAbstractWindow2(DVAbstractWindow2* front,
                                       DVAbstractWindow2Emitters* emitters)
    : WebContainer2(front, emitters) {
    static const struct {
        std::vector<ClientOwned> table{
            {names::geometry, ClientOwned::Kind::NumbersObject},
            {names::frameGeometry, ClientOwned::Kind::NumbersObject},
            {names::maximized, ClientOwned::Kind::Bool},
            {names::minimized, ClientOwned::Kind::Bool},
            {names::title, ClientOwned::Kind::Text},
        };
        EndsModule end;
    } clientOwned;
    declareClientOwned(clientOwned.table);
    bindShowing(emitters);
    bindGeometry(emitters);
    setProperty(names::version, words::descriptionVersion, false);
}

void WebAbstractWindow2::bindShowing(DVAbstractWindow2Emitters* emitters) {
    using Emitters = DVAbstractWindow2Emitters;
    bind(emitters, {binding<&Emitters::showNormal, &WebAbstractWindow2::doShowNormal>,
                    binding<&Emitters::showMinimized, &WebAbstractWindow2::doShowMinimized>,
                    binding<&Emitters::showMaximized, &WebAbstractWindow2::doShowMaximized>,
                    binding<&Emitters::isMinimized, &WebAbstractWindow2::doIsMinimized>,
                    binding<&Emitters::isMaximized, &WebAbstractWindow2::doIsMaximized>,
                    binding<&Emitters::setTitle, &WebAbstractWindow2::doSetTitle>,
                    binding<&Emitters::getTitle, &WebAbstractWindow2::doGetTitle>,
                    binding<&Emitters::showAgain, &WebAbstractWindow2::doShowAgain>,
                    binding<&Emitters::isAnnounced, &WebAbstractWindow2::doIsAnnounced>,
                    binding<&Emitters::isReached, &WebAbstractWindow2::doIsReached>});
}

void WebAbstractWindow2::bindGeometry(DVAbstractWindow2Emitters* emitters) {
    using Emitters = DVAbstractWindow2Emitters;
    bind(emitters, {binding<&Emitters::setFrameGeometry, &WebAbstractWindow2::doSetFrameGeometry>,
                    binding<&Emitters::getFrameGeometry, &WebAbstractWindow2::doGetFrameGeometry>,
                    binding<&Emitters::setGeometry, &WebAbstractWindow2::doSetGeometry>,
                    binding<&Emitters::getGeometry, &WebAbstractWindow2::doGetGeometry>,
                    binding<&Emitters::getFrameOffset, &WebAbstractWindow2::doGetFrameOffset>,
                    binding<&Emitters::setIconWithPath, &WebAbstractWindow2::doSetIconWithPath>,
                    binding<&Emitters::setIcon, &WebAbstractWindow2::doSetIcon>,
                    binding<&Emitters::setWindowState, &WebAbstractWindow2::doSetWindowState>,
                    binding<&Emitters::getWindowState, &WebAbstractWindow2::doGetWindowState>,
                    binding<&Emitters::move, &WebAbstractWindow2::doMove>,
                    binding<&Emitters::init, &WebAbstractWindow2::init>});
}

WebAbstractWindow2::~WebAbstractWindow2() {
    endBindings();
    sendWindowDestroyMessage();
    leaveClient();
}

void WebAbstractWindow2::sendWindowDestroyMessage() {
    sendProperty(names::command, words::close);
}

// In this order, so that nothing is sent any more to a window that the client has closed, and the
// client is not asked any more to close one that is gone.
void WebAbstractWindow2::leaveClient() {
    WebObjectService2* service = getService();
    if (!service) {
        return;
    }
    service->dropServedSubtree(identifier());
    if (ClientConnection* client = BaseConnection::currentClient()) {
        client->forgetDialog(identifier());
    }
    service->removeConnections(identifier());
}

bool WebAbstractWindow2::isWindow() const {
    return true;
}

std::string WebAbstractWindow2::getTypeName() const {
    return kinds::abstractWindow;
}

void WebAbstractWindow2::onDestroyRequested() {
    emitToFront<DVWidgetEvent2>(&DVAbstractWindow2::destroyRequestEmitter, seam::s_synchronous,
                                false);
}

void WebAbstractWindow2::showFirstTime() {
    m_shown = true;
    ClientConnection* client = BaseConnection::currentClient();
    WebObjectService2* service = getService();
    if (!client) {
        BaseConnection::announceToNextClient(identifier(), announceAgain);
        return;
    }
    if (!service) {
        return;
    }
    service->serveSubtree(identifier(), connect(identifier(), *client, *service));
    client->sendText(descriptionText(*service, identifier()), identifier());
}

void WebAbstractWindow2::doShowAgain() {
    if (m_shown) {
        showFirstTime();
    }
}

bool WebAbstractWindow2::doIsAnnounced() const {
    const ClientConnection* client = BaseConnection::currentClient();
    return client && client->hasDialog(identifier());
}

bool WebAbstractWindow2::doIsReached() const {
    const ClientConnection* client = BaseConnection::currentClient();
    const WebObjectService2* service = getService();
    return client && service &&
           service->isConnected(identifier(),
                                WindowConnection::channelOf(identifier(), client->channel()));
}

void WebAbstractWindow2::doShow() {
    if (!m_shown) {
        showFirstTime();
    }
}

void WebAbstractWindow2::showInFront(const std::u16string& trigger) {
    sendProperty(trigger, true);
    sendProperty(names::activateWindow, true);
    sendProperty(names::raise, true);
    doShow();
}

void WebAbstractWindow2::doShowNormal() {
    showInFront(names::showNormal);
}

void WebAbstractWindow2::doShowMaximized() {
    showInFront(names::showMaximized);
}

void WebAbstractWindow2::doShowMinimized() {
    sendProperty(names::showMinimized, true);
}

bool WebAbstractWindow2::doIsMinimized() const {
    return getProperty(names::minimized).toBool(false);
}

bool WebAbstractWindow2::doIsMaximized() const {
    return getProperty(names::maximized).toBool(false);
}

void WebAbstractWindow2::doSetTitle(const std::u16string& title) {
    sendProperty(names::title, title);
}

std::u16string WebAbstractWindow2::doGetTitle() const {
    return toU16(getProperty(names::title).toString());
}

void WebAbstractWindow2::doSetFrameGeometry(diagram::RectTemplate<int> geometry, bool) {
    sendProperty(names::frameGeometry, rectangleText(geometry));
}

void WebAbstractWindow2::doSetGeometry(diagram::RectTemplate<int> geometry) {
    sendProperty(names::geometry, rectangleText(geometry));
}

void WebAbstractWindow2::doMove(diagram::PointTemplate<int> position) {
    sendProperty(names::move, windowPointText(position));
}

QJsonObject WebAbstractWindow2::rectangleProperty(const std::u16string& name) const {
    return getProperty(name).toObject();
}

diagram::RectTemplate<int> WebAbstractWindow2::doGetFrameGeometry() const {
    return difference(rectangleProperty(names::frameGeometry), {});
}

diagram::RectTemplate<int> WebAbstractWindow2::doGetGeometry() const {
    return difference(rectangleProperty(names::geometry), {});
}

diagram::RectTemplate<int> WebAbstractWindow2::doGetFrameOffset() const {
    return difference(rectangleProperty(names::geometry), rectangleProperty(names::frameGeometry));
}

void WebAbstractWindow2::doSetIconWithPath(const std::u16string& path) {
    const auto root = seam::applicationRoot();
    if (!root) {
        return;
    }
    const std::u16string folder = withSlashes(utf8ToU16(*root));
    m_iconPath = withSlashes(path);
    if (m_iconPath.find(folder) == std::u16string::npos) {
        m_iconPath = folder + u"/" + m_iconPath;
    }
    sendProperty(names::windowicon, m_iconPath);
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the signature that the toolkit calls.
void WebAbstractWindow2::doSetIcon(Icon) {}

void WebAbstractWindow2::doSetWindowState(DVFlags<WindowState>) {}

DVFlags<WindowState> WebAbstractWindow2::doGetWindowState() const {
    return {};
}

void WebAbstractWindow2::init() {}

}  // namespace DOVA
