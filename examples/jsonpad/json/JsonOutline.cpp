#include "JsonOutline.h"

#include <algorithm>
#include <utility>

#include "JsonError.h"
#include "JsonString.h"

namespace jsonpad {

JsonOutline::JsonOutline(std::string text) : m_text(std::move(text)) {
    const std::vector<JsonMember> found = JsonScanner::scan(m_text);
    if (found.size() > rootLimit) {
        const auto offset = found[rootLimit].key.data() - m_text.data();
        throw JsonError(m_text, static_cast<std::size_t>(offset),
                        "the object has " + std::to_string(found.size()) +
                            " members, and a form holds " + std::to_string(rootLimit));
    }
    open(found, root, 1);
}

void JsonOutline::open(const std::vector<JsonMember>& found, std::size_t parent,
                       std::size_t depth) {
    for (const JsonMember& member : found) {
        add(member, parent, depth);
    }
}

void JsonOutline::add(const JsonMember& found, std::size_t parent, std::size_t depth) {
    const bool isNested = found.kind == JsonKind::Object ||
                          (found.kind == JsonKind::List && !hasRoomForList(found.value));
    const JsonKind kind = isNested ? JsonKind::Nested : found.kind;
    const std::size_t index = m_members.size();
    m_spans.push_back(
        {static_cast<std::size_t>(found.value.data() - m_text.data()), found.value.size()});
    m_members.push_back({decodeJsonString(found.key), kind, {}, parent});
    if (found.kind == JsonKind::Object && depth < depthLimit) {
        openObject(found, index, depth + 1);
    }
    if (m_members[index].kind != JsonKind::Object) {
        say(index, decodeJson(kind, found.value));
    }
}

bool JsonOutline::hasRoomForList(std::string_view list) {
    const std::size_t count = JsonScanner::elements(list).size();
    const bool hasRoom = count <= std::min(listLimit, m_room);
    m_room -= hasRoom ? count : 0;
    return hasRoom;
}

void JsonOutline::openObject(const JsonMember& found, std::size_t index, std::size_t depth) {
    const std::vector<JsonMember> inside = JsonScanner::scan(found.value);
    if (!inside.empty() && inside.size() <= m_room) {
        m_room -= inside.size();
        m_members[index].kind = JsonKind::Object;
        open(inside, index, depth);
    }
}

std::string_view JsonOutline::token(std::size_t index) const {
    return std::string_view(m_text).substr(m_spans[index].offset, m_spans[index].length);
}

std::string JsonOutline::textWith(const Edits& edits) const {
    std::string result;
    std::size_t copied = 0;
    for (const auto& [index, token] : edits) {
        const Span& span = m_spans[index];
        result.append(m_text, copied, span.offset - copied).append(token);
        copied = span.offset + span.length;
    }
    return result.append(m_text, copied, std::string::npos);
}

JsonOutline JsonOutline::with(const Edits& edits) const {
    JsonOutline result(*this);
    result.m_text = textWith(edits);
    std::size_t grown = 0;
    for (std::size_t index = 0; index < m_spans.size(); ++index) {
        Span& span = result.m_spans[index];
        span.offset += grown;
        if (const auto edit = edits.find(index); edit != edits.end()) {
            // What shrinks wraps around and comes back with the next addition.
            grown += edit->second.size() - span.length;
            span.length = edit->second.size();
        }
    }
    return result;
}

}  // namespace jsonpad
