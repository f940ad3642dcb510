#include "toolkit/DVGroupBox2.h"

#include "toolkit/DVFactory2.h"

namespace DOVA {

DVGroupBox2::DVGroupBox2(DVObject* parent, const std::u16string& title)
    : DVContainer2(std::make_unique<DVGroupBox2Emitters>()) {
    if (factory()) {
        factory()->createGroupBox2.emit(this, emitters(), parent);
    }
    if (parent) {
        setParent(parent);
    }
    if (!title.empty()) {
        setTitle(title);
    }
}

DVGroupBox2::~DVGroupBox2() = default;

void DVGroupBox2::setTitle(const std::u16string& title) {
    emitters()->setTitleU.emit(title);
}

std::u16string DVGroupBox2::title() const {
    return emitters()->getTitleU.emit();
}

void DVGroupBox2::setFlat(bool flat) {
    emitters()->setFlat.emit(flat);
}

bool DVGroupBox2::isFlat() const {
    return emitters()->isFlat.emit();
}

}  // namespace DOVA
