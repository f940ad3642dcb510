#pragma once

#include <vector>

#include "wiro/Emitter.h"
#include "wiro/EmitterSet.h"

namespace DOVA {

class DVObject;

/// What a front object asks of its implementation. Every emitter is a request to the implementation
/// behind it; without one, requests do nothing and answer default values.
struct DVObject2Emitters : WIRO::EmitterSet {
    WIRO::Emitter<void(DVObject*)> setParent;
    WIRO::Emitter<DVObject*()> getParent;
    WIRO::Emitter<std::vector<DVObject*>(bool)> getChildren;
    WIRO::Emitter<void()> destroy;
};

}  // namespace DOVA
