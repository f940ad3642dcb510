#include "StructFields.h"

#include <utility>

namespace host {

StructFields::StructFields(const std::vector<std::u16string_view>& names) {
    // No name may move once its view is a key.
    m_names.reserve(names.size());
    for (const std::u16string_view name : names) {
        if (m_places.count(name) == 0) {
            m_names.emplace_back(name);
            m_places.emplace(m_names.back(), m_names.size() - 1);
        }
    }
    m_values.resize(m_names.size());
}

StructFields::StructFields(const StructFields& other)
    : StructFields(std::vector<std::u16string_view>(other.m_names.begin(), other.m_names.end())) {
    for (std::size_t place = 0; place < m_values.size(); ++place) {
        m_values[place].reset(kaDuplicateArray(other.m_values[place].get()));
    }
}

const ArrayPointer* StructFields::find(std::u16string_view name) const noexcept {
    const auto place = m_places.find(name);
    return place != m_places.end() ? &m_values[place->second] : nullptr;
}

ArrayPointer* StructFields::find(std::u16string_view name) noexcept {
    return const_cast<ArrayPointer*>(std::as_const(*this).find(name));
}

}  // namespace host
