#include "windows/WebGroupBox2.h"

#include "../core/PropertyNames.h"
#include "../core/TextConversions.h"

namespace DOVA {

WebGroupBox2::WebGroupBox2(DVGroupBox2* front, DVGroupBox2Emitters* emitters, DVObject*)
    : WebContainer2(front, emitters) {
    setProperty(names::type, utf8ToU16(kinds::groupBox), false);
    doLower();
    using Emitters = DVGroupBox2Emitters;
    bind(emitters, {binding<&Emitters::setTitle, &WebGroupBox2::doSetTitle>,
                    binding<&Emitters::setTitleU, &WebGroupBox2::doSetTitleU>,
                    binding<&Emitters::setFlat, &WebGroupBox2::doSetFlat>,
                    binding<&Emitters::getTitle, &WebGroupBox2::doGetTitle>,
                    binding<&Emitters::getTitleU, &WebGroupBox2::doGetTitleU>,
                    binding<&Emitters::isFlat, &WebGroupBox2::doIsFlat>});
}

WebGroupBox2::~WebGroupBox2() {
    endBindings();
    disableEventBroadcasting();
}

void WebGroupBox2::doSetTitle(const std::string& title) {
    doSetTitleU(utf8ToU16(title));
}

void WebGroupBox2::doSetTitleU(const std::u16string& title) {
    m_title = title;
    sendProperty(names::title, title);
}

void WebGroupBox2::doSetFlat(bool flat) {
    m_flat = flat;
    sendProperty(names::flat, flat);
}

std::string WebGroupBox2::doGetTitle() const {
    return u16ToUtf8(m_title);
}

std::u16string WebGroupBox2::doGetTitleU() const {
    return m_title;
}

bool WebGroupBox2::doIsFlat() const {
    return m_flat;
}

void WebGroupBox2::handleJSONMessage(const QJsonObject&) {}

std::string WebGroupBox2::getTypeName() const {
    return kinds::groupBox;
}

}  // namespace DOVA
