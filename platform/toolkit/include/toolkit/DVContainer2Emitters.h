#pragma once

#include "toolkit/DVWidget2Emitters.h"

namespace DOVA {

class DVLayout2;

struct DVContainer2Emitters : DVWidget2Emitters {
    WIRO::Emitter<void(DVLayout2*)> setLayout;
    WIRO::Emitter<DVLayout2*()> getLayout;
    WIRO::Emitter<void(int*, int)> setLayoutGrid;
};

}  // namespace DOVA
