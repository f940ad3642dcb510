#include "toolkit/DVButton2.h"

#include "Implementation.h"

namespace DOVA {

DVButton2::DVButton2(DVObject* parent, const std::u16string& label)
    : DVAbstractButton2(std::make_unique<DVButton2Emitters>()) {
    implementBelow(parent, factory(), &DVFactory2::createButton2, this);
    if (!label.empty()) {
        setLabel(label);
    }
    WIRO::connect(toggleEmitter(),
                  [this](const DVButtonToggleEvent2& event) { takeToggle(event); });
}

// The backend tells a push button's switch and leaves the state to the front object.
void DVButton2::takeToggle(const DVButtonToggleEvent2& event) {
    const DVFactory2* maker = livingFactory();
    const bool isKnown = maker && maker->isCheckable.numberOfConnections() > 0;
    if (admit(&event, !isKnown || maker->isCheckable.emit(identifier()))) {
        setChecked(event.checked());
    }
}

DVButton2::~DVButton2() {
    dismantle();
}

}  // namespace DOVA
