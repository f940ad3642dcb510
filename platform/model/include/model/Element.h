#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "model/Base.h"
#include "model/Export.h"
#include "model/PropertyDefault.h"

namespace tdom {

/// A handle to an element that a user sees.
class DOVA_MODEL_EXPORT Element : public HandleOf<Element, Base> {
public:
    class Impl;
};

/// What every visible element has.
class DOVA_MODEL_EXPORT Element::Impl : public Base::Impl {
public:
    static const Type s_type;

    /// Whether the element is shown; true at first. Says nothing of what it stands in.
    void setVisible(bool visible) { write(m_visible, visible); }
    bool isVisible() const noexcept { return m_visible.value; }

    /// Whether the user may operate the element. It has no value at first, which counts as enabled;
    /// a step from no value to true is a change.
    void setEnabled(std::optional<bool> enabled) { write(m_enabled, enabled); }
    bool isEnabled() const noexcept { return m_enabled.value.value_or(true); }

    /// Plain text that is shown when the user points at the element; empty for none.
    void setTooltip(std::u16string_view tooltip) { write(m_tooltip, tooltip); }
    const std::u16string& getTooltip() const noexcept { return m_tooltip.value; }

    void visitProperties(const PropertyVisitor& visitor) const override;

protected:
    Impl(const Type& type, const pf::zero::Uuid& uuid) noexcept : Base::Impl(type, uuid) {}

private:
    Property<bool, PropertyName::visible> m_visible{PropertyDefault::visible};
    Property<std::optional<bool>, PropertyName::enable> m_enabled;
    Property<std::u16string, PropertyName::tooltip> m_tooltip;
};

}  // namespace tdom
