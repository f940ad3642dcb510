#pragma once

#include "toolkit/DVAbstractButton2Emitters.h"

namespace DOVA {

struct DVButton2Emitters : DVAbstractButton2Emitters {
    WIRO::Emitter<void(bool)> setDefault;
    WIRO::Emitter<bool()> isDefault;
};

}  // namespace DOVA
