#pragma once

#include "core/WebObject2.h"
#include "core/WebObjectService2.h"

namespace DOVA {

/// The web object behind a front object, for the operations that its front class does not offer:
///
///     if (auto* web = webObject<WebButton2>(button)) web->doSetCheckable(true);
///
/// Null if there is none or it is of another class. Main thread.
template <class Web>
Web* webObject(const DVObject& front) {
    WebObjectService2* service = WebObjectService2::instance();
    return service ? dynamic_cast<Web*>(service->getObject(seam::identifierOf(front))) : nullptr;
}

}  // namespace DOVA
