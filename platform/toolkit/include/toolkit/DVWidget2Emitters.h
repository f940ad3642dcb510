#pragma once

#include <map>
#include <string>

#include "toolkit/Color.h"
#include "toolkit/DVObject2Emitters.h"
#include "toolkit/Geometry.h"

namespace DOVA {

/// The texts of a message box or another free-form message by their names.
using TextMessage = std::map<std::string, std::u16string>;

struct DVWidget2Emitters : DVObject2Emitters {
    WIRO::Emitter<void()> show;
    WIRO::Emitter<void()> hide;
    WIRO::Emitter<void()> raise;
    WIRO::Emitter<void()> refresh;
    WIRO::Emitter<void()> setFocus;
    WIRO::Emitter<void(bool)> setVisible;
    WIRO::Emitter<void(bool)> setEnabled;
    WIRO::Emitter<void(const std::u16string&)> setToolTipU;
    WIRO::Emitter<void(ColorRole, Color)> setColor;
    WIRO::Emitter<void(diagram::RectTemplate<int>)> setPosition;
    WIRO::Emitter<void(diagram::PointTemplate<int>)> moveTo;
    WIRO::Emitter<void(diagram::TSize<int>)> setMinimumSize;
    WIRO::Emitter<void(diagram::TSize<int>)> setMaximumSize;
    WIRO::Emitter<void(diagram::TSize<int>)> setPreferredSize;
    WIRO::Emitter<void(diagram::TSize<int>)> resize;
    WIRO::Emitter<void(const std::string&)> setObjectName;
    WIRO::Emitter<bool()> isVisible;
    WIRO::Emitter<bool()> isEnabled;
    WIRO::Emitter<std::u16string()> getToolTipU;
    WIRO::Emitter<Color(ColorRole)> getColor;
    WIRO::Emitter<diagram::RectTemplate<int>()> getPosition;
    WIRO::Emitter<diagram::TSize<int>()> getMinimumSize;
    WIRO::Emitter<diagram::TSize<int>()> getMaximumSize;
    WIRO::Emitter<diagram::TSize<int>()> getPreferredSize;
    WIRO::Emitter<std::string()> getObjectName;
    WIRO::Emitter<void(const TextMessage&)> sendTextMessage;
};

}  // namespace DOVA
