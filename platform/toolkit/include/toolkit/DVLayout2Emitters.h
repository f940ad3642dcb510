#pragma once

#include "toolkit/DVObject2Emitters.h"
#include "toolkit/Enumerations.h"
#include "toolkit/Geometry.h"

namespace DOVA {

struct DVLayout2Emitters : DVObject2Emitters {
    WIRO::Emitter<void(DVObject*, Alignment)> addWidget;
    WIRO::Emitter<void(diagram::TSize<int>, int)> addSpacer;
    WIRO::Emitter<void()> invalidate;
    WIRO::Emitter<void()> refresh;
    WIRO::Emitter<void(DVObject*)> removeWidget;
    WIRO::Emitter<void(bool)> setEnabled;
    WIRO::Emitter<void(diagram::RectTemplate<int>)> setMargins;
    WIRO::Emitter<void(int)> setSpacing;
    WIRO::Emitter<bool()> isEnabled;
    WIRO::Emitter<diagram::RectTemplate<int>()> getMargins;
    WIRO::Emitter<int()> getSpacing;
};

}  // namespace DOVA
