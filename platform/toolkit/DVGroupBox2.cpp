#include "toolkit/DVGroupBox2.h"

#include "Implementation.h"

namespace DOVA {

DVGroupBox2::DVGroupBox2(DVObject* parent, const std::u16string& title)
    : DVContainer2(std::make_unique<DVGroupBox2Emitters>()) {
    implementBelow(parent, factory(), &DVFactory2::createGroupBox2, this);
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
