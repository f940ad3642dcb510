#include "GeometryTexts.h"

#include <limits>

#include "../core/TextConversions.h"
#include "toolkit/DpiScale.h"

namespace DOVA {

namespace {

std::u16string scaledText(int value) {
    return toU16(QString::number(value * dpiScale(), 'f', 6));
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
