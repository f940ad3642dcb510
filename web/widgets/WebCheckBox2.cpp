#include "widgets/WebCheckBox2.h"

#include "../core/ModuleEnd.h"
#include "../core/PropertyNames.h"
#include "../core/ReceivedMessage.h"
#include "../core/TakenOver.h"
#include "../core/TextConversions.h"
#include "../core/WireForm.h"
#include "../seam/Elements.h"
#include "CreateElement.h"

namespace DOVA {

WebCheckBox2::WebCheckBox2(DVCheckBox2* front, DVCheckBox2Emitters* emitters, DVObject*)
    : WebAbstractButton2(front, emitters) {
    createElement<tdom::CheckBox>();
    declareForm(form());
    doLower();
}

WebCheckBox2::~WebCheckBox2() {
    endBindings();
    disableEventBroadcasting();
}

void WebCheckBox2::handleJSONMessage(const QJsonObject& message) {
    receive(ReceivedMessage(message));
}

void WebCheckBox2::receive(const ReceivedMessage& message) {
    if (!message.isEvent(events::onToggle)) {
        return;
    }
    const TakenOver taken(identifier(), [this, before = doIsChecked()] { doSetChecked(before); });
    const bool checked = message.flag(received::value);
    seam::Checked::write(element(), checked);
    emitToFront<DVButtonToggleEvent2>(&DVAbstractButton2::toggleEmitter, seam::s_ordinary, checked);
}

const WireForm& WebCheckBox2::form() {
    static const struct {
        WireForm form{
            typeid(WebCheckBox2),
            [](WebObject2& object, const ReceivedMessage& message) {
                static_cast<WebCheckBox2&>(object).receive(message);
            },
            {WireForm::row<seam::Label>(keys::label), WireForm::row<seam::Checked>(keys::checked)}};
        EndsModule end;
    } shared;
    return shared.form;
}

QJsonObject WebCheckBox2::getJSonObject() const {
    return seam::exists(element()) ? form().describe(*this) : WebWidget2::getJSonObject();
}

}  // namespace DOVA
