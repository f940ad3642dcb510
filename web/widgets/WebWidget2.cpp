#include "widgets/WebWidget2.h"

#include <QJsonDocument>

#include "../core/DescriptionText.h"
#include "../core/ModuleEnd.h"
#include "../core/PropertyNames.h"
#include "../core/TextConversions.h"
#include "../core/WireForm.h"
#include "../seam/ElementIdentity.h"
#include "../seam/Elements.h"
#include "../seam/Host.h"
#include "GeometryTexts.h"
#include "core/WebObjectService2.h"
#include "toolkit/DpiScale.h"

namespace DOVA {

namespace {

constexpr ColorRole s_background{0};
constexpr ColorRole s_foreground{1};

std::u16string entry(const seam::TextMessage& message, const QString& key) {
    const auto found = message.find(key.toStdString());
    return found == message.end() ? std::u16string() : found->second;
}

}  // namespace

WebWidget2::WebWidget2(DVWidget2* front, DVWidget2Emitters* emitters)
    : WebObject2(front, emitters) {
    bindTriggers(emitters);
    bindSetters(emitters);
    bindGetters(emitters);
}

void WebWidget2::bindTriggers(DVWidget2Emitters* emitters) {
    using Emitters = DVWidget2Emitters;
    bind(emitters, {binding<&Emitters::show, &WebWidget2::doShow>,
                    binding<&Emitters::hide, &WebWidget2::doHide>,
                    binding<&Emitters::raise, &WebWidget2::doRaise>,
                    binding<&Emitters::refresh, &WebWidget2::doRefresh>,
                    binding<&Emitters::setFocus, &WebWidget2::doSetFocus>,
                    binding<&Emitters::sendTextMessage, &WebWidget2::doSendTextMessage>});
}

void WebWidget2::bindSetters(DVWidget2Emitters* emitters) {
    using Emitters = DVWidget2Emitters;
    bind(emitters, {binding<&Emitters::setVisible, &WebWidget2::doSetVisible>,
                    binding<&Emitters::setEnabled, &WebWidget2::doSetEnabled>,
                    binding<&Emitters::setToolTipU, &WebWidget2::doSetToolTipU>,
                    binding<&Emitters::setColor, &WebWidget2::doSetColor>,
                    binding<&Emitters::setPosition, &WebWidget2::doSetPosition>,
                    binding<&Emitters::moveTo, &WebWidget2::doMoveTo>,
                    binding<&Emitters::setMinimumSize, &WebWidget2::doSetMinimumSize>,
                    binding<&Emitters::setMaximumSize, &WebWidget2::doSetMaximumSize>,
                    binding<&Emitters::setPreferredSize, &WebWidget2::doSetPreferredSize>,
                    binding<&Emitters::resize, &WebWidget2::doResize>,
                    binding<&Emitters::setObjectName, &WebWidget2::doSetObjectName>});
}

void WebWidget2::bindGetters(DVWidget2Emitters* emitters) {
    using Emitters = DVWidget2Emitters;
    bind(emitters, {binding<&Emitters::isVisible, &WebWidget2::doIsVisible>,
                    binding<&Emitters::isEnabled, &WebWidget2::doIsEnabled>,
                    binding<&Emitters::getToolTipU, &WebWidget2::doGetToolTipU>,
                    binding<&Emitters::getColor, &WebWidget2::doGetColor>,
                    binding<&Emitters::getPosition, &WebWidget2::doGetPosition>,
                    binding<&Emitters::getMinimumSize, &WebWidget2::doGetMinimumSize>,
                    binding<&Emitters::getMaximumSize, &WebWidget2::doGetMaximumSize>,
                    binding<&Emitters::getPreferredSize, &WebWidget2::doGetPreferredSize>,
                    binding<&Emitters::getObjectName, &WebWidget2::doGetObjectName>});
}

QJsonObject WebWidget2::getJSonObject() const {
    if (!seam::exists(element())) {
        return WebObject2::getJSonObject();
    }
    return WireForm::ofWidgets().describe(*this);
}

const WebWidget2::Settings& WebWidget2::settings() const {
    static const struct {
        Settings settings;
        EndsModule end;
    } none;
    return m_settings ? *m_settings : none.settings;
}

WebWidget2::Settings& WebWidget2::changedSettings() {
    if (!m_settings) {
        m_settings = std::make_unique<Settings>();
    }
    return *m_settings;
}

// Kinds with a model element keep these three there, the others as properties.

void WebWidget2::doSetVisible(bool visible) {
    m_visible = visible;
    if (seam::exists(element())) {
        seam::Visible::write(element(), visible);
        updateProperty(keys::visible, visible);
    } else {
        sendProperty(names::visible, visible);
    }
}

void WebWidget2::doSetEnabled(bool enabled) {
    m_enabled = enabled;
    if (seam::exists(element())) {
        seam::Enabled::write(element(), enabled);
        updateProperty(keys::enable, enabled);
    } else {
        sendProperty(names::enable, enabled);
    }
}

void WebWidget2::doSetToolTipU(const std::u16string& text) {
    changedSettings().tooltip = text;
    if (seam::exists(element())) {
        seam::Tooltip::write(element(), text);
        updateText(names::tooltip, text);
    } else {
        sendProperty(names::tooltip, text);
    }
}

void WebWidget2::doShow() {
    WebObjectService2* service = getService();
    if (!service) {
        return;
    }
    const auto numbers = service->getConnectionNumbers(identifier());
    if (numbers.empty()) {
        return;
    }
    const QString parent = QString::number(service->getParentId(identifier()));
    const QJsonObject more{{keys::msgType, toQString(words::refresh)}, {keys::parentId, parent}};
    bool isText = WireForm::isOwn(*this);
    QJsonObject description;
    if (!isText) {
        description = service->describe(identifier(), isText);
        description.insert(keys::msgType, more.value(keys::msgType));
        description.insert(keys::parentId, parent);
    }
    if (isText) {
        service->sendText(numbers, descriptionText(*service, identifier(), more));
    } else {
        sendTextMessage(description);
    }
}

void WebWidget2::doHide() {
    doSetVisible(false);
}

void WebWidget2::doRaise() {
    sendProperty(names::raise, true);
}

void WebWidget2::doRefresh() {
    sendProperty(names::refresh, true);
}

void WebWidget2::doUpdate() {
    sendProperty(names::update, true);
}

void WebWidget2::doAdjustSize() {
    sendProperty(names::adjustsize, true);
}

void WebWidget2::doSetFocus() {
    sendProperty(names::setFocus, true);
}

void WebWidget2::doSetUpdatesEnabled(bool enabled) {
    sendProperty(names::updateEnabled, enabled);
}

void WebWidget2::doSetObjectName(const std::string& name) {
    changedSettings().objectName = utf8ToU16(name);
    sendProperty(names::objectName, settings().objectName);
}

void WebWidget2::doSetColor(ColorRole role, Color color) {
    const auto [red, green, blue] = seam::channelsOf(color);
    const std::u16string css =
        u"rgb(" + decimal(red) + u"," + decimal(green) + u"," + decimal(blue) + u")";
    if (role == s_background) {
        addAttributeToProperty(names::style, names::backgroundColor, css, true);
    } else if (role == s_foreground) {
        addAttributeToProperty(names::style, names::color, css, true);
    }
}

void WebWidget2::doSetPosition(diagram::RectTemplate<int> position) {
    changedSettings().position = position;
    sendProperty(names::geometry, rectangleText(position));
}

void WebWidget2::doMoveTo(diagram::PointTemplate<int> point) {
    sendProperty(names::moveTo, pointText(point));
}

void WebWidget2::doResize(diagram::TSize<int> size) {
    sendProperty(names::resize, scaledSizeText(size));
}

void WebWidget2::doSetPreferredSize(diagram::TSize<int> size) {
    changedSettings().preferredSize = size;
    sendProperty(names::setPreferredSize, scaledSizeText(size));
}

void WebWidget2::sendScaled(const std::u16string& name, int value, int& stored) {
    if (value >= 0) {
        stored = scaled(value);
        sendProperty(name, decimal(stored));
    }
}

void WebWidget2::doSetMinimumSize(diagram::TSize<int> size) {
    diagram::TSize<int>& stored = changedSettings().minimumSize;
    sendScaled(names::setMinimumWidth, size.width, stored.width);
    sendScaled(names::setMinimumHeight, size.height, stored.height);
}

void WebWidget2::doSetMaximumSize(diagram::TSize<int> size) {
    diagram::TSize<int>& stored = changedSettings().maximumSize;
    sendScaled(names::setMaximumWidth, size.width, stored.width);
    sendScaled(names::setMaximumHeight, size.height, stored.height);
}

void WebWidget2::doRestoreGeometry(const std::string& geometry) {
    changedSettings().savedGeometry = geometry;
    sendProperty(names::saveGeometry, utf8ToU16(geometry));
}

void WebWidget2::doSetRowSpan(int* spans, int count) {
    setProperty(names::rowSpan, spans, count, true);
}

void WebWidget2::doSetColSpan(int* spans, int count) {
    setProperty(names::colSpan, spans, count, true);
}

void WebWidget2::sendTextMessage(const QJsonObject& message) {
    if (WebObjectService2* service = getService()) {
        service->send(identifier(), QJsonDocument(message));
    }
}

void WebWidget2::doSendTextMessage(const seam::TextMessage& message) {
    QJsonObject box;
    box.insert(keys::type, toQString(words::messageBox));
    for (const QString& key : {keys::level, keys::title, keys::body}) {
        box.insert(key, toQString(entry(message, key)));
    }
    if (message.count(keys::modal.toStdString()) > 0) {
        box.insert(keys::modal, toQString(entry(message, keys::modal)));
    }
    sendTextMessage(box);
}

bool WebWidget2::doIsVisible() const {
    return m_visible;
}

bool WebWidget2::doIsEnabled() const {
    return m_enabled;
}

std::u16string WebWidget2::doGetToolTipU() const {
    return settings().tooltip;
}

Color WebWidget2::doGetColor(ColorRole role) const {
    return role == s_background ? seam::opaqueWhite() : Color();
}

diagram::RectTemplate<int> WebWidget2::doGetPosition() const {
    return settings().position;
}

diagram::TSize<int> WebWidget2::doGetMinimumSize() const {
    return settings().minimumSize;
}

diagram::TSize<int> WebWidget2::doGetMaximumSize() const {
    return settings().maximumSize;
}

diagram::TSize<int> WebWidget2::doGetPreferredSize() const {
    return settings().preferredSize;
}

std::string WebWidget2::doGetObjectName() const {
    return u16ToUtf8(settings().objectName);
}

std::string WebWidget2::doSaveGeometry() const {
    return settings().savedGeometry;
}

}  // namespace DOVA
