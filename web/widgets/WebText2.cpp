#include "widgets/WebText2.h"

#include "../core/ModuleEnd.h"
#include "../core/PropertyNames.h"
#include "../core/TextConversions.h"
#include "../core/WireForm.h"
#include "../seam/Elements.h"
#include "CreateElement.h"
#include "core/WebObjectService2.h"

namespace DOVA {

WebText2::WebText2(DVText2* front, DVText2Emitters* emitters, DVObject*)
    : WebWidget2(front, emitters) {
    createElement<tdom::Text>();
    declareForm(form());
    doLower();
    using Emitters = DVText2Emitters;
    bind(emitters, {binding<&Emitters::setTextU, &WebText2::doSetTextU>,
                    binding<&Emitters::getTextU, &WebText2::doGetTextU>,
                    binding<&Emitters::setBuddy, &WebText2::doSetBuddy>,
                    binding<&Emitters::getBuddy, &WebText2::doGetBuddy>});
}

WebText2::~WebText2() {
    endBindings();
    disableEventBroadcasting();
}

void WebText2::doSetTextU(const std::u16string& text) {
    if (doGetTextU(false) == text) {
        return;
    }
    seam::StaticText::write(element(), text);
    updateText(names::text, text);
}

std::u16string WebText2::doGetTextU(bool) const {
    return seam::StaticText::read(element());
}

void WebText2::doSetBuddy(DVObject* buddy) {
    if (!buddy) {
        return;
    }
    m_buddy = seam::identifierOf(*buddy);
    updateProperty(keys::buddy, QString::number(m_buddy));
}

DVObject* WebText2::doGetBuddy() {
    WebObjectService2* service = getService();
    WebObject2* buddy = service && m_buddy != NoBuddy ? service->getObject(m_buddy) : nullptr;
    std::lock_guard guard(DVObject::m_lock);
    return buddy && buddy->isDVObjectValid() ? buddy->getHandle() : nullptr;
}

void WebText2::handleJSONMessage(const QJsonObject&) {}

const WireForm& WebText2::form() {
    static const struct {
        WireForm form{typeid(WebText2),
                      [](WebObject2&, const ReceivedMessage&) {},
                      {WireForm::row<seam::StaticText>(keys::text),
                       {keys::buddy, [](const WebObject2& object) {
                            return WireForm::Value(
                                std::to_string(static_cast<const WebText2&>(object).m_buddy));
                        }}}};
        EndsModule end;
    } shared;
    return shared.form;
}

QJsonObject WebText2::getJSonObject() const {
    QJsonObject description = WebWidget2::getJSonObject();
    description.insert(keys::text, toQString(doGetTextU(false)));
    description.insert(keys::buddy, QString::number(m_buddy));
    return description;
}

}  // namespace DOVA
