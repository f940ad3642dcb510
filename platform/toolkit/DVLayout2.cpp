#include "toolkit/DVLayout2.h"

namespace DOVA {

DVLayout2::~DVLayout2() = default;

void DVLayout2::addWidget(DVObject* widget, Alignment alignment) {
    emitters()->addWidget.emit(widget, alignment);
}

void DVLayout2::removeWidget(DVObject* widget) {
    emitters()->removeWidget.emit(widget);
}

void DVLayout2::invalidate() {
    emitters()->invalidate.emit();
}

void DVLayout2::refresh() {
    emitters()->refresh.emit();
}

void DVLayout2::setEnabled(bool enabled) {
    emitters()->setEnabled.emit(enabled);
}

bool DVLayout2::isEnabled() const {
    return emitters()->isEnabled.emit();
}

void DVLayout2::setSpacing(int spacing) {
    emitters()->setSpacing.emit(spacing);
}

int DVLayout2::spacing() const {
    return emitters()->getSpacing.emit();
}

}  // namespace DOVA
