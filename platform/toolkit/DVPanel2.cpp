#include "toolkit/DVPanel2.h"

#include "Implementation.h"

namespace DOVA {

DVPanel2::DVPanel2(DVObject* parent, bool framed)
    : DVContainer2(std::make_unique<DVPanel2Emitters>()) {
    implementBelow(parent, factory(), &DVFactory2::createPanel2, this, framed);
}

DVPanel2::~DVPanel2() = default;

}  // namespace DOVA
