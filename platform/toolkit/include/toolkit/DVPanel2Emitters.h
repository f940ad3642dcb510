#pragma once

#include "toolkit/DVContainer2Emitters.h"

namespace DOVA {

struct DVPanel2Emitters : DVContainer2Emitters {
    WIRO::Emitter<void()> updateSize;
    WIRO::Emitter<void(bool)> setButtonPanel;
};

}  // namespace DOVA
