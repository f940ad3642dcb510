#include "toolkit/DVGridLayout2.h"

#include "Implementation.h"

namespace DOVA {

DVGridLayout2::DVGridLayout2(DVObject* parent)
    : DVLayout2(std::make_unique<DVGridLayout2Emitters>()) {
    implement(factory(), &DVFactory2::createGridLayout2, this, parent);
}

DVGridLayout2::~DVGridLayout2() = default;

void DVGridLayout2::addWidget(DVObject* widget, diagram::RectTemplate<int> cell,
                              Alignment alignment) {
    emitters()->gridAddWidget.emit(widget, cell, alignment);
}

}  // namespace DOVA
