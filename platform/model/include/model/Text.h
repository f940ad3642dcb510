#pragma once

#include <string>
#include <string_view>

#include "model/Element.h"
#include "model/Export.h"

namespace tdom {

/// A handle to a text.
class DOVA_MODEL_EXPORT Text : public KindOf<Text, Element> {
public:
    class Impl;
};

/// A text that the user reads.
class DOVA_MODEL_EXPORT Text::Impl : public Element::Impl {
public:
    static const Type s_type;

    /// The text, plain.
    void setText(std::u16string_view text) { write(m_text, text); }
    const std::u16string& getText() const noexcept { return m_text.value; }

    void visitProperties(const PropertyVisitor& visitor) const override;

private:
    friend class Base;
    explicit Impl(const pf::zero::Uuid& uuid) noexcept : Element::Impl(s_type, uuid) {}

    Property<std::u16string, PropertyName::text> m_text;
};

}  // namespace tdom
