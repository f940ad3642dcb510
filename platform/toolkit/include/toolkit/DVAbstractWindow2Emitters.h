#pragma once

#include "toolkit/DVContainer2Emitters.h"
#include "toolkit/DVFlags.h"
#include "toolkit/Enumerations.h"
#include "toolkit/Icon.h"

namespace DOVA {

struct DVAbstractWindow2Emitters : DVContainer2Emitters {
    WIRO::Emitter<void()> showNormal;
    WIRO::Emitter<void()> showMinimized;
    WIRO::Emitter<void()> showMaximized;
    WIRO::Emitter<bool()> isMinimized;
    WIRO::Emitter<bool()> isMaximized;
    WIRO::Emitter<void(const std::u16string&)> setTitle;
    WIRO::Emitter<std::u16string()> getTitle;
    WIRO::Emitter<void(diagram::RectTemplate<int>, bool)> setFrameGeometry;
    WIRO::Emitter<diagram::RectTemplate<int>()> getFrameGeometry;
    WIRO::Emitter<void(diagram::RectTemplate<int>)> setGeometry;
    WIRO::Emitter<diagram::RectTemplate<int>()> getGeometry;
    WIRO::Emitter<diagram::RectTemplate<int>()> getFrameOffset;
    WIRO::Emitter<void(const std::u16string&)> setIconWithPath;
    WIRO::Emitter<void(Icon)> setIcon;
    WIRO::Emitter<void(DVFlags<WindowState>)> setWindowState;
    WIRO::Emitter<DVFlags<WindowState>()> getWindowState;
    WIRO::Emitter<void(diagram::PointTemplate<int>)> move;
    WIRO::Emitter<void()> init;
    /// Announces a window that is shown again, with its whole description, to the page that is
    /// there now.
    WIRO::Emitter<void()> showAgain;
    /// Whether the page that is there now was told of the window and has not asked to close it
    /// since.
    WIRO::Emitter<bool()> isAnnounced;
    /// Whether what is sent for the window reaches the page that is there now, even after that page
    /// asked to close it.
    WIRO::Emitter<bool()> isReached;
};

}  // namespace DOVA
