#include "Document.h"

#include <algorithm>

#include "JsonString.h"

namespace jsonpad {

const std::u16string& Document::text(std::size_t member) const {
    const auto typed = m_notNumbers.find(member);
    return typed != m_notNumbers.end() ? typed->second : members()[member].value;
}

void Document::remember(std::size_t member) {
    m_saved.try_emplace(member, members()[member].value);
}

bool Document::enter(std::size_t member, const std::u16string& text) {
    remember(member);
    if (members()[member].kind == JsonKind::String) {
        return m_file.setString(member, text);
    }
    if (m_file.setNumber(member, text)) {
        m_notNumbers.erase(member);
        return true;
    }
    // Not "the number typed so far": nobody asked for half of a number to be saved.
    m_file.setNumber(member, m_saved.at(member));
    m_notNumbers[member] = text;
    return false;
}

bool Document::enter(std::size_t member, bool value) {
    remember(member);
    return m_file.setBoolean(member, value);
}

std::vector<std::size_t> Document::modified() const {
    std::vector<std::size_t> result;
    for (const auto& [member, saved] : m_saved) {
        if (text(member) != saved) {
            result.push_back(member);
        }
    }
    return result;
}

std::string Document::names(const std::vector<std::size_t>& listed) const {
    constexpr std::size_t most = 3;
    std::string result;
    for (std::size_t index = 0; index < std::min(listed.size(), most); ++index) {
        result += (index == 0 ? "" : ", ") + encodeJsonString(members()[listed[index]].key);
    }
    return listed.size() <= most
               ? result
               : result + " and " + std::to_string(listed.size() - most) + " more";
}

void Document::save(JsonFile::IfChanged ifChanged) {
    m_file.save(ifChanged);
    m_saved.clear();
    for (const auto& [member, typed] : m_notNumbers) {
        remember(member);
    }
}

std::vector<std::size_t> Document::revert() {
    const std::vector<std::size_t> changed = modified();
    m_file.revert();
    m_notNumbers.clear();
    m_saved.clear();
    return changed;
}

}  // namespace jsonpad
