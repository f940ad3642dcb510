#include "widgets/WebEdit2.h"

#include "../core/PropertyNames.h"
#include "../core/TakenOver.h"
#include "../core/TextConversions.h"
#include "../seam/Elements.h"
#include "CreateElement.h"

namespace DOVA {

WebEdit2::WebEdit2(DVEdit2* front, DVEdit2Emitters* emitters, DVObject*)
    : WebWidget2(front, emitters) {
    setProperty(names::type, utf8ToU16(kinds::edit), false);
    createElement<tdom::Edit>();
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
    const QString event = message.value(received::event).toString();
    const auto emitter = event == events::onEdit         ? &DVEdit2::editEmitter
                         : event == events::onEditFinish ? &DVEdit2::editFinishedEmitter
                                                         : nullptr;
    if (emitter) {
        // Nothing was taken over, but the client shows what was typed.
        const TakenOver shown(identifier(), [this] { updateText(names::text, doGetTextU(false)); });
        emitUnlocked<DVEditEvent2>(emitter, seam::s_ordinary,
                                   toU16(message.value(received::value).toString()), 0, 0);
    }
}

QJsonObject WebEdit2::getJSonObject() const {
    QJsonObject description = WebWidget2::getJSonObject();
    if (seam::exists(element())) {
        description.insert(keys::text, toQString(seam::EditText::read(element())));
    }
    return description;
}

}  // namespace DOVA
