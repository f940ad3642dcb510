#include "Document.h"

#include <algorithm>
#include <utility>

#include "json/JsonString.h"

namespace jsonpad {

Document::Document(JsonFile file) : m_file(std::move(file)) {
    for (std::size_t member = 0; member < members().size(); ++member) {
        if (members()[member].kind == JsonKind::List) {
            m_lists.emplace(member, m_file.savedToken(member));
        }
    }
}

const std::vector<JsonList::Element>& Document::elements(std::size_t member) const {
    return m_lists.at(member).elements();
}

const JsonList::Element* Document::element(const Place& place) const {
    const auto list = place.element ? m_lists.find(place.member) : m_lists.end();
    const auto at = list == m_lists.end() ? std::nullopt : list->second.find(*place.element);
    return at ? &list->second.elements()[*at] : nullptr;
}

bool Document::contains(const Place& place) const {
    return place.element ? element(place) != nullptr : place.member < members().size();
}

JsonKind Document::kind(const Place& place) const {
    return place.element ? element(place)->kind : members()[place.member].kind;
}

const std::u16string& Document::text(const Place& place) const {
    static const std::u16string none;
    if (place.element) {
        const JsonList::Element* const found = element(place);
        return found ? found->text : none;
    }
    const auto typed = m_notNumbers.find(place.member);
    return typed != m_notNumbers.end() ? typed->second : members()[place.member].value;
}

bool Document::isValid(const Place& place) const {
    if (place.element) {
        const JsonList::Element* const found = element(place);
        return !found || found->isValid;
    }
    return m_invalid.count(place.member) == 0;
}

bool Document::enter(const Place& place, const std::u16string& text) {
    if (!contains(place)) {
        return false;
    }
    if (place.element) {
        JsonList& list = m_lists.at(place.member);
        const bool isValid = list.set(*list.find(*place.element), text);
        takeList(place.member);
        return isValid;
    }
    return kind(place) == JsonKind::String ? m_file.setString(place.member, text)
                                           : enterNumber(place.member, text);
}

bool Document::turn(const Place& place, bool isOn) {
    return place.element ? enter(place, isOn ? u"true" : u"false")
                         : m_file.setBoolean(place.member, isOn);
}

bool Document::enterNumber(std::size_t member, const std::u16string& text) {
    if (m_file.setNumber(member, text)) {
        m_notNumbers.erase(member);
        m_invalid.erase(member);
        return true;
    }
    // Not "the number typed so far": nobody asked for half of a number to be saved.
    m_file.revert(member);
    m_notNumbers[member] = text;
    m_invalid.insert(member);
    return false;
}

void Document::addElement(std::size_t list) {
    m_lists.at(list).add();
    takeList(list);
}

void Document::removeElement(std::size_t list, JsonList::Id element) {
    JsonList& edited = m_lists.at(list);
    if (const auto at = edited.find(element)) {
        edited.remove(*at);
        takeList(list);
    }
}

void Document::takeList(std::size_t member) {
    const JsonList& list = m_lists.at(member);
    if (list.isValid()) {
        m_invalid.erase(member);
    } else {
        m_invalid.insert(member);
    }
    m_file.setList(member, list);
}

std::vector<std::size_t> Document::modified() const {
    std::vector<std::size_t> result;
    for (std::size_t member = 0; member < members().size(); ++member) {
        if (m_file.isModified(member) || m_invalid.count(member) > 0) {
            result.push_back(member);
        }
    }
    return result;
}

std::vector<std::u16string> Document::path(std::size_t member) const {
    std::vector<std::u16string> result;
    for (std::size_t at = member; at != JsonOutline::root; at = members()[at].parent) {
        result.insert(result.begin(), members()[at].key);
    }
    return result;
}

std::string Document::name(std::size_t member) const {
    std::string result;
    for (const std::u16string& key : path(member)) {
        result += (result.empty() ? "" : ".") + encodeJsonString(key);
    }
    return result;
}

std::string Document::names(const std::vector<std::size_t>& listed) const {
    constexpr std::size_t most = 3;
    std::string result;
    for (std::size_t index = 0; index < std::min(listed.size(), most); ++index) {
        result += (index == 0 ? "" : ", ") + name(listed[index]);
    }
    return listed.size() <= most
               ? result
               : result + " and " + std::to_string(listed.size() - most) + " more";
}

void Document::save(JsonFile::IfChanged ifChanged) {
    const std::vector<std::size_t> written = modified();
    m_file.save(ifChanged);
    for (const std::size_t member : written) {
        if (const auto list = m_lists.find(member); list != m_lists.end()) {
            list->second.markSaved();
        }
    }
}

std::vector<std::size_t> Document::revert() {
    std::vector<std::size_t> changed = modified();
    m_file.revert();
    m_notNumbers.clear();
    m_invalid.clear();
    for (const std::size_t member : changed) {
        if (const auto list = m_lists.find(member); list != m_lists.end()) {
            list->second = JsonList(m_file.savedToken(member), list->second.nextId());
        }
    }
    return changed;
}

}  // namespace jsonpad
