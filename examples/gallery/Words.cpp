#include "Words.h"

namespace gallery {

std::u16string number(int value) {
    const std::string digits = std::to_string(value);
    return {digits.begin(), digits.end()};
}

}  // namespace gallery
