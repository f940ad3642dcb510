#pragma once

#include "toolkit/DVAbstractButton2Emitters.h"

namespace DOVA {

struct DVCheckBox2Emitters : DVAbstractButton2Emitters {};

}  // namespace DOVA
