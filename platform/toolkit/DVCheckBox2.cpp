#include "toolkit/DVCheckBox2.h"

#include "Implementation.h"

namespace DOVA {

DVCheckBox2::DVCheckBox2(DVObject* parent, const std::u16string& label)
    : DVAbstractButton2(std::make_unique<DVCheckBox2Emitters>()) {
    implementBelow(parent, factory(), &DVFactory2::createCheckBox2, this);
    if (!label.empty()) {
        setLabel(label);
    }
    WIRO::connect(toggleEmitter(), [this](const DVButtonToggleEvent2& event) { admit(&event); });
}

DVCheckBox2::~DVCheckBox2() {
    dismantle();
}

}  // namespace DOVA
