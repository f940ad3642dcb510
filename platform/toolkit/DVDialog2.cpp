#include "toolkit/DVDialog2.h"

#include "toolkit/DVFactory2.h"

namespace DOVA {

DVDialog2::DVDialog2(DVObject* parent, DVFlags<DialogFlag> flags)
    : DVAbstractWindow2(std::make_unique<DVDialog2Emitters>()) {
    if (factory()) {
        factory()->createDialog2.emit(this, emitters(), parent, flags.value());
    }
    goWith(parent);
    if (flags.has(DialogFlag::Modal)) {
        setModal(true);
    }
}

DVDialog2::~DVDialog2() {
    dismantle();
}

// It is not put below the parent: that would be described with it, as part of it.
DVObject* DVDialog2::parent() const {
    DVObject* above = DVAbstractWindow2::parent();
    return above ? above : const_cast<DVObject2*>(companion());
}

void DVDialog2::setTransient(bool transient) {
    emitters()->setTransient.emit(transient);
}

bool DVDialog2::isTransient() const {
    return emitters()->isTransient.emit();
}

void DVDialog2::setModal(bool modal) {
    emitters()->setModal.emit(modal);
}

bool DVDialog2::isModal() const {
    return emitters()->isModal.emit();
}

void DVDialog2::setScrollable(bool scrollable) {
    emitters()->setScrollable.emit(scrollable);
}

void DVDialog2::monitorResize(bool monitor) {
    emitters()->monitorResize.emit(monitor);
}

void DVDialog2::sendAccKey(DVDialogAccel accelerator) {
    emitters()->sendAccKey.emit(accelerator);
}

}  // namespace DOVA
