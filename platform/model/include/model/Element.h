#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "model/Base.h"
#include "model/PropertyDefault.h"
#include "wiro/Export.h"

namespace tdom {

/// A handle to an element that a user sees.
class DOVA_PLATFORM_EXPORT Element : public Base {
public:
    class Impl;

    Element() noexcept = default;

    /// REQUIRES: not empty.
    Impl* operator->() const noexcept;

protected:
    friend class Base;
    explicit Element(Impl* impl) noexcept;
};

/// What every visible element has.
class DOVA_PLATFORM_EXPORT Element::Impl : public Base::Impl {
public:
    static const Type s_type;

    /// Whether the element is shown; true at first. Independent of its parents.
    void setVisible(bool visible);
    bool isVisible() const noexcept { return m_visible; }

    /// Whether the user may operate the element; no value says nothing, which counts as enabled.
    /// From no value to true is a change.
    void setEnabled(std::optional<bool> enabled);
    bool isEnabled() const noexcept { return m_enabled.value_or(true); }

    /// Plain text shown when the user points at the element; empty for none.
    void setTooltip(std::u16string_view tooltip);
    const std::u16string& getTooltip() const noexcept { return m_tooltip; }

    void visitProperties(const PropertyVisitor& visitor) const override;

protected:
    Impl(const Type& type, const pf::zero::Uuid& uuid) noexcept : Base::Impl(type, uuid) {}

private:
    bool m_visible = PropertyDefault::visible;
    std::optional<bool> m_enabled;
    std::u16string m_tooltip;
};

inline Element::Element(Impl* impl) noexcept : Base(impl) {}

inline Element::Impl* Element::operator->() const noexcept {
    return static_cast<Impl*>(impl());
}

}  // namespace tdom
