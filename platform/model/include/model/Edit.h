#pragma once

#include <string>
#include <string_view>

#include "model/Element.h"
#include "model/Export.h"

namespace tdom {

/// A handle to a field with one line of text.
class DOVA_MODEL_EXPORT Edit : public KindOf<Edit, Element> {
public:
    class Impl;
};

/// A field in which the user types one line of text.
class DOVA_MODEL_EXPORT Edit::Impl : public Element::Impl {
public:
    static const Type s_type;

    /// The text in the field.
    void setText(std::u16string_view text) { write(m_text, text); }
    const std::u16string& getText() const noexcept { return m_text.value; }

    /// The text shown while the field is empty.
    void setPlaceholder(std::u16string_view placeholder) { write(m_placeholder, placeholder); }
    const std::u16string& getPlaceholder() const noexcept { return m_placeholder.value; }

    void visitProperties(const PropertyVisitor& visitor) const override;

private:
    friend class Base;
    explicit Impl(const pf::zero::Uuid& uuid) noexcept : Element::Impl(s_type, uuid) {}

    Property<std::u16string, PropertyName::text> m_text;
    Property<std::u16string, PropertyName::placeholder> m_placeholder;
};

}  // namespace tdom
