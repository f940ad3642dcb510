#pragma once

#include "../seam/ElementIdentity.h"
#include "core/WebFactory2.h"
#include "widgets/WebWidget2.h"

namespace DOVA {

template <class Element>
void WebWidget2::createElement() {
    setElement(seam::newElement<Element>(WebFactory2::getModel()));
}

}  // namespace DOVA
