#include "toolkit/DVContainer2.h"

#include "toolkit/DVLayout2.h"

namespace DOVA {

DVContainer2::~DVContainer2() {
    dismantle();
}

void DVContainer2::setLayout(DVLayout2* layout) {
    DVLayout2* before = this->layout();
    emitters()->setLayout.emit(layout);
    if (before && before != layout && before->parent() == this) {
        before->setParent(nullptr);
    }
}

}  // namespace DOVA
