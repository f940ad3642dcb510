#pragma once

#include <string>

#include "toolkit/DVContainer2Emitters.h"

namespace DOVA {

struct DVTab2Emitters : DVContainer2Emitters {
    WIRO::Emitter<void(const std::u16string&)> setName;
    WIRO::Emitter<std::u16string()> getName;
    WIRO::Emitter<void(bool)> setTabVisible;
    WIRO::Emitter<bool()> isTabVisible;
    WIRO::Emitter<void(bool)> setTabEnabled;
    WIRO::Emitter<bool()> isTabEnabled;
};

}  // namespace DOVA
