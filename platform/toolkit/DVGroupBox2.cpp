#include "toolkit/DVGroupBox2.h"

#include "Implementation.h"

namespace DOVA {

DVGroupBox2::DVGroupBox2(DVObject* parent, const std::u16string& title)
    : DVContainer2(std::make_unique<DVGroupBox2Emitters>()) {
    implementBelow(parent, factory(), &DVFactory2::createGroupBox2, this);
    if (!title.empty()) {
        setTitle(title);
    }
}

DVGroupBox2::~DVGroupBox2() = default;

}  // namespace DOVA
