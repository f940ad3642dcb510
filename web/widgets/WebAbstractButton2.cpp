#include "widgets/WebAbstractButton2.h"

#include "../core/PropertyNames.h"
#include "../core/TextConversions.h"
#include "../seam/Elements.h"

namespace DOVA {

WebAbstractButton2::WebAbstractButton2(DVAbstractButton2* front,
                                       DVAbstractButton2Emitters* emitters)
    : WebWidget2(front, emitters) {
    using Emitters = DVAbstractButton2Emitters;
    bind(emitters, {binding<&Emitters::setLabelU, &WebAbstractButton2::doSetLabelU>,
                    binding<&Emitters::getLabelU, &WebAbstractButton2::doGetLabelU>,
                    binding<&Emitters::setChecked, &WebAbstractButton2::doSetChecked>,
                    binding<&Emitters::isChecked, &WebAbstractButton2::doIsChecked>});
}

void WebAbstractButton2::doSetLabelU(const std::u16string& label) {
    if (seam::Label::holds(element(), label)) {
        return;
    }
    seam::Label::write(element(), label);
    updateText(names::label, label);
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the signature that the toolkit calls.
void WebAbstractButton2::doSetIcon(Icon icon) {
    const std::string file = icon.getFile(0);
    seam::IconFile::write(element(), utf8ToU16(file));
    updateProperty(keys::icon, QString::fromStdString(file));
}

void WebAbstractButton2::doSetCheckable(bool checkable) {
    seam::Checkable::write(element(), checkable);
    updateProperty(keys::checkable, checkable);
}

void WebAbstractButton2::doSetChecked(bool checked) {
    seam::Checked::write(element(), checked);
    updateProperty(keys::checked, checked);
}

void WebAbstractButton2::doSetExclusive(bool) {}

std::u16string WebAbstractButton2::doGetLabelU() const {
    return seam::Label::read(element());
}

Icon WebAbstractButton2::doGetIcon() const {
    Icon icon;
    const std::u16string file = seam::IconFile::read(element());
    if (!file.empty()) {
        icon.insertImage(u16ToUtf8(file));
    }
    return icon;
}

bool WebAbstractButton2::doIsCheckable() const {
    return seam::Checkable::read(element());
}

bool WebAbstractButton2::doIsChecked() const {
    return seam::Checked::read(element());
}

bool WebAbstractButton2::doIsExclusive() const {
    return false;
}

}  // namespace DOVA
