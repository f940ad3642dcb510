#pragma once

#include "model/BaseButton.h"
#include "wiro/Export.h"

namespace tdom {

/// A handle to a check box.
class DOVA_PLATFORM_EXPORT CheckBox : public BaseButton {
public:
    class Impl;

    CheckBox() noexcept = default;

    /// A new element in `model`, on or off from the start. Empty when `model` is empty or `uuid` is
    /// taken there. An element that starts on is one batch: its creation and the property.
    static CheckBox create(const pf::zero::Ref<pf::zero::Model>& model,
                           const pf::zero::Uuid& uuid = pf::zero::Uuid::generate(),
                           bool checked = false);

    /// REQUIRES: not empty.
    Impl* operator->() const noexcept;

private:
    friend class Base;
    explicit CheckBox(Impl* impl) noexcept;
};

/// A check box; it adds nothing to what buttons share.
class DOVA_PLATFORM_EXPORT CheckBox::Impl : public BaseButton::Impl {
public:
    static const Type s_type;

private:
    friend class Base;
    explicit Impl(const pf::zero::Uuid& uuid) noexcept : BaseButton::Impl(s_type, uuid) {}
};

inline CheckBox::CheckBox(Impl* impl) noexcept : BaseButton(impl) {}

inline CheckBox::Impl* CheckBox::operator->() const noexcept {
    return static_cast<Impl*>(impl());
}

}  // namespace tdom
