#include "windows/WebDialog2.h"

#include "../core/PropertyNames.h"
#include "../core/TextConversions.h"
#include "core/WebObjectService2.h"

namespace DOVA {

namespace {

constexpr DVDialogAccel s_zoomIn{0};
constexpr DVDialogAccel s_zoomOut{3};
constexpr DVDialogAccel s_close{5};

/// The key press that an accelerator stands for, in the toolkit's codes.
struct Shortcut {
    DVDialogAccel accelerator;
    int key;
    unsigned modifiers;
};
constexpr unsigned s_control = 0x04000000;
constexpr Shortcut s_shortcuts[] = {
    {s_zoomIn, '=', s_control}, {s_zoomOut, '-', s_control}, {s_close, 0x01000000 /* Escape */, 0}};

const std::u16string s_defaultIcon = u"/toolbox/shared/parlen/resources/VantrolModelIcon.png";

}  // namespace

WebDialog2::WebDialog2(DVDialog2* front, DVDialog2Emitters* emitters, DVObject*)
    : WebAbstractWindow2(front, emitters) {
    setProperty(names::type, utf8ToU16(kinds::dialog), false);
    setProperty(names::version, words::descriptionVersion, false);
    doLower();
    using Emitters = DVDialog2Emitters;
    bind(emitters, {binding<&Emitters::updateSize, &WebDialog2::doUpdateSize>,
                    binding<&Emitters::setWindowFlag, &WebDialog2::doSetWindowFlag>,
                    binding<&Emitters::setTransient, &WebDialog2::doSetTransient>,
                    binding<&Emitters::setModal, &WebDialog2::doSetModal>,
                    binding<&Emitters::monitorResize, &WebDialog2::doMonitorResize>,
                    binding<&Emitters::setScrollable, &WebDialog2::doSetScrollable>,
                    binding<&Emitters::sendAccKey, &WebDialog2::doSendAccKey>,
                    binding<&Emitters::getWindowFlag, &WebDialog2::doGetWindowFlag>,
                    binding<&Emitters::isTransient, &WebDialog2::doIsTransient>,
                    binding<&Emitters::isModal, &WebDialog2::doIsModal>});
    doSetIconWithPath(s_defaultIcon);
}

WebDialog2::~WebDialog2() {
    endBindings();
    disableEventBroadcasting();
}

void WebDialog2::doUpdateSize() {}

void WebDialog2::doSetWindowFlag(unsigned) {}

unsigned WebDialog2::doGetWindowFlag() const {
    return 0;
}

void WebDialog2::doSetTransient(bool transient) {
    m_transient = transient;
    sendProperty(names::transient, transient);
}

void WebDialog2::doMonitorResize(bool monitor) {
    m_monitorResize = monitor;
}

void WebDialog2::doSetScrollable(bool scrollable) {
    m_scrollable = scrollable;
    setProperty(names::scrollable, scrollable, false);
}

bool WebDialog2::doIsTransient() const {
    return m_transient;
}

void WebDialog2::doSetModal(bool modal) {
    m_modal = modal;
    sendProperty(names::modal, modal);
}

bool WebDialog2::doIsModal() const {
    return m_modal;
}

void WebDialog2::doSendAccKey(DVDialog2::DVDialogAccel accelerator) {
    for (const Shortcut& shortcut : s_shortcuts) {
        if (shortcut.accelerator == accelerator) {
            return emitKey(shortcut.key, shortcut.modifiers);
        }
    }
}

void WebDialog2::closeDialog() {
    doSendAccKey(s_close);
}

void WebDialog2::emitKey(int key, unsigned modifiers) {
    emitToFront<DVKeyEvent2>(&DVDialog2::keyEmitter, seam::s_synchronous, key, modifiers,
                             std::u16string(), false, 0u, 0, false);
}

void WebDialog2::handleJSONMessage(const QJsonObject& message) {
    // A handler may delete this dialog; the next key then finds another object or none.
    const WebObject2* const self = this;
    const Identifier id = identifier();
    const QStringList events = message.keys();
    for (const QString& event : events) {
        const WebObjectService2* service = WebObjectService2::instance();
        if (!service || service->getObject(id) != self) {
            return;
        }
        if (event == received::increaseFontSize) {
            doSendAccKey(s_zoomIn);
        } else if (event == received::decreaseFontSize) {
            doSendAccKey(s_zoomOut);
        } else if (event == received::resize) {
            emitToFront<DVResizeEvent2>(&DVDialog2::resizeEmitter, seam::s_ordinary,
                                        diagram::TSize<int>(), diagram::TSize<int>());
        }
    }
}

std::string WebDialog2::getTypeName() const {
    return kinds::dialog;
}

}  // namespace DOVA
