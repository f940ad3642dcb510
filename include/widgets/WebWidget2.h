#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "core/WebObject2.h"
#include "seam/Platform.h"
#include "toolkit/Color.h"
#include "toolkit/Cursor.h"
#include "toolkit/DVWidget2.h"
#include "toolkit/Enumerations.h"
#include "toolkit/Geometry.h"

namespace DOVA {

/// The web side of DVWidget2, base of everything visible. Visibility, enabled state and tooltip go
/// to the model element of kinds that have one and to the page; every other setter writes a named
/// property, which is sent each time, changed or not. Names and forms of the values stand in the
/// protocol's widget table.
///
/// The page lays out, draws and keeps the focus by itself. An operation that it does not need
/// does nothing here, or answers an empty value; it is marked *no effect*.
class DOVA_WEB_EXPORT WebWidget2 : public WebObject2 {
public:
    QJsonObject getJSonObject() const override;

    /// Sends the widget's whole subtree again, for the page to replace what it shows.
    virtual void doShow();
    /// doSetVisible(false), overrides included.
    virtual void doHide();
    virtual void doRaise();
    virtual void doLower();            // no effect
    virtual void doSetActiveWindow();  // no effect
    virtual bool doIsActiveWindow() const;
    virtual void doRefresh();
    virtual void doUpdate();
    virtual void doAdjustSize();
    virtual void doSetVisible(bool visible);
    virtual void doSetEnabled(bool enabled);
    virtual void doSetEventConsumed(bool consumed);  // no effect
    virtual void doSetToolTipU(const std::u16string& text);
    virtual void doSetFont(const seam::Font& font);  // no effect
    /// Background and foreground become "rgb(r,g,b)" attributes of the style, alpha dropped; the
    /// other roles have no attribute and send nothing.
    virtual void doSetColor(ColorRole role, Color color);
    virtual void doSetPosition(diagram::RectTemplate<int> position);
    virtual void doMoveTo(diagram::PointTemplate<int> point);
    virtual void doSetAcceptDrops(bool accept);                             // no effect
    virtual void doSetContentsMargins(diagram::RectTemplate<int> margins);  // no effect
    /// Stored and sent times dpiScale(), truncated; a negative dimension stays as it is.
    virtual void doSetMinimumSize(diagram::TSize<int> size);
    virtual void doSetMaximumSize(diagram::TSize<int> size);
    /// Sent times dpiScale(), stored as given.
    virtual void doSetPreferredSize(diagram::TSize<int> size);
    virtual void doSetFixedSize(diagram::TSize<int> size);              // no effect
    virtual void doSetSizeConstraint(seam::SizeConstraint constraint);  // no effect
    virtual void doSetSizePolicy(seam::SizePolicy horizontal,
                                 seam::SizePolicy vertical);  // no effect
    virtual void doResize(diagram::TSize<int> size);
    virtual void doSetFocus();
    virtual void doSetFocusPolicy(seam::FocusPolicy policy);  // no effect
    virtual void doSetFocusProxy(DVObject* proxy);            // no effect
    virtual void doSetCursor(const Cursor& cursor);           // no effect
    virtual void doUnsetCursor();                             // no effect
    /// UTF-8.
    virtual void doSetObjectName(const std::string& name);
    virtual void doSetUpdatesEnabled(bool enabled);
    virtual void doSetDragDelegate(DVObject* delegate);               // no effect
    virtual void doAddAction(DVObject* action);                       // no effect
    virtual void doRemoveAction(DVObject* action);                    // no effect
    virtual void doInsertAction(DVObject* before, DVObject* action);  // no effect
    virtual bool doIsVisible() const;
    virtual bool doIsEnabled() const;
    virtual bool doIsEventConsumed() const;
    virtual std::u16string doGetToolTipU() const;
    virtual seam::Font doGetFont() const;
    /// Opaque white for the background, whatever was set, and the zero colour for other roles: the
    /// page's real colours are not known here.
    virtual Color doGetColor(ColorRole role) const;
    virtual diagram::RectTemplate<int> doGetPosition() const;
    virtual diagram::PointTemplate<int> doGetGlobalPosition() const;
    virtual diagram::PointTemplate<int> doMapFromGlobal(diagram::PointTemplate<int> point) const;
    virtual diagram::PointTemplate<int> doMapToGlobal(diagram::PointTemplate<int> point) const;
    virtual bool doCanAcceptDrops() const;
    virtual diagram::RectTemplate<int> doGetContentsRect() const;
    virtual diagram::RectTemplate<int> doGetContentsMargins() const;
    /// In client pixels, scaled already, unlike doGetPreferredSize() and doGetPosition().
    virtual diagram::TSize<int> doGetMinimumSize() const;
    virtual diagram::TSize<int> doGetMaximumSize() const;
    virtual diagram::TSize<int> doGetPreferredSize() const;
    /// Always true: the page's focus is not known here, and callers ask before they write.
    virtual bool doHasFocus() const;
    virtual seam::FocusPolicy doGetFocusPolicy() const;
    virtual DVObject* doGetFocusProxy() const;
    virtual std::string doGetObjectName() const;
    virtual Cursor doGetCursor() const;
    virtual DVObject* doGetDragDelegate() const;
    virtual unsigned long doGetWinId() const;
    virtual std::vector<DVObject*> doGetActions() const;
    /// The text last given to doRestoreGeometry.
    virtual std::string doSaveGeometry() const;
    /// Sent as "saveGeometry": that is the name under which the page applies a geometry.
    virtual void doRestoreGeometry(const std::string& geometry);
    /// Stored only, like every array.
    virtual void doSetRowSpan(int* spans, int count);
    virtual void doSetColSpan(int* spans, int count);
    virtual void doSetWidgetHighlight(bool highlight);  // no effect
    virtual bool doIsWidgetHighlighted() const;
    /// Opens a message box on the page: the entries "level", "title" and "body", empty if absent,
    /// and "modal" if present. "type" is the box's own.
    virtual void doSendTextMessage(const seam::TextMessage& message);
    /// Sends an object of any form on the channels that serve this widget.
    virtual void sendTextMessage(const QJsonObject& message);

    // The page reports gestures and events always, and injects none: no effect.
    void enableGestureEvents();
    void disableGestureEvents();
    void enableEventBroadcasting();
    void disableEventBroadcasting();
    void doimTriggerKeyEvent();
    void doimTriggerMouseEvent();
    void doimTriggerFocusEvent();
    void doimTriggerMoveEvent();
    void doimTriggerContextMenuEvent();

protected:
    WebWidget2(DVWidget2* front, DVWidget2Emitters* emitters);

    /// Makes the object's model element, of kind `Element`; without a model there is none.
    template <class Element>
    void createElement();

private:
    void bindTriggers(DVWidget2Emitters* emitters);
    void bindSetters(DVWidget2Emitters* emitters);
    void bindGetters(DVWidget2Emitters* emitters);
    void sendScaled(const std::u16string& name, int value, int& stored);

    /// What most widgets never get.
    struct Settings {
        std::u16string tooltip;
        std::u16string objectName;
        diagram::RectTemplate<int> position;
        diagram::TSize<int> minimumSize{0, 0};
        diagram::TSize<int> maximumSize{16777215, 16777215};  // what the front widget starts with
        diagram::TSize<int> preferredSize;
        std::string savedGeometry;
    };
    const Settings& settings() const;
    Settings& changedSettings();

    bool m_visible = true;
    bool m_enabled = true;
    std::unique_ptr<Settings> m_settings;  // once there is one
};

}  // namespace DOVA
