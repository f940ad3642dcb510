#include "toolkit/DVLayout2.h"

namespace DOVA {

namespace {

/// Where a layout is that is nowhere: backends need not take it out of where it is without having
/// another place for it. It has no implementation, so nothing there is described.
struct Nowhere : DVObject {
    static Nowhere& place() {
        // Never destroyed: layouts with static lifetime may leave their place while the process
        // ends.
        static auto* nowhere = new Nowhere;
        return *nowhere;
    }
};

}  // namespace

DVLayout2::~DVLayout2() = default;

void DVLayout2::setParent(DVObject* parent) {
    DVObject2::setParent(parent ? parent : &Nowhere::place());
}

void DVLayout2::removeWidget(DVObject* widget) {
    if (auto* layout = dynamic_cast<DVLayout2*>(widget)) {
        layout->setParent(nullptr);
    } else {
        emitters()->removeWidget.emit(widget);
    }
}

}  // namespace DOVA
