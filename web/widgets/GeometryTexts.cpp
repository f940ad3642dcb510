#include "GeometryTexts.h"

#include <charconv>
#include <iterator>
#include <limits>

#include "../core/TextConversions.h"
#include "toolkit/DpiScale.h"

namespace DOVA {

namespace {

// As printf writes "%f", but with a point in every locale: an exact tie goes to the even digit,
// which is not what Qt does.
std::u16string scaledText(int value) {
    constexpr int decimals = 6;
    char text[std::numeric_limits<double>::max_exponent10 + decimals + 4];  // digits, sign, point
    const auto written = std::to_chars(std::begin(text), std::end(text), value * dpiScale(),
                                       std::chars_format::fixed, decimals);
    return std::u16string(text, written.ptr);
}

}  // namespace

std::u16string rectangleText(diagram::RectTemplate<int> rectangle) {
    return u"[" + decimal(rectangle.x) + u"," + decimal(rectangle.y) + u"," +
           decimal(rectangle.width) + u"," + decimal(rectangle.height) + u"]";
}

std::u16string pointText(diagram::PointTemplate<int> point) {
    return u"[" + decimal(point.x) + u"," + decimal(point.y) + u"]";
}

std::u16string windowPointText(diagram::PointTemplate<int> point) {
    return u"[" + decimal(point.x) + u", " + decimal(point.y) + u"]";
}

std::u16string scaledSizeText(diagram::TSize<int> size) {
    return u"[" + scaledText(size.width) + u"," + scaledText(size.height) + u"]";
}

int scaled(int value) {
    const double result = value * dpiScale();
    return result >= std::numeric_limits<int>::max() ? std::numeric_limits<int>::max()
                                                     : static_cast<int>(result);
}

}  // namespace DOVA
