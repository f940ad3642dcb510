#include "widgets/WebEdit2.h"

#include "../core/ModuleEnd.h"
#include "../core/PropertyNames.h"
#include "../core/ReceivedMessage.h"
#include "../core/TakenOver.h"
#include "../core/TextConversions.h"
#include "../core/WireForm.h"
#include "../seam/Elements.h"
#include "CreateElement.h"

namespace DOVA {

WebEdit2::WebEdit2(DVEdit2* front, DVEdit2Emitters* emitters, DVObject*)
    : WebWidget2(front, emitters) {
    setProperty(names::type, utf8ToU16(kinds::edit), false);
    createElement<tdom::Edit>();
    declareForm(form());
    doLower();
    using Emitters = DVEdit2Emitters;
    bind(emitters, {binding<&Emitters::setTextU, &WebEdit2::doSetTextU>,
                    binding<&Emitters::getTextU, &WebEdit2::doGetTextU>});
}

WebEdit2::~WebEdit2() {
    endBindings();
    disableEventBroadcasting();
}

void WebEdit2::doSetTextU(const std::u16string& text) {
    if (doGetTextU(false) == text) {
        return;
    }
    seam::EditText::write(element(), text);
    updateText(names::text, text);
}

std::u16string WebEdit2::doGetTextU(bool) const {
    return seam::EditText::read(element());
}

void WebEdit2::doSetPlaceHolderText(const std::u16string& text) {
    seam::EditPlaceholder::write(element(), text);
    updateText(names::placeholder, text);
}

std::u16string WebEdit2::doGetPlaceHolderText() const {
    return seam::EditPlaceholder::read(element());
}

void WebEdit2::handleJSONMessage(const QJsonObject& message) {
    receive(ReceivedMessage(message));
}

void WebEdit2::receive(const ReceivedMessage& message) {
    const auto emitter = message.isEvent(events::onEdit)         ? &DVEdit2::editEmitter
                         : message.isEvent(events::onEditFinish) ? &DVEdit2::editFinishedEmitter
                                                                 : nullptr;
    if (emitter) {
        // Nothing was taken over, but the client shows what was typed.
        const TakenOver shown(identifier(), [this] { updateText(names::text, doGetTextU(false)); });
        emitUnlocked<DVEditEvent2>(emitter, seam::s_ordinary, message.text(received::value), 0, 0);
    }
}

const WireForm& WebEdit2::form() {
    static const struct {
        WireForm form{typeid(WebEdit2),
                      [](WebObject2& object, const ReceivedMessage& message) {
                          static_cast<WebEdit2&>(object).receive(message);
                      },
                      {WireForm::row<seam::EditText>(keys::text)}};
        EndsModule end;
    } shared;
    return shared.form;
}

QJsonObject WebEdit2::getJSonObject() const {
    return seam::exists(element()) ? form().describe(*this) : WebWidget2::getJSonObject();
}

}  // namespace DOVA
