#include "toolkit/DVContainer2.h"

namespace DOVA {

DVContainer2::~DVContainer2() {
    dismantle();
}

void DVContainer2::setLayout(DVLayout2* layout) {
    emitters()->setLayout.emit(layout);
}

DVLayout2* DVContainer2::layout() const {
    return emitters()->getLayout.emit();
}

void DVContainer2::setLayoutGrid(int* values, int count) {
    emitters()->setLayoutGrid.emit(values, count);
}

}  // namespace DOVA
