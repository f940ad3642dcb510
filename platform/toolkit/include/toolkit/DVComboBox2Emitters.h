#pragma once

#include <string>
#include <vector>

#include "toolkit/DVWidget2Emitters.h"

namespace DOVA {

struct DVComboBox2Emitters : DVWidget2Emitters {
    WIRO::Emitter<void(int, const std::vector<std::u16string>&, const std::string&)> insertItemsU;
    WIRO::Emitter<void(int)> removeItems;
    WIRO::Emitter<std::vector<std::u16string>()> getItemsU;
    WIRO::Emitter<void(int)> setSelection;
    WIRO::Emitter<int()> getSelection;
    WIRO::Emitter<void(bool)> setEditable;
};

}  // namespace DOVA
