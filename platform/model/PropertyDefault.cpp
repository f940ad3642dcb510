#include "model/PropertyDefault.h"

#include <optional>

namespace tdom::PropertyDefault {

namespace {

/// What the table says of the property, else `usual`.
template <class Table, class Start>
Start startOf(const Table& table, std::string_view property, Start usual) noexcept {
    for (const auto& [name, start] : table) {
        if (name == property) {
            return start;
        }
    }
    return usual;
}

}  // namespace

bool is(std::string_view property, const pf::zero::Value& value) noexcept {
    if (const auto* flag = std::get_if<bool>(&value)) {
        return *flag == startOf(flags, property, std::optional(false));
    }
    if (const auto* number = std::get_if<std::int32_t>(&value)) {
        return *number == startOf(numbers, property, 0);
    }
    if (const auto* text = std::get_if<std::u16string>(&value)) {
        return text->empty();
    }
    const auto* sequence = std::get_if<pf::zero::SequenceEdit>(&value);
    return sequence == nullptr || sequence->inserted.empty();
}

}  // namespace tdom::PropertyDefault
