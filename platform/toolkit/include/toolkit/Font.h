#pragma once

#include <string>

namespace DOVA {

/// A font as a program asks for it; the default leaves everything to the display.
struct Font {
    std::u16string family;
    int pointSize = -1;
    int pixelSize = -1;
    unsigned style = 0;  // no bold, italic, underline
};

}  // namespace DOVA
