#include "toolkit/DVText2.h"

#include "Implementation.h"

namespace DOVA {

DVText2::DVText2(DVObject* parent, const std::u16string& text)
    : DVWidget2(std::make_unique<DVText2Emitters>()) {
    implementBelow(parent, factory(), &DVFactory2::createText2, this);
    if (!text.empty()) {
        setText(text);
    }
}

DVText2::~DVText2() = default;

}  // namespace DOVA
