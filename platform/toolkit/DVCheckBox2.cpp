#include "toolkit/DVCheckBox2.h"

#include "toolkit/DVFactory2.h"

namespace DOVA {

DVCheckBox2::DVCheckBox2(DVObject* parent, const std::u16string& label)
    : DVAbstractButton2(std::make_unique<DVCheckBox2Emitters>()) {
    if (factory()) {
        factory()->createCheckBox2.emit(this, emitters(), parent);
    }
    if (parent) {
        setParent(parent);
    }
    if (!label.empty()) {
        setLabel(label);
    }
    WIRO::connect(toggleEmitter(), [this](const DVButtonToggleEvent2& event) { admit(&event); });
}

DVCheckBox2::~DVCheckBox2() {
    dismantle();
}

}  // namespace DOVA
