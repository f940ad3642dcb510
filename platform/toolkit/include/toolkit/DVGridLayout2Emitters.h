#pragma once

#include <vector>

#include "toolkit/DVLayout2Emitters.h"

namespace DOVA {

struct DVGridLayout2Emitters : DVLayout2Emitters {
    WIRO::Emitter<void(DVObject*, diagram::RectTemplate<int>, Alignment)> gridAddWidget;
    WIRO::Emitter<void(diagram::RectTemplate<int>, diagram::TSize<int>)> gridAddSpacer;
    WIRO::Emitter<void(int, int)> setRowStretch;
    WIRO::Emitter<void(int, int)> setColStretch;
    WIRO::Emitter<void(std::vector<int>, std::vector<int>)> setStretchFactors;
    WIRO::Emitter<int(int)> getRowStretch;
    WIRO::Emitter<int(int)> getColStretch;
};

}  // namespace DOVA
