#pragma once

#include "model/BaseButton.h"
#include "model/Export.h"

namespace tdom {

/// A handle to a check box.
class DOVA_MODEL_EXPORT CheckBox : public HandleOf<CheckBox, BaseButton> {
public:
    class Impl;

    /// A new element in `model` that is on or off from the start. Empty when `model` is empty or
    /// has `uuid` already. For an element that starts on, its creation and the property are one
    /// batch.
    static CheckBox create(const pf::zero::Ref<pf::zero::Model>& model,
                           const pf::zero::Uuid& uuid = pf::zero::Uuid::generate(),
                           bool checked = false);
};

/// A check box; it adds nothing to what buttons share.
class DOVA_MODEL_EXPORT CheckBox::Impl : public BaseButton::Impl {
public:
    static const Type s_type;

private:
    friend class Base;
    explicit Impl(const pf::zero::Uuid& uuid) noexcept : BaseButton::Impl(s_type, uuid) {}
};

}  // namespace tdom
