#pragma once

#include <string>
#include <string_view>

#include "model/Element.h"
#include "wiro/Export.h"

namespace tdom {

/// A handle to a field with one line of text.
class DOVA_PLATFORM_EXPORT Edit : public Element {
public:
    class Impl;

    Edit() noexcept = default;

    /// A new element in `model`. Empty when `model` is empty or `uuid` is taken there.
    static Edit create(const pf::zero::Ref<pf::zero::Model>& model,
                       const pf::zero::Uuid& uuid = pf::zero::Uuid::generate());

    /// REQUIRES: not empty.
    Impl* operator->() const noexcept;

private:
    friend class Base;
    explicit Edit(Impl* impl) noexcept;
};

/// A field with one line of text.
class DOVA_PLATFORM_EXPORT Edit::Impl : public Element::Impl {
public:
    static const Type s_type;

    /// The text in the field.
    void setText(std::u16string_view text);
    const std::u16string& getText() const noexcept { return m_text; }

    /// The text shown while the field is empty.
    void setPlaceholder(std::u16string_view placeholder);
    const std::u16string& getPlaceholder() const noexcept { return m_placeholder; }

    void visitProperties(const PropertyVisitor& visitor) const override;

private:
    friend class Base;
    explicit Impl(const pf::zero::Uuid& uuid) noexcept : Element::Impl(s_type, uuid) {}

    std::u16string m_text;
    std::u16string m_placeholder;
};

inline Edit::Edit(Impl* impl) noexcept : Element(impl) {}

inline Edit::Impl* Edit::operator->() const noexcept {
    return static_cast<Impl*>(impl());
}

}  // namespace tdom
