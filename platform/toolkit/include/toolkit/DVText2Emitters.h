#pragma once

#include "toolkit/DVWidget2Emitters.h"

namespace DOVA {

struct DVText2Emitters : DVWidget2Emitters {
    WIRO::Emitter<void(const std::u16string&)> setTextU;
    WIRO::Emitter<std::u16string(bool)> getTextU;
    WIRO::Emitter<void(DVObject*)> setBuddy;
    WIRO::Emitter<DVObject*()> getBuddy;
};

}  // namespace DOVA
