#pragma once

#include <vector>

#include "wiro/Emitter.h"

namespace DOVA {

class DVObject;

/// What a front object asks of its implementation. Every emitter is a request to the implementation
/// behind it; without one, requests do nothing and answer default values.
struct DVObject2Emitters {
    virtual ~DVObject2Emitters() = default;

    WIRO::Emitter<void(DVObject*)> setParent;
    WIRO::Emitter<DVObject*()> getParent;
    WIRO::Emitter<std::vector<DVObject*>(bool)> getChildren;
    WIRO::Emitter<void()> destroy;
};

}  // namespace DOVA
