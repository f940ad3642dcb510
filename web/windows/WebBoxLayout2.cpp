#include "windows/WebBoxLayout2.h"

#include "../core/PropertyNames.h"
#include "../core/TextConversions.h"

namespace DOVA {

WebBoxLayout2::WebBoxLayout2(DVBoxLayout2* front, DVBoxLayout2Emitters* emitters, DVObject* parent)
    : WebLayout2(front, emitters, parent) {
    setProperty(names::type, utf8ToU16(kinds::boxLayout), false);
    using Emitters = DVBoxLayout2Emitters;
    bind(emitters, {binding<&Emitters::boxAddWidget, &WebBoxLayout2::doBoxAddWidget>,
                    binding<&Emitters::insertWidget, &WebBoxLayout2::doInsertWidget>,
                    binding<&Emitters::insertSpacer, &WebBoxLayout2::doInsertSpacer>,
                    binding<&Emitters::setStretchFactor, &WebBoxLayout2::doSetStretchFactor>});
}

WebBoxLayout2::~WebBoxLayout2() {
    endBindings();
}

void WebBoxLayout2::doBoxAddWidget(DVObject* widget, int, Alignment alignment) {
    doAddWidget(widget, alignment);
}

void WebBoxLayout2::doInsertWidget(DVObject*, int, int, Alignment) {}

void WebBoxLayout2::doInsertSpacer(int, int, int) {}

void WebBoxLayout2::doSetStretchFactor(DVObject*, int) {}

std::string WebBoxLayout2::getTypeName() const {
    return kinds::boxLayout;
}

}  // namespace DOVA
