#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/Array.h"

namespace host {

/// The fields of a struct in the order of their names, found by name in constant time.
class StructFields {
public:
    /// Fields of these names, each once, at the place where it stands first; all values null.
    explicit StructFields(const std::vector<std::u16string_view>& names);

    /// The same fields, their values duplicated.
    StructFields(const StructFields& other);
    StructFields& operator=(const StructFields&) = delete;
    ~StructFields() = default;

    const std::vector<std::u16string>& names() const noexcept { return m_names; }

    /// The value of the field; null when there is no such field. The other one lets it be set.
    const ArrayPointer* find(std::u16string_view name) const noexcept;
    ArrayPointer* find(std::u16string_view name) noexcept;

private:
    std::vector<std::u16string> m_names;
    std::vector<ArrayPointer> m_values;                             // in the order of the names
    std::unordered_map<std::u16string_view, std::size_t> m_places;  // the keys lie in m_names
};

}  // namespace host
