#pragma once

#include <string>

#include "toolkit/DVContainer2.h"
#include "toolkit/DVTab2Emitters.h"

namespace DOVA {

/// A page of a tab container.
class DOVA_TOOLKIT_EXPORT DVTab2 : public DVContainer2 {
public:
    /// With a tab container for parent the page is its last one at once. With another parent, or
    /// none, it waits for addTab() or insertTab().
    explicit DVTab2(DVObject* parent = nullptr, const std::u16string& name = {});
    ~DVTab2() override;

    /// The text on the tab. Takes effect with the next full description of the container.
    void setName(const std::u16string& name) { emitters()->setName(name); }
    std::u16string name() const { return emitters()->getName(); }
    /// The web backend hides and shows the whole container with the page. Outside a tab container
    /// nothing happens.
    void setTabVisible(bool visible);
    /// True if this page and its container were made visible by setTabVisible(); false outside one.
    bool isTabVisible() const;
    /// Whether the user may turn to the page, true at first. Outside a tab container nothing
    /// happens.
    void setTabEnabled(bool enabled) { emitters()->setTabEnabled(enabled); }
    bool isTabEnabled() const { return emitters()->isTabEnabled(); }

    DVTab2Emitters* emitters() const { return static_cast<DVTab2Emitters*>(DVObject2::emitters()); }

private:
    friend class DVTabContainer2;

    bool isPage() const;
    void visibilityGiven() override { m_isTabHidden = false; }
    bool isShown() const { return isVisible() && !m_isTabHidden; }
    bool keepsAway(const DVWidget2* child) const override;

    bool m_isTabHidden = false;
};

}  // namespace DOVA
