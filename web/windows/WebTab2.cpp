#include "windows/WebTab2.h"

#include "../core/BrokenInvariant.h"
#include "../core/PropertyNames.h"
#include "../core/TextConversions.h"
#include "core/WebObjectService2.h"
#include "windows/WebTabContainer2.h"

namespace DOVA {

WebTab2::WebTab2(DVTab2* front, DVTab2Emitters* emitters, DVObject*)
    : WebContainer2(front, emitters) {
    setProperty(names::type, utf8ToU16(kinds::tab), false);
    doLower();
    using Emitters = DVTab2Emitters;
    bind(emitters, {binding<&Emitters::setName, &WebTab2::doSetName>,
                    binding<&Emitters::getName, &WebTab2::doGetName>,
                    binding<&Emitters::setTabVisible, &WebTab2::doSetTabVisible>,
                    binding<&Emitters::isTabVisible, &WebTab2::doIsTabVisible>,
                    binding<&Emitters::setTabEnabled, &WebTab2::doSetTabEnabled>,
                    binding<&Emitters::isTabEnabled, &WebTab2::doIsTabEnabled>});
}

WebTab2::~WebTab2() {
    endBindings();
    disableEventBroadcasting();
}

/// The identifier of what doGetParent() answers, found without a look at the front object; 0
/// without a parent.
WebTab2::Identifier WebTab2::holder() const {
    const WebObjectService2* service = getService();
    if (!service) {
        return 0;
    }
    Identifier id = service->getParentId(identifier());
    const WebObject2* object = service->getObject(id);
    while (object && object->isLayout()) {
        id = service->getParentId(id);
        object = service->getObject(id);
    }
    return id;
}

WebTabContainer2* WebTab2::container(Identifier holder) const {
    WebObjectService2* service = getService();
    return service ? dynamic_cast<WebTabContainer2*>(service->getObject(holder)) : nullptr;
}

WebTabContainer2* WebTab2::requiredContainer() const {
    const Identifier id = holder();
    WebTabContainer2* found = container(id);
    if (id != 0 && !found) {
        stopOnBrokenInvariant(identifier(), "the parent of this page is no tab container here");
    }
    return found;
}

void WebTab2::doSetName(const std::u16string& name) {
    m_name = name;
    setProperty(names::name, name, false);
}

std::u16string WebTab2::doGetName() const {
    return m_name;
}

void WebTab2::doSetTabVisible(bool visible) {
    WebTabContainer2* tabs = requiredContainer();
    if (!tabs) {
        return;
    }
    if (tabs->doGetVisible() != visible) {
        tabs->doSetVisible(visible);
    }
    m_tabVisible = visible;
    setProperty(names::visible, visible, false);
}

bool WebTab2::doIsTabVisible() const {
    const WebTabContainer2* tabs = requiredContainer();
    return m_tabVisible && (!tabs || tabs->doGetVisible());
}

void WebTab2::doSetTabEnabled(bool enabled) {
    if (container(holder())) {
        m_tabEnabled = enabled;
        sendProperty(names::enabled, enabled);
    }
}

bool WebTab2::doIsTabEnabled() const {
    return m_tabEnabled;
}

void WebTab2::doSetColor(ColorRole role, Color color) {
    WebWidget2::doSetColor(role, color);
}

void WebTab2::handleJSONMessage(const QJsonObject&) {}

}  // namespace DOVA
