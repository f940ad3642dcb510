#pragma once

#include <string>

#include "toolkit/DVContainer2Emitters.h"

namespace DOVA {

struct DVGroupBox2Emitters : DVContainer2Emitters {
    WIRO::Emitter<void(const std::string&)> setTitle;
    WIRO::Emitter<void(const std::u16string&)> setTitleU;
    WIRO::Emitter<void(bool)> setFlat;
    WIRO::Emitter<std::string()> getTitle;
    WIRO::Emitter<std::u16string()> getTitleU;
    WIRO::Emitter<bool()> isFlat;
};

}  // namespace DOVA
