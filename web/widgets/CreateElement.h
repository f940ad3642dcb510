#pragma once

#include "core/WebFactory2.h"
#include "model/Uuid.h"
#include "widgets/WebWidget2.h"

namespace DOVA {

template <class Element>
void WebWidget2::createElement() {
    if (const auto model = WebFactory2::getModel()) {
        setElement(Element::create(model, pf::zero::Uuid::generate()));
    }
}

}  // namespace DOVA
