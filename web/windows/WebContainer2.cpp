#include "windows/WebContainer2.h"

#include "../core/PropertyNames.h"
#include "core/WebObjectService2.h"
#include "toolkit/DVLayout2.h"

namespace DOVA {

WebContainer2::WebContainer2(DVContainer2* front, DVContainer2Emitters* emitters)
    : WebWidget2(front, emitters) {
    using Emitters = DVContainer2Emitters;
    bind(emitters, {binding<&Emitters::setLayout, &WebContainer2::doSetLayout>,
                    binding<&Emitters::getLayout, &WebContainer2::doGetLayout>,
                    binding<&Emitters::setLayoutGrid, &WebContainer2::doSetLayoutGrid>});
}

WebContainer2::~WebContainer2() {
    endBindings();
}

void WebContainer2::doSetLayout(DVLayout2* layout) {
    m_layout = layout;
    m_layoutIdentifier = layout ? seam::identifierOf(*layout) : 0;
    WebObjectService2* service = getService();
    if (WebObject2* web = service ? service->getObject(m_layoutIdentifier) : nullptr) {
        web->doSetParent(getHandle());
    }
}

DVLayout2* WebContainer2::doGetLayout() const {
    return DVObject::isObjectValid(m_layout, m_layoutIdentifier) ? m_layout : nullptr;
}

void WebContainer2::doSetLayoutGrid(int* values, int count) {
    setProperty(names::layoutGrid, values, count, true);
}

std::string WebContainer2::getTypeName() const {
    return kinds::container;
}

}  // namespace DOVA
