#include "JsonList.h"

#include <algorithm>
#include <utility>

#include "JsonString.h"

namespace jsonpad {

JsonList::JsonList(std::string_view array, Id firstId) : m_nextId(firstId) {
    std::size_t at = 1;
    for (const JsonMember& found : JsonScanner::elements(array)) {
        const auto start = static_cast<std::size_t>(found.value.data() - array.data());
        m_gaps.emplace_back(array.substr(at, start - at));
        at = start + found.value.size();
        const std::string token(found.value);
        m_elements.push_back(
            {m_nextId++, found.kind, decodeJson(found.kind, token), true, token, m_saved.size()});
        m_saved.push_back(token);
    }
    m_gaps.emplace_back(array.substr(at, array.size() - 1 - at));
}

std::optional<std::size_t> JsonList::find(Id id) const {
    const auto found = std::find_if(m_elements.begin(), m_elements.end(),
                                    [id](const Element& element) { return element.id == id; });
    return found == m_elements.end()
               ? std::nullopt
               : std::optional(static_cast<std::size_t>(found - m_elements.begin()));
}

bool JsonList::set(std::size_t index, const std::u16string& text) {
    Element& element = m_elements[index];
    element.text = text;
    std::string token = tokenOf(element);
    element.isValid = !token.empty();
    if (!element.isValid && element.origin) {
        token = m_saved[*element.origin];
    }
    element.token = std::move(token);
    return element.isValid;
}

std::string JsonList::tokenOf(const Element& element) const {
    if (element.origin && element.text == decodeJson(element.kind, m_saved[*element.origin])) {
        return m_saved[*element.origin];
    }
    switch (element.kind) {
        case JsonKind::String:
            return encodeJsonString(element.text);
        case JsonKind::Number:
            return encodeJsonNumber(element.text);
        default:
            return element.text == u"true" ? "true" : element.text == u"false" ? "false" : "";
    }
}

void JsonList::add() {
    const JsonKind last = m_elements.empty() ? JsonKind::String : m_elements.back().kind;
    const JsonKind kind = last == JsonKind::Null ? JsonKind::String : last;
    m_elements.push_back({m_nextId++, kind, {}});
    set(m_elements.size() - 1, kind == JsonKind::Number    ? u"0"
                               : kind == JsonKind::Boolean ? u"false"
                                                           : u"");
}

void JsonList::remove(std::size_t index) {
    m_elements.erase(m_elements.begin() + static_cast<std::ptrdiff_t>(index));
}

bool JsonList::isValid() const {
    return std::all_of(m_elements.begin(), m_elements.end(),
                       [](const Element& element) { return element.isValid; });
}

std::string JsonList::separator(const Element& element) const {
    if (element.origin.value_or(0) > 0) {
        return m_gaps[*element.origin];
    }
    if (m_saved.size() > 1) {
        return m_gaps[m_saved.size() - 1];
    }
    const bool isUpright = m_saved.size() == 1 && m_gaps.front().find('\n') != std::string::npos;
    return "," + (isUpright ? m_gaps.front() : " ");
}

std::string JsonList::text() const {
    std::string result;
    for (const Element& element : m_elements) {
        if (!element.token.empty()) {
            result += (result.empty() ? m_gaps.front() : separator(element)) + element.token;
        }
    }
    if (result.empty()) {
        return m_saved.empty() ? "[" + m_gaps.front() + "]" : "[]";
    }
    return "[" + result + (m_saved.empty() ? "" : m_gaps.back()) + "]";
}

void JsonList::markSaved() {
    JsonList saved(text());
    std::size_t next = 0;
    for (Element& element : m_elements) {
        element.origin = element.token.empty() ? std::nullopt : std::optional<std::size_t>(next++);
    }
    m_saved = std::move(saved.m_saved);
    m_gaps = std::move(saved.m_gaps);
}

}  // namespace jsonpad
