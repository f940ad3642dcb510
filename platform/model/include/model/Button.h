#pragma once

#include "model/BaseButton.h"
#include "model/Export.h"

namespace tdom {

/// A handle to a push button.
class DOVA_MODEL_EXPORT Button : public KindOf<Button, BaseButton> {
public:
    class Impl;
};

/// A push button, which may be the one that Enter presses.
class DOVA_MODEL_EXPORT Button::Impl : public BaseButton::Impl {
public:
    static const Type s_type;

    /// Whether Enter presses this button; false at first. Changes no other button.
    void setDefaultbutton(bool isDefault) { write(m_defaultbutton, isDefault); }
    bool isDefaultbutton() const noexcept { return m_defaultbutton.value; }

    void visitProperties(const PropertyVisitor& visitor) const override;

private:
    friend class Base;
    explicit Impl(const pf::zero::Uuid& uuid) noexcept : BaseButton::Impl(s_type, uuid) {}

    Property<bool, PropertyName::defaultbutton> m_defaultbutton;
};

}  // namespace tdom
