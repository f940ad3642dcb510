#include "windows/WebGridLayout2.h"

#include "../core/PropertyNames.h"
#include "../core/TextConversions.h"

namespace DOVA {

WebGridLayout2::WebGridLayout2(DVGridLayout2* front, DVGridLayout2Emitters* emitters,
                               DVObject* parent)
    : WebLayout2(front, emitters, parent) {
    doSetParent(parent);
    setProperty(names::type, utf8ToU16(kinds::gridLayout), false);
    using Emitters = DVGridLayout2Emitters;
    bind(emitters, {binding<&Emitters::gridAddWidget, &WebGridLayout2::doGridAddWidget>,
                    binding<&Emitters::gridAddSpacer, &WebGridLayout2::doGridAddSpacer>,
                    binding<&Emitters::setRowStretch, &WebGridLayout2::doSetRowStretch>,
                    binding<&Emitters::setColStretch, &WebGridLayout2::doSetColStretch>,
                    binding<&Emitters::setStretchFactors, &WebGridLayout2::doSetStretchFactors>,
                    binding<&Emitters::getRowStretch, &WebGridLayout2::doGetRowStretch>,
                    binding<&Emitters::getColStretch, &WebGridLayout2::doGetColStretch>});
}

WebGridLayout2::~WebGridLayout2() {
    endBindings();
}

void WebGridLayout2::doGridAddWidget(DVObject* widget, diagram::RectTemplate<int>,
                                     Alignment alignment) {
    doAddWidget(widget, alignment);
}

void WebGridLayout2::doGridAddSpacer(diagram::RectTemplate<int>, diagram::TSize<int>) {}

void WebGridLayout2::doSetRowStretch(int, int) {}

void WebGridLayout2::doSetColStretch(int, int) {}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the signature that the toolkit calls.
void WebGridLayout2::doSetStretchFactors(std::vector<int>, std::vector<int>) {}

int WebGridLayout2::doGetRowStretch(int) const {
    return 0;
}

int WebGridLayout2::doGetColStretch(int) const {
    return 0;
}

std::string WebGridLayout2::getTypeName() const {
    return kinds::gridLayout;
}

}  // namespace DOVA
