#pragma once

#include <string>
#include <string_view>

#include "model/Element.h"
#include "model/Export.h"

namespace tdom {

/// A handle to what push buttons and check boxes share.
class DOVA_MODEL_EXPORT BaseButton : public HandleOf<BaseButton, Element> {
public:
    class Impl;
};

/// An element with a label, an icon and a state that is on or off.
class DOVA_MODEL_EXPORT BaseButton::Impl : public Element::Impl {
public:
    static const Type s_type;

    /// The text on the element, plain.
    void setLabel(std::u16string_view label) { write(m_label, label); }
    const std::u16string& getLabel() const noexcept { return m_label.value; }

    /// The path of the icon's image file; empty for no icon. The file is not looked at.
    void setIcon(std::u16string_view path) { write(m_icon, path); }
    const std::u16string& getIcon() const noexcept { return m_icon.value; }

    /// Whether the user may switch the element on and off; false at first.
    void setCheckable(bool checkable) { write(m_checkable, checkable); }
    bool isCheckable() const noexcept { return m_checkable.value; }

    /// Whether the element is on; false at first. Stored whether it is checkable or not.
    void setChecked(bool checked) { write(m_checked, checked); }
    bool isChecked() const noexcept { return m_checked.value; }

    void visitProperties(const PropertyVisitor& visitor) const override;

protected:
    Impl(const Type& type, const pf::zero::Uuid& uuid) noexcept : Element::Impl(type, uuid) {}

private:
    Property<std::u16string, PropertyName::label> m_label;
    Property<std::u16string, PropertyName::icon> m_icon;
    Property<bool, PropertyName::checkable> m_checkable;
    Property<bool, PropertyName::checked> m_checked;
};

}  // namespace tdom
