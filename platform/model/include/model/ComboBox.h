#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/Element.h"
#include "model/PrimitiveSequence.h"
#include "model/PropertyDefault.h"
#include "model/PropertyName.h"
#include "wiro/Export.h"

namespace tdom {

/// A handle to a list of items of which one may be current.
class DOVA_PLATFORM_EXPORT ComboBox : public Element {
public:
    class Impl;

    ComboBox() noexcept = default;

    /// A new element in `model`. Empty when `model` is empty or `uuid` is taken there.
    static ComboBox create(const pf::zero::Ref<pf::zero::Model>& model,
                           const pf::zero::Uuid& uuid = pf::zero::Uuid::generate());

    /// REQUIRES: not empty.
    Impl* operator->() const noexcept;

private:
    friend class Base;
    explicit ComboBox(Impl* impl) noexcept;
};

/// Items, which of them is current, and a field that may be edited. Each is on its own: no setter
/// changes another property, and an index is not compared with the number of items.
class DOVA_PLATFORM_EXPORT ComboBox::Impl : public Element::Impl {
public:
    using Items = pf::zero::PrimitiveSequence<std::u16string>;

    static const Type s_type;

    /// The items, plain texts in their order; none at first. The sequence belongs to the element.
    const Items& getItems() const noexcept { return m_items; }
    /// For changing them; each call on the sequence is one change, however many items it moves.
    Items& getItemsMutable() noexcept { return m_items; }

    /// The position of the current item, from 0; -1, which is the value at first, for none.
    void setCurrentindex(std::int32_t index);
    std::int32_t getCurrentindex() const noexcept { return m_currentindex; }

    /// The text in the field.
    void setText(std::u16string_view text);
    const std::u16string& getText() const noexcept { return m_text; }

    /// The text shown while the field is empty.
    void setPlaceholder(std::u16string_view placeholder);
    const std::u16string& getPlaceholder() const noexcept { return m_placeholder; }

    /// Whether the user may type in the field; false at first.
    void setEditable(bool editable);
    bool isEditable() const noexcept { return m_editable; }

    void visitProperties(const PropertyVisitor& visitor) const override;

private:
    friend class Base;
    explicit Impl(const pf::zero::Uuid& uuid) noexcept : Element::Impl(s_type, uuid) {}

    std::u16string m_text;
    std::u16string m_placeholder;
    bool m_editable = false;
    std::int32_t m_currentindex = PropertyDefault::currentindex;
    Items m_items{*this, PropertyName::entries};
};

inline ComboBox::ComboBox(Impl* impl) noexcept : Element(impl) {}

inline ComboBox::Impl* ComboBox::operator->() const noexcept {
    return static_cast<Impl*>(impl());
}

}  // namespace tdom
