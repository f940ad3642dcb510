#include "widgets/WebButton2.h"

#include "../core/PropertyNames.h"
#include "../core/TakenOver.h"
#include "../core/TextConversions.h"
#include "CreateElement.h"
#include "model/Button.h"

namespace DOVA {

WebButton2::WebButton2(DVButton2* front, DVButton2Emitters* emitters, DVObject*)
    : WebAbstractButton2(front, emitters) {
    setProperty(names::type, utf8ToU16(kinds::button), false);
    createElement<tdom::Button>();
    doLower();
    bind(emitters->setDefault, &WebButton2::doSetDefault);
    bind(emitters->isDefault, &WebButton2::doIsDefault);
}

WebButton2::~WebButton2() {
    disconnectAll();
    disableEventBroadcasting();
}

void WebButton2::doSetDefault(bool isDefault) {
    if (const auto button = tdom::as<tdom::Button>(element())) {
        button->setDefaultbutton(isDefault);
    }
    updateProperty(keys::defaultbutton, isDefault);
}

bool WebButton2::doIsDefault() const {
    const auto button = tdom::as<tdom::Button>(element());
    return button && button->isDefaultbutton();
}

void WebButton2::handleJSONMessage(const QJsonObject& message) {
    const QString event = message.value(received::event).toString();
    if (event == events::onClick) {
        emitToFront<DVButtonClickEvent2>(&DVAbstractButton2::clickEmitter,
                                         WIRO::SendMode::Ordinary);
    } else if (event == events::onToggle) {
        // Nothing was taken over, but the client has switched what it shows.
        const TakenOver shown(identifier(), [this] { doSetChecked(doIsChecked()); });
        emitToFront<DVButtonToggleEvent2>(&DVAbstractButton2::toggleEmitter,
                                          WIRO::SendMode::Ordinary,
                                          message.value(received::value).toBool(false));
    }
}

QJsonObject WebButton2::getJSonObject() const {
    QJsonObject description = WebWidget2::getJSonObject();
    if (const auto button = tdom::as<tdom::Button>(element())) {
        description.insert(keys::label, toQString(button->getLabel()));
        description.insert(keys::icon, toQString(button->getIcon()));
        description.insert(keys::defaultbutton, button->isDefaultbutton());
    }
    return description;
}

}  // namespace DOVA
