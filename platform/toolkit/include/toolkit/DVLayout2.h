#pragma once

#include "toolkit/DVLayout2Emitters.h"
#include "toolkit/DVObject2.h"

namespace DOVA {

/// Arranges widgets in a container. Widgets appear in the order in which they were added.
class DOVA_TOOLKIT_EXPORT DVLayout2 : public DVObject2 {
public:
    ~DVLayout2() override;

    /// Moves the widget or layout into this one; not owned. Null is ignored.
    void addWidget(DVObject* widget, Alignment alignment = Alignment::None) {
        emitters()->addWidget(widget, alignment);
    }
    /// Takes the widget or layout out of the tree, with what is in it. Null is ignored.
    void removeWidget(DVObject* widget);
    /// As for every object; null takes the layout out of its container or layout.
    void setParent(DVObject* parent) override;
    /// Asks the display to arrange the widgets anew.
    void invalidate() { emitters()->invalidate(); }
    /// Asks the display to draw the layout anew.
    void refresh() { emitters()->refresh(); }
    void setEnabled(bool enabled) { emitters()->setEnabled(enabled); }
    /// What was last set, false at first.
    bool isEnabled() const { return emitters()->isEnabled(); }
    /// The room between widgets in pixels.
    void setSpacing(int spacing) { emitters()->setSpacing(spacing); }
    int spacing() const { return emitters()->getSpacing(); }

    DVLayout2Emitters* emitters() const {
        return static_cast<DVLayout2Emitters*>(DVObject2::emitters());
    }

protected:
    using DVObject2::DVObject2;
};

}  // namespace DOVA
