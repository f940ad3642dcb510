#include "widgets/WebCheckBox2.h"

#include "../core/PropertyNames.h"
#include "../core/TakenOver.h"
#include "../core/TextConversions.h"
#include "../seam/Elements.h"
#include "CreateElement.h"

namespace DOVA {

WebCheckBox2::WebCheckBox2(DVCheckBox2* front, DVCheckBox2Emitters* emitters, DVObject*)
    : WebAbstractButton2(front, emitters) {
    createElement<tdom::CheckBox>();
    doLower();
}

WebCheckBox2::~WebCheckBox2() {
    endBindings();
    disableEventBroadcasting();
}

void WebCheckBox2::handleJSONMessage(const QJsonObject& message) {
    if (message.value(received::event).toString() != events::onToggle) {
        return;
    }
    const TakenOver taken(identifier(), [this, before = doIsChecked()] { doSetChecked(before); });
    const bool checked = message.value(received::value).toBool(false);
    seam::Checked::write(element(), checked);
    emitToFront<DVButtonToggleEvent2>(&DVAbstractButton2::toggleEmitter, seam::s_ordinary, checked);
}

QJsonObject WebCheckBox2::getJSonObject() const {
    QJsonObject description = WebWidget2::getJSonObject();
    if (seam::exists(element())) {
        description.insert(keys::label, toQString(seam::Label::read(element())));
        description.insert(keys::checked, seam::Checked::read(element()));
    }
    return description;
}

}  // namespace DOVA
