#pragma once

#include "toolkit/DVAbstractWindow2Emitters.h"
#include "toolkit/DVDialogAccel.h"

namespace DOVA {

struct DVDialog2Emitters : DVAbstractWindow2Emitters {
    WIRO::Emitter<void()> updateSize;
    WIRO::Emitter<void(unsigned)> setWindowFlag;
    WIRO::Emitter<void(bool)> setTransient;
    WIRO::Emitter<void(bool)> setModal;
    WIRO::Emitter<void(bool)> monitorResize;
    WIRO::Emitter<void(bool)> setScrollable;
    WIRO::Emitter<void(DVDialogAccel)> sendAccKey;
    WIRO::Emitter<unsigned()> getWindowFlag;
    WIRO::Emitter<bool()> isTransient;
    WIRO::Emitter<bool()> isModal;
};

}  // namespace DOVA
