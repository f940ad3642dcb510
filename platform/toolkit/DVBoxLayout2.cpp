#include "toolkit/DVBoxLayout2.h"

#include "Implementation.h"

namespace DOVA {

DVBoxLayout2::DVBoxLayout2(DVObject* parent, Direction direction)
    : DVLayout2(std::make_unique<DVBoxLayout2Emitters>()) {
    implement(factory(), &DVFactory2::createBoxLayout2, this, parent, direction);
}

DVBoxLayout2::~DVBoxLayout2() = default;

}  // namespace DOVA
