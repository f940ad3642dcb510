#include "windows/WebPanel2.h"

#include "../core/PropertyNames.h"
#include "../core/TextConversions.h"

namespace DOVA {

WebPanel2::WebPanel2(DVPanel2* front, DVPanel2Emitters* emitters, DVObject*)
    : WebContainer2(front, emitters) {
    setProperty(names::type, utf8ToU16(kinds::panel), false);
    doLower();
    using Emitters = DVPanel2Emitters;
    bind(emitters, {binding<&Emitters::updateSize, &WebPanel2::doUpdateSize>,
                    binding<&Emitters::setButtonPanel, &WebPanel2::setButtonPanel>});
}

WebPanel2::~WebPanel2() {
    endBindings();
    disableEventBroadcasting();
}

void WebPanel2::doUpdateSize() {}

void WebPanel2::doSetColor(ColorRole, Color) {}

void WebPanel2::setButtonPanel(bool buttonPanel) {
    m_buttonPanel = buttonPanel;
    setProperty(names::meta, words::standardButtonSet, false);
}

void WebPanel2::handleJSONMessage(const QJsonObject&) {}

std::string WebPanel2::getTypeName() const {
    return kinds::panel;
}

}  // namespace DOVA
