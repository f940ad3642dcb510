#include "toolkit/DVGridLayout2.h"

#include "Implementation.h"

namespace DOVA {

DVGridLayout2::DVGridLayout2(DVObject* parent)
    : DVLayout2(std::make_unique<DVGridLayout2Emitters>()) {
    implement(factory(), &DVFactory2::createGridLayout2, this, parent);
}

DVGridLayout2::~DVGridLayout2() = default;

}  // namespace DOVA
