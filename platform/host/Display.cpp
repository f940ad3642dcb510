#include "host/Display.h"

namespace {

bool s_hasDisplay = false;

}  // namespace

bool svGraphicsHasDisplay() noexcept {
    return s_hasDisplay;
}

namespace host {

void setHasDisplay(bool hasDisplay) noexcept {
    s_hasDisplay = hasDisplay;
}

}  // namespace host
