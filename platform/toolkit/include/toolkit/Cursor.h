#pragma once

#include "toolkit/Enumerations.h"

namespace DOVA {

/// The pointer's shape over a widget.
struct Cursor {
    CursorShape shape = CursorShape::Arrow;
    bool operator==(const Cursor& other) const { return shape == other.shape; }
};

}  // namespace DOVA
