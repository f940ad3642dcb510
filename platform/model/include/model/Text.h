#pragma once

#include <string>
#include <string_view>

#include "model/Element.h"
#include "wiro/Export.h"

namespace tdom {

/// A handle to a text that the user reads.
class DOVA_PLATFORM_EXPORT Text : public Element {
public:
    class Impl;

    Text() noexcept = default;

    /// A new element in `model`. Empty when `model` is empty or `uuid` is taken there.
    static Text create(const pf::zero::Ref<pf::zero::Model>& model,
                       const pf::zero::Uuid& uuid = pf::zero::Uuid::generate());

    /// REQUIRES: not empty.
    Impl* operator->() const noexcept;

private:
    friend class Base;
    explicit Text(Impl* impl) noexcept;
};

/// A text that the user reads.
class DOVA_PLATFORM_EXPORT Text::Impl : public Element::Impl {
public:
    static const Type s_type;

    /// The text, plain.
    void setText(std::u16string_view text);
    const std::u16string& getText() const noexcept { return m_text; }

    void visitProperties(const PropertyVisitor& visitor) const override;

private:
    friend class Base;
    explicit Impl(const pf::zero::Uuid& uuid) noexcept : Element::Impl(s_type, uuid) {}

    std::u16string m_text;
};

inline Text::Text(Impl* impl) noexcept : Element(impl) {}

inline Text::Impl* Text::operator->() const noexcept {
    return static_cast<Impl*>(impl());
}

}  // namespace tdom
