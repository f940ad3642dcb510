#include "widgets/WebAbstractButton2.h"

#include "../core/PropertyNames.h"
#include "../core/TextConversions.h"
#include "model/BaseButton.h"

namespace DOVA {

WebAbstractButton2::WebAbstractButton2(DVAbstractButton2* front,
                                       DVAbstractButton2Emitters* emitters)
    : WebWidget2(front, emitters) {
    bind(emitters->setLabelU, &WebAbstractButton2::doSetLabelU);
    bind(emitters->getLabelU, &WebAbstractButton2::doGetLabelU);
    bind(emitters->setChecked, &WebAbstractButton2::doSetChecked);
    bind(emitters->isChecked, &WebAbstractButton2::doIsChecked);
}

void WebAbstractButton2::doSetLabelU(const std::u16string& label) {
    if (const auto button = tdom::as<tdom::BaseButton>(element())) {
        if (button->getLabel() == label) {
            return;
        }
        button->setLabel(label);
    }
    updateProperty(keys::label, toQString(label));
}

void WebAbstractButton2::doSetIcon(Icon icon) {
    const std::string file = icon.getFile(0);
    if (const auto button = tdom::as<tdom::BaseButton>(element())) {
        button->setIcon(utf8ToU16(file));
    }
    updateProperty(keys::icon, QString::fromStdString(file));
}

void WebAbstractButton2::doSetCheckable(bool checkable) {
    if (const auto button = tdom::as<tdom::BaseButton>(element())) {
        button->setCheckable(checkable);
    }
    updateProperty(keys::checkable, checkable);
}

void WebAbstractButton2::doSetChecked(bool checked) {
    if (const auto button = tdom::as<tdom::BaseButton>(element())) {
        button->setChecked(checked);
    }
    updateProperty(keys::checked, checked);
}

void WebAbstractButton2::doSetExclusive(bool) {}

std::u16string WebAbstractButton2::doGetLabelU() const {
    const auto button = tdom::as<tdom::BaseButton>(element());
    return button ? button->getLabel() : std::u16string();
}

Icon WebAbstractButton2::doGetIcon() const {
    Icon icon;
    const auto button = tdom::as<tdom::BaseButton>(element());
    if (button && !button->getIcon().empty()) {
        icon.insertImage(u16ToUtf8(button->getIcon()));
    }
    return icon;
}

bool WebAbstractButton2::doIsCheckable() const {
    const auto button = tdom::as<tdom::BaseButton>(element());
    return button && button->isCheckable();
}

bool WebAbstractButton2::doIsChecked() const {
    const auto button = tdom::as<tdom::BaseButton>(element());
    return button && button->isChecked();
}

bool WebAbstractButton2::doIsExclusive() const {
    return false;
}

}  // namespace DOVA
