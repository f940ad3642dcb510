#include "model/PropertyDefault.h"

#include "model/PropertyName.h"

namespace tdom::PropertyDefault {

bool is(std::string_view property, const pf::zero::Value& value) noexcept {
    if (const auto* flag = std::get_if<bool>(&value)) {
        // Whether the user may operate an element starts unset, so that both flags are a change.
        return property != PropertyName::enable &&
               *flag == (property == PropertyName::visible && visible);
    }
    if (const auto* number = std::get_if<std::int32_t>(&value)) {
        return *number == (property == PropertyName::currentindex ? currentindex : 0);
    }
    if (const auto* text = std::get_if<std::u16string>(&value)) {
        return text->empty();
    }
    const auto* sequence = std::get_if<pf::zero::SequenceEdit>(&value);
    return sequence == nullptr || sequence->inserted.empty();
}

}  // namespace tdom::PropertyDefault
