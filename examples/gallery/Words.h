#pragma once

#include <string>

namespace gallery {

/// The number in decimal digits.
std::u16string number(int value);

}  // namespace gallery
