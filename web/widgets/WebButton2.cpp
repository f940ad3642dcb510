#include "widgets/WebButton2.h"

#include "../core/PropertyNames.h"
#include "../core/TakenOver.h"
#include "../core/TextConversions.h"
#include "../seam/Elements.h"
#include "CreateElement.h"

namespace DOVA {

WebButton2::WebButton2(DVButton2* front, DVButton2Emitters* emitters, DVObject*)
    : WebAbstractButton2(front, emitters) {
    setProperty(names::type, utf8ToU16(kinds::button), false);
    createElement<tdom::Button>();
    doLower();
    using Emitters = DVButton2Emitters;
    bind(emitters, {binding<&Emitters::setDefault, &WebButton2::doSetDefault>,
                    binding<&Emitters::isDefault, &WebButton2::doIsDefault>});
}

WebButton2::~WebButton2() {
    endBindings();
    disableEventBroadcasting();
}

void WebButton2::doSetDefault(bool isDefault) {
    seam::DefaultButton::write(element(), isDefault);
    updateProperty(keys::defaultbutton, isDefault);
}

bool WebButton2::doIsDefault() const {
    return seam::DefaultButton::read(element());
}

void WebButton2::handleJSONMessage(const QJsonObject& message) {
    const QString event = message.value(received::event).toString();
    if (event == events::onClick) {
        emitToFront<DVButtonClickEvent2>(&DVAbstractButton2::clickEmitter, seam::s_ordinary);
    } else if (event == events::onToggle) {
        // Nothing was taken over, but the client has switched what it shows.
        const TakenOver shown(identifier(), [this] { doSetChecked(doIsChecked()); });
        emitToFront<DVButtonToggleEvent2>(&DVAbstractButton2::toggleEmitter, seam::s_ordinary,
                                          message.value(received::value).toBool(false));
    }
}

QJsonObject WebButton2::getJSonObject() const {
    QJsonObject description = WebWidget2::getJSonObject();
    if (seam::exists(element())) {
        description.insert(keys::label, toQString(seam::Label::read(element())));
        description.insert(keys::icon, toQString(seam::IconFile::read(element())));
        description.insert(keys::defaultbutton, seam::DefaultButton::read(element()));
    }
    return description;
}

}  // namespace DOVA
