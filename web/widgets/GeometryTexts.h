#pragma once

#include <string>

#include "toolkit/Geometry.h"

namespace DOVA {

/// [x,y,width,height]
std::u16string rectangleText(diagram::RectTemplate<int> rectangle);
/// [x,y], for positions of widgets.
std::u16string pointText(diagram::PointTemplate<int> point);
/// [x, y], for positions of windows: there clients have always been given a blank.
std::u16string windowPointText(diagram::PointTemplate<int> point);
/// [width,height] times dpiScale(), with six decimals.
std::u16string scaledSizeText(diagram::TSize<int> size);
/// `value` times dpiScale(), truncated toward zero; limited to the numbers of an int.
int scaled(int value);

}  // namespace DOVA
