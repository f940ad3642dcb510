#include "toolkit/DVPanel2.h"

#include "toolkit/DVFactory2.h"

namespace DOVA {

DVPanel2::DVPanel2(DVObject* parent, bool framed)
    : DVContainer2(std::make_unique<DVPanel2Emitters>()) {
    if (factory()) {
        factory()->createPanel2.emit(this, emitters(), parent, framed);
    }
    if (parent) {
        setParent(parent);
    }
}

DVPanel2::~DVPanel2() = default;

void DVPanel2::setButtonPanel(bool buttonPanel) {
    emitters()->setButtonPanel.emit(buttonPanel);
}

}  // namespace DOVA
