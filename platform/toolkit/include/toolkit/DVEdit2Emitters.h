#pragma once

#include "toolkit/DVWidget2Emitters.h"

namespace DOVA {

struct DVEdit2Emitters : DVWidget2Emitters {
    WIRO::Emitter<void(const std::u16string&)> setTextU;
    WIRO::Emitter<std::u16string(bool)> getTextU;
};

}  // namespace DOVA
