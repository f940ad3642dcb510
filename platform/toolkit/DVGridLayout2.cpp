#include "toolkit/DVGridLayout2.h"

#include "toolkit/DVFactory2.h"

namespace DOVA {

DVGridLayout2::DVGridLayout2(DVObject* parent)
    : DVLayout2(std::make_unique<DVGridLayout2Emitters>()) {
    if (factory()) {
        factory()->createGridLayout2.emit(this, emitters(), parent);
    }
}

DVGridLayout2::~DVGridLayout2() = default;

void DVGridLayout2::addWidget(DVObject* widget, diagram::RectTemplate<int> cell,
                              Alignment alignment) {
    emitters()->gridAddWidget.emit(widget, cell, alignment);
}

}  // namespace DOVA
