// The operations of WebWidget2 that the client needs no word about: it draws, lays out and keeps
// the focus by itself. They are here so that the toolkit finds every operation it may call.

#include "widgets/WebWidget2.h"

namespace DOVA {

void WebWidget2::doLower() {}
void WebWidget2::doSetActiveWindow() {}
void WebWidget2::doSetEventConsumed(bool) {}
void WebWidget2::doSetFont(const seam::Font&) {}
void WebWidget2::doSetAcceptDrops(bool) {}
void WebWidget2::doSetContentsMargins(diagram::RectTemplate<int>) {}
void WebWidget2::doSetFixedSize(diagram::TSize<int>) {}
void WebWidget2::doSetSizeConstraint(seam::SizeConstraint) {}
void WebWidget2::doSetSizePolicy(seam::SizePolicy, seam::SizePolicy) {}
void WebWidget2::doSetFocusPolicy(seam::FocusPolicy) {}
void WebWidget2::doSetFocusProxy(DVObject*) {}
void WebWidget2::doSetCursor(const Cursor&) {}
void WebWidget2::doUnsetCursor() {}
void WebWidget2::doSetDragDelegate(DVObject*) {}
void WebWidget2::doAddAction(DVObject*) {}
void WebWidget2::doRemoveAction(DVObject*) {}
void WebWidget2::doInsertAction(DVObject*, DVObject*) {}
void WebWidget2::doSetWidgetHighlight(bool) {}

bool WebWidget2::doIsActiveWindow() const {
    return false;
}
bool WebWidget2::doIsEventConsumed() const {
    return false;
}
seam::Font WebWidget2::doGetFont() const {
    return {};
}
diagram::PointTemplate<int> WebWidget2::doGetGlobalPosition() const {
    return {};
}
diagram::PointTemplate<int> WebWidget2::doMapFromGlobal(diagram::PointTemplate<int> point) const {
    return point;
}
diagram::PointTemplate<int> WebWidget2::doMapToGlobal(diagram::PointTemplate<int> point) const {
    return point;
}
bool WebWidget2::doCanAcceptDrops() const {
    return false;
}
diagram::RectTemplate<int> WebWidget2::doGetContentsRect() const {
    return {};
}
diagram::RectTemplate<int> WebWidget2::doGetContentsMargins() const {
    return {};
}
bool WebWidget2::doHasFocus() const {
    return true;
}
seam::FocusPolicy WebWidget2::doGetFocusPolicy() const {
    return {};
}
DVObject* WebWidget2::doGetFocusProxy() const {
    return nullptr;
}
Cursor WebWidget2::doGetCursor() const {
    return {};
}
DVObject* WebWidget2::doGetDragDelegate() const {
    return nullptr;
}
unsigned long WebWidget2::doGetWinId() const {
    return 0;
}
std::vector<DVObject*> WebWidget2::doGetActions() const {
    return {};
}
bool WebWidget2::doIsWidgetHighlighted() const {
    return false;
}

void WebWidget2::enableGestureEvents() {}
void WebWidget2::disableGestureEvents() {}
void WebWidget2::enableEventBroadcasting() {}
void WebWidget2::disableEventBroadcasting() {}
void WebWidget2::doimTriggerKeyEvent() {}
void WebWidget2::doimTriggerMouseEvent() {}
void WebWidget2::doimTriggerFocusEvent() {}
void WebWidget2::doimTriggerMoveEvent() {}
void WebWidget2::doimTriggerContextMenuEvent() {}

}  // namespace DOVA
