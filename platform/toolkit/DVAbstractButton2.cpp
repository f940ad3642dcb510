#include "toolkit/DVAbstractButton2.h"

namespace DOVA {

DVAbstractButton2::~DVAbstractButton2() {
    dismantle();
}

void DVAbstractButton2::judgeClicks() {
    if (!m_judgesClicks) {
        m_judgesClicks = true;
        WIRO::connect(m_click, [this](const DVButtonClickEvent2& event) { admit(&event); });
    }
}

void DVAbstractButton2::setLabel(const std::u16string& label) {
    emitters()->setLabelU.emit(label);
}

std::u16string DVAbstractButton2::label() const {
    return emitters()->getLabelU.emit();
}

void DVAbstractButton2::setChecked(bool checked) {
    emitters()->setChecked.emit(checked);
}

bool DVAbstractButton2::isChecked() const {
    return emitters()->isChecked.emit();
}

}  // namespace DOVA
