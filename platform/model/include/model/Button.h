#pragma once

#include "model/BaseButton.h"
#include "wiro/Export.h"

namespace tdom {

/// A handle to a push button.
class DOVA_PLATFORM_EXPORT Button : public BaseButton {
public:
    class Impl;

    Button() noexcept = default;

    /// A new element in `model`. Empty when `model` is empty or `uuid` is taken there.
    static Button create(const pf::zero::Ref<pf::zero::Model>& model,
                         const pf::zero::Uuid& uuid = pf::zero::Uuid::generate());

    /// REQUIRES: not empty.
    Impl* operator->() const noexcept;

private:
    friend class Base;
    explicit Button(Impl* impl) noexcept;
};

/// A push button, which may be the one that Enter presses.
class DOVA_PLATFORM_EXPORT Button::Impl : public BaseButton::Impl {
public:
    static const Type s_type;

    /// Whether Enter presses this button; false at first. Other buttons are not changed by it.
    void setDefaultbutton(bool isDefault);
    bool isDefaultbutton() const noexcept { return m_defaultbutton; }

    void visitProperties(const PropertyVisitor& visitor) const override;

private:
    friend class Base;
    explicit Impl(const pf::zero::Uuid& uuid) noexcept : BaseButton::Impl(s_type, uuid) {}

    bool m_defaultbutton = false;
};

inline Button::Button(Impl* impl) noexcept : BaseButton(impl) {}

inline Button::Impl* Button::operator->() const noexcept {
    return static_cast<Impl*>(impl());
}

}  // namespace tdom
