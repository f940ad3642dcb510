#pragma once

#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "model/Button.h"
#include "model/CheckBox.h"
#include "model/ComboBox.h"
#include "model/Edit.h"
#include "model/Text.h"

/// The elements of the model document as the widgets use them: one table of their properties.
namespace DOVA::seam {

/// A property that every element of a kind has. Of an object without such an element the value is
/// empty, or what the caller gives instead, and writing does nothing.
template <class Kind, auto Get, auto Set>
struct ElementProperty {
    using Value = std::decay_t<std::invoke_result_t<decltype(Get), const typename Kind::Impl&>>;

    static Value read(const tdom::Base& element, const Value& otherwise = Value()) {
        const auto own = tdom::as<Kind>(element);
        return own ? (own.operator->()->*Get)() : otherwise;
    }
    /// The value as a `Wide`, which takes a view of a text.
    template <class Wide>
    static Wide readAs(const tdom::Base& element) {
        const auto own = tdom::as<Kind>(element);
        if constexpr (std::is_same_v<Value, std::u16string>) {
            return own ? Wide(std::u16string_view((own.operator->()->*Get)()))
                       : Wide(std::u16string_view());
        } else {
            return Wide(own ? (own.operator->()->*Get)() : Value());
        }
    }
    /// Whether there is such an element and its value is this.
    template <class Given>
    static bool holds(const tdom::Base& element, const Given& value) {
        const auto own = tdom::as<Kind>(element);
        return own && (own.operator->()->*Get)() == value;
    }
    template <class Given>
    static void write(const tdom::Base& element, const Given& value) {
        if (const auto own = tdom::as<Kind>(element)) {
            (own.operator->()->*Set)(value);
        }
    }
};

namespace kind {
using Element = tdom::Element::Impl;
using BaseButton = tdom::BaseButton::Impl;
using Button = tdom::Button::Impl;
using ComboBox = tdom::ComboBox::Impl;
using Edit = tdom::Edit::Impl;
using Text = tdom::Text::Impl;
}  // namespace kind

using Visible =
    ElementProperty<tdom::Element, &kind::Element::isVisible, &kind::Element::setVisible>;
using Enabled =
    ElementProperty<tdom::Element, &kind::Element::isEnabled, &kind::Element::setEnabled>;
using Tooltip =
    ElementProperty<tdom::Element, &kind::Element::getTooltip, &kind::Element::setTooltip>;
using Label =
    ElementProperty<tdom::BaseButton, &kind::BaseButton::getLabel, &kind::BaseButton::setLabel>;
using IconFile =
    ElementProperty<tdom::BaseButton, &kind::BaseButton::getIcon, &kind::BaseButton::setIcon>;
using Checkable = ElementProperty<tdom::BaseButton, &kind::BaseButton::isCheckable,
                                  &kind::BaseButton::setCheckable>;
using Checked =
    ElementProperty<tdom::BaseButton, &kind::BaseButton::isChecked, &kind::BaseButton::setChecked>;
using DefaultButton =
    ElementProperty<tdom::Button, &kind::Button::isDefaultbutton, &kind::Button::setDefaultbutton>;
using EditText = ElementProperty<tdom::Edit, &kind::Edit::getText, &kind::Edit::setText>;
using EditPlaceholder =
    ElementProperty<tdom::Edit, &kind::Edit::getPlaceholder, &kind::Edit::setPlaceholder>;
using StaticText = ElementProperty<tdom::Text, &kind::Text::getText, &kind::Text::setText>;
using FieldText =
    ElementProperty<tdom::ComboBox, &kind::ComboBox::getText, &kind::ComboBox::setText>;
using FieldPlaceholder = ElementProperty<tdom::ComboBox, &kind::ComboBox::getPlaceholder,
                                         &kind::ComboBox::setPlaceholder>;
using Editable =
    ElementProperty<tdom::ComboBox, &kind::ComboBox::isEditable, &kind::ComboBox::setEditable>;
using CurrentIndex = ElementProperty<tdom::ComboBox, &kind::ComboBox::getCurrentindex,
                                     &kind::ComboBox::setCurrentindex>;

/// The items of a combo box's element; none without one. Each call but append is one change.
namespace items {
const std::vector<std::u16string>& all(const tdom::Base& element);
/// A change for each.
void append(const tdom::Base& element, const std::vector<std::u16string>& more);
void insert(const tdom::Base& element, std::size_t index, const std::vector<std::u16string>& more);
void erase(const tdom::Base& element, std::size_t index);
void clear(const tdom::Base& element);
}  // namespace items

}  // namespace DOVA::seam
