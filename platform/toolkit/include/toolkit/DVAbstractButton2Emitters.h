#pragma once

#include "toolkit/DVWidget2Emitters.h"

namespace DOVA {

struct DVAbstractButton2Emitters : DVWidget2Emitters {
    WIRO::Emitter<void(const std::u16string&)> setLabelU;
    WIRO::Emitter<std::u16string()> getLabelU;
    WIRO::Emitter<void(bool)> setChecked;
    WIRO::Emitter<bool()> isChecked;
};

}  // namespace DOVA
