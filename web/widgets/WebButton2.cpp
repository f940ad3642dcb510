#include "widgets/WebButton2.h"

#include "../core/ModuleEnd.h"
#include "../core/PropertyNames.h"
#include "../core/ReceivedMessage.h"
#include "../core/TakenOver.h"
#include "../core/TextConversions.h"
#include "../core/WireForm.h"
#include "../seam/Elements.h"
#include "CreateElement.h"

namespace DOVA {

WebButton2::WebButton2(DVButton2* front, DVButton2Emitters* emitters, DVObject*)
    : WebAbstractButton2(front, emitters) {
    setProperty(names::type, utf8ToU16(kinds::button), false);
    createElement<tdom::Button>();
    declareForm(form());
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
    receive(ReceivedMessage(message));
}

void WebButton2::receive(const ReceivedMessage& message) {
    if (message.isEvent(events::onClick)) {
        emitToFront<DVButtonClickEvent2>(&DVAbstractButton2::clickEmitter, seam::s_ordinary);
    } else if (message.isEvent(events::onToggle)) {
        // Nothing was taken over, but the client has switched what it shows.
        const TakenOver shown(identifier(), [this] { doSetChecked(doIsChecked()); });
        emitToFront<DVButtonToggleEvent2>(&DVAbstractButton2::toggleEmitter, seam::s_ordinary,
                                          message.flag(received::value));
    }
}

const WireForm& WebButton2::form() {
    static const struct {
        WireForm form{
            typeid(WebButton2),
            [](WebObject2& object, const ReceivedMessage& message) {
                static_cast<WebButton2&>(object).receive(message);
            },
            {WireForm::row<seam::Label>(keys::label), WireForm::row<seam::IconFile>(keys::icon),
             WireForm::row<seam::DefaultButton>(keys::defaultbutton)}};
        EndsModule end;
    } shared;
    return shared.form;
}

QJsonObject WebButton2::getJSonObject() const {
    return seam::exists(element()) ? form().describe(*this) : WebWidget2::getJSonObject();
}

}  // namespace DOVA
