#include "windows/WebLayout2.h"

#include "../core/PropertyNames.h"
#include "core/WebObjectService2.h"

namespace DOVA {

WebLayout2::WebLayout2(DVLayout2* front, DVLayout2Emitters* emitters, DVObject*)
    : WebObject2(front, emitters) {
    using Emitters = DVLayout2Emitters;
    bind(emitters, {binding<&Emitters::addWidget, &WebLayout2::doAddWidget>,
                    binding<&Emitters::addSpacer, &WebLayout2::doAddSpacer>,
                    binding<&Emitters::invalidate, &WebLayout2::doInvalidate>,
                    binding<&Emitters::refresh, &WebLayout2::doRefresh>,
                    binding<&Emitters::removeWidget, &WebLayout2::doRemoveWidget>,
                    binding<&Emitters::setEnabled, &WebLayout2::doSetEnabled>,
                    binding<&Emitters::setMargins, &WebLayout2::doSetMargins>,
                    binding<&Emitters::setSpacing, &WebLayout2::doSetSpacing>,
                    binding<&Emitters::isEnabled, &WebLayout2::doIsEnabled>,
                    binding<&Emitters::getMargins, &WebLayout2::doGetMargins>,
                    binding<&Emitters::getSpacing, &WebLayout2::doGetSpacing>});
}

WebLayout2::~WebLayout2() {
    endBindings();
}

WebObject2* WebLayout2::webObjectOf(const DVObject* widget) const {
    return widget && getService() ? getService()->getObject(seam::identifierOf(*widget)) : nullptr;
}

void WebLayout2::doSetParent(DVObject* parent) {
    if (parent) {
        WebObject2::doSetParent(parent);
    }
}

bool WebLayout2::isLayout() const {
    return true;
}

void WebLayout2::handleJSONMessage(const QJsonObject&) {}

std::string WebLayout2::getTypeName() const {
    return kinds::layout;
}

void WebLayout2::doAddWidget(DVObject* widget, Alignment) {
    if (WebObject2* web = webObjectOf(widget)) {
        web->doSetParent(getHandle());
    }
}

void WebLayout2::doRemoveWidget(DVObject* widget) {
    if (WebObject2* web = webObjectOf(widget)) {
        web->doSetParent(nullptr);
    }
}

void WebLayout2::doInvalidate() {
    sendProperty(names::invalidate, true);
}

void WebLayout2::doRefresh() {
    sendProperty(names::refresh, true);
}

void WebLayout2::doSetEnabled(bool enabled) {
    m_enabled = enabled;
    sendProperty(names::enabled, enabled);
}

void WebLayout2::doSetSpacing(int spacing) {
    m_spacing = spacing;
    sendProperty(names::spacing, spacing);
}

bool WebLayout2::doIsEnabled() const {
    return m_enabled;
}

int WebLayout2::doGetSpacing() const {
    return m_spacing;
}

void WebLayout2::doAddSpacer(diagram::TSize<int>, int) {}

void WebLayout2::doSetMargins(diagram::RectTemplate<int>) {}

diagram::RectTemplate<int> WebLayout2::doGetMargins() const {
    return {};
}

}  // namespace DOVA
