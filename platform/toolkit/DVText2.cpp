#include "toolkit/DVText2.h"

#include "Implementation.h"

namespace DOVA {

DVText2::DVText2(DVObject* parent, const std::u16string& text)
    : DVWidget2(std::make_unique<DVText2Emitters>()) {
    implementBelow(parent, factory(), &DVFactory2::createText2, this);
    if (!text.empty()) {
        setText(text);
    }
}

DVText2::~DVText2() = default;

void DVText2::setText(const std::u16string& text) {
    emitters()->setTextU.emit(text);
}

std::u16string DVText2::text() const {
    return emitters()->getTextU.emit(false);
}

void DVText2::setBuddy(DVObject* buddy) {
    emitters()->setBuddy.emit(buddy);
}

DVObject* DVText2::buddy() const {
    return emitters()->getBuddy.emit();
}

}  // namespace DOVA
