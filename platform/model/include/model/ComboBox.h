#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/Element.h"
#include "model/Export.h"
#include "model/PrimitiveSequence.h"
#include "model/PropertyDefault.h"
#include "model/PropertyName.h"

namespace tdom {

/// A handle to a list of items with a current one.
class DOVA_MODEL_EXPORT ComboBox : public KindOf<ComboBox, Element> {
public:
    class Impl;
};

/// Items, the position of the current one, and the text of the field. No setter changes another
/// property; an index is not compared with the number of items.
class DOVA_MODEL_EXPORT ComboBox::Impl : public Element::Impl {
public:
    using Items = pf::zero::PrimitiveSequence<std::u16string>;

    static const Type s_type;

    /// The items, plain texts in their order; none at first. The sequence belongs to the element.
    const Items& getItems() const noexcept { return m_items; }
    /// The same to change them; each call on the sequence is one change.
    Items& getItemsMutable() noexcept { return m_items; }

    /// The position of the current item, counted from 0; -1 for none, as at first.
    void setCurrentindex(std::int32_t index) { write(m_currentindex, index); }
    std::int32_t getCurrentindex() const noexcept { return m_currentindex.value; }

    /// The text in the field.
    void setText(std::u16string_view text) { write(m_text, text); }
    const std::u16string& getText() const noexcept { return m_text.value; }

    /// The text shown while the field is empty.
    void setPlaceholder(std::u16string_view placeholder) { write(m_placeholder, placeholder); }
    const std::u16string& getPlaceholder() const noexcept { return m_placeholder.value; }

    /// Whether the user may type in the field; false at first.
    void setEditable(bool editable) { write(m_editable, editable); }
    bool isEditable() const noexcept { return m_editable.value; }

    void visitProperties(const PropertyVisitor& visitor) const override;

private:
    friend class Base;
    explicit Impl(const pf::zero::Uuid& uuid) noexcept : Element::Impl(s_type, uuid) {}

    Property<std::u16string, PropertyName::text> m_text;
    Property<std::u16string, PropertyName::placeholder> m_placeholder;
    Property<bool, PropertyName::editable> m_editable;
    Property<std::int32_t, PropertyName::currentindex> m_currentindex{
        PropertyDefault::currentindex};
    Items m_items{*this, PropertyName::entries};
};

}  // namespace tdom
