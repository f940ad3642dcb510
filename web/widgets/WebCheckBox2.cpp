#include "widgets/WebCheckBox2.h"

#include "../core/PropertyNames.h"
#include "../core/TakenOver.h"
#include "../core/TextConversions.h"
#include "CreateElement.h"
#include "model/CheckBox.h"

namespace DOVA {

WebCheckBox2::WebCheckBox2(DVCheckBox2* front, DVCheckBox2Emitters* emitters, DVObject*)
    : WebAbstractButton2(front, emitters) {
    createElement<tdom::CheckBox>();
    doLower();
}

WebCheckBox2::~WebCheckBox2() {
    disconnectAll();
    disableEventBroadcasting();
}

void WebCheckBox2::handleJSONMessage(const QJsonObject& message) {
    if (message.value(received::event).toString() != events::onToggle) {
        return;
    }
    const TakenOver taken(identifier(), [this, before = doIsChecked()] { doSetChecked(before); });
    const bool checked = message.value(received::value).toBool(false);
    if (const auto box = tdom::as<tdom::CheckBox>(element())) {
        box->setChecked(checked);
    }
    emitToFront<DVButtonToggleEvent2>(&DVAbstractButton2::toggleEmitter, WIRO::SendMode::Ordinary,
                                      checked);
}

QJsonObject WebCheckBox2::getJSonObject() const {
    QJsonObject description = WebWidget2::getJSonObject();
    if (const auto box = tdom::as<tdom::CheckBox>(element())) {
        description.insert(keys::label, toQString(box->getLabel()));
        description.insert(keys::checked, box->isChecked());
    }
    return description;
}

}  // namespace DOVA
