#pragma once

#include <string>
#include <string_view>

#include "model/Element.h"
#include "wiro/Export.h"

namespace tdom {

/// A handle to what push buttons and check boxes share.
class DOVA_PLATFORM_EXPORT BaseButton : public Element {
public:
    class Impl;

    BaseButton() noexcept = default;

    /// REQUIRES: not empty.
    Impl* operator->() const noexcept;

protected:
    friend class Base;
    explicit BaseButton(Impl* impl) noexcept;
};

/// A label, an icon and a state that may be on or off.
class DOVA_PLATFORM_EXPORT BaseButton::Impl : public Element::Impl {
public:
    static const Type s_type;

    /// The text on the element, plain.
    void setLabel(std::u16string_view label);
    const std::u16string& getLabel() const noexcept { return m_label; }

    /// The path of the icon's image file; empty for no icon. The file is not looked at.
    void setIcon(std::u16string_view path);
    const std::u16string& getIcon() const noexcept { return m_icon; }

    /// Whether the user may switch the element on and off; false at first.
    void setCheckable(bool checkable);
    bool isCheckable() const noexcept { return m_checkable; }

    /// Whether the element is on; false at first. Kept whether it is checkable or not.
    void setChecked(bool checked);
    bool isChecked() const noexcept { return m_checked; }

    void visitProperties(const PropertyVisitor& visitor) const override;

protected:
    Impl(const Type& type, const pf::zero::Uuid& uuid) noexcept : Element::Impl(type, uuid) {}

private:
    std::u16string m_label;
    std::u16string m_icon;
    bool m_checkable = false;
    bool m_checked = false;
};

inline BaseButton::BaseButton(Impl* impl) noexcept : Element(impl) {}

inline BaseButton::Impl* BaseButton::operator->() const noexcept {
    return static_cast<Impl*>(impl());
}

}  // namespace tdom
