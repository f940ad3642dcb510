#pragma once

#include "toolkit/DVLayout2Emitters.h"

namespace DOVA {

struct DVBoxLayout2Emitters : DVLayout2Emitters {
    WIRO::Emitter<void(DVObject*, int, Alignment)> boxAddWidget;
    WIRO::Emitter<void(DVObject*, int, int, Alignment)> insertWidget;
    WIRO::Emitter<void(int, int, int)> insertSpacer;
    WIRO::Emitter<void(DVObject*, int)> setStretchFactor;
};

}  // namespace DOVA
