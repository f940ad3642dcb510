#include "toolkit/DVText2.h"

#include "toolkit/DVFactory2.h"

namespace DOVA {

DVText2::DVText2(DVObject* parent, const std::u16string& text)
    : DVWidget2(std::make_unique<DVText2Emitters>()) {
    if (factory()) {
        factory()->createText2.emit(this, emitters(), parent);
    }
    if (parent) {
        setParent(parent);
    }
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
