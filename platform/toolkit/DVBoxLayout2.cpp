#include "toolkit/DVBoxLayout2.h"

#include "Implementation.h"

namespace DOVA {

DVBoxLayout2::DVBoxLayout2(DVObject* parent, Direction direction)
    : DVLayout2(std::make_unique<DVBoxLayout2Emitters>()) {
    implement(factory(), &DVFactory2::createBoxLayout2, this, parent, direction);
}

DVBoxLayout2::~DVBoxLayout2() = default;

void DVBoxLayout2::addWidget(DVObject* widget, int stretch, Alignment alignment) {
    emitters()->boxAddWidget.emit(widget, stretch, alignment);
}

}  // namespace DOVA
