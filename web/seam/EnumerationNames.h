#pragma once

#include <initializer_list>
#include <string>
#include <unordered_map>
#include <utility>

#include "host/parutil/Error_InvalidEnumValue.h"
#include "toolkit/StringID.h"

namespace DOVA::web {

/// The names by which scripts know an enumeration's values, both ways.
template <class Enumeration>
class EnumerationNames {
public:
    EnumerationNames(std::initializer_list<std::pair<const char*, Enumeration>> names) {
        for (const auto& [name, value] : names) {
            const StringID id = StringID::setStringID(name);
            m_values.emplace(id, value);
            m_names.emplace(value, id);
            m_validNames += (m_validNames.empty() ? "" : " ") + id.text();
        }
    }

    /// Throws parutil::Error_InvalidEnumValue, with all names, for a text that is none of them.
    Enumeration valueOf(const std::string& name) const {
        const auto found = m_values.find(StringID::setStringID(name));
        if (found == m_values.end()) {
            throw parutil::Error_InvalidEnumValue(m_validNames);
        }
        return found->second;
    }

    /// "Invalid" for a value without a name.
    std::string nameOf(Enumeration value) const {
        const auto found = m_names.find(value);
        return found == m_names.end() ? "Invalid" : found->second.text();
    }

private:
    std::unordered_map<StringID, Enumeration> m_values;
    std::unordered_map<Enumeration, StringID> m_names;
    std::string m_validNames;
};

}  // namespace DOVA::web
