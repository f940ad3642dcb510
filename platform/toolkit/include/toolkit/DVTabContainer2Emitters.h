#pragma once

#include <string>

#include "toolkit/DVWidget2Emitters.h"
#include "toolkit/Enumerations.h"

namespace DOVA {

class DVTab2;
class DVWidget2;

struct DVTabContainer2Emitters : DVWidget2Emitters {
    WIRO::Emitter<int(DVTab2*)> addTab;
    WIRO::Emitter<int(int, DVTab2*)> insertTab;
    WIRO::Emitter<void(int)> removeTab;
    WIRO::Emitter<DVTab2*(int)> getTab;
    WIRO::Emitter<DVTab2*()> currentTab;
    WIRO::Emitter<void(DVWidget2*, WindowCorner)> setCornerWidget;
    WIRO::Emitter<int(DVTab2*)> getTabIndex;
    WIRO::Emitter<int()> getTabCount;
    WIRO::Emitter<bool()> getTabsClosable;
    WIRO::Emitter<bool()> getDocumentMode;
    WIRO::Emitter<void(int)> setCurrentTab;
    WIRO::Emitter<void(int, const std::string&)> setTabToolTip;
    WIRO::Emitter<void(bool)> setTabMovable;
    WIRO::Emitter<bool()> getTabMovable;
    WIRO::Emitter<void(int, int)> moveTab;
    WIRO::Emitter<void(Position)> setTabPosition;
    WIRO::Emitter<void(bool)> setTabsClosable;
    WIRO::Emitter<void(bool)> setDocumentMode;
    WIRO::Emitter<bool()> getVisible;
    WIRO::Emitter<int()> getCurrentTab;
    WIRO::Emitter<Position()> getTabPosition;
    WIRO::Emitter<diagram::PointTemplate<int>()> getTabAreaGlobalPosition;
    WIRO::Emitter<void(int)> setCurrentTabWithSideEffects;
};

}  // namespace DOVA
