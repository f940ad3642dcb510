#include "JsonFile.h"

#include <algorithm>
#include <utility>

#include "JsonError.h"
#include "JsonString.h"

namespace jsonpad {

JsonFile::JsonFile(TextFile file, Content content)
    : m_file(std::move(file)), m_content(std::move(content)) {}

JsonFile JsonFile::load(const std::string& path, FileDoor& door) {
    TextFile file(path, door);
    std::optional<std::string> text = file.read();
    if (!text) {
        throw FileError("cannot open '" + path + "': there is no such file");
    }
    file.requireWritable();
    try {
        return {std::move(file), parse(*std::move(text))};
    } catch (const JsonError& error) {
        throw FileError("cannot read '" + path + "': " + error.what());
    }
}

JsonFile::Content JsonFile::parse(std::string text) {
    Content result;
    for (const JsonMember& member : JsonScanner::scan(text)) {
        const auto offset = static_cast<std::size_t>(member.value.data() - text.data());
        result.values.push_back({offset, member.value.size()});
        result.members.push_back(
            {decodeJsonString(member.key), member.kind, decode(member.kind, member.value)});
    }
    result.text = std::move(text);
    return result;
}

std::u16string JsonFile::decode(Kind kind, std::string_view token) {
    switch (kind) {
        case Kind::String:
            return decodeJsonString(token);
        case Kind::Nested:
            return compactJson(token);
        default:
            return toUtf16(token);
    }
}

bool JsonFile::setString(std::size_t index, std::u16string_view text) {
    return edit(index, Kind::String, text, encodeJsonString(text));
}

bool JsonFile::setNumber(std::size_t index, std::u16string_view text) {
    const bool isAscii =
        std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit < 0x80; });
    std::string token(isAscii ? text.size() : 0, '\0');
    std::transform(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(token.size()),
                   token.begin(), [](char16_t unit) { return static_cast<char>(unit); });
    const bool isNumber = !token.empty() && JsonScanner::numberLength(token) == token.size();
    return isNumber && edit(index, Kind::Number, text, token);
}

bool JsonFile::setBoolean(std::size_t index, bool value) {
    return edit(index, Kind::Boolean, value ? u"true" : u"false", value ? "true" : "false");
}

bool JsonFile::edit(std::size_t index, Kind kind, std::u16string_view value, std::string token) {
    if (index >= members().size() || members()[index].kind != kind) {
        return false;
    }
    if (value == decode(kind, savedToken(index))) {
        m_edits.erase(index);
    } else {
        m_edits[index] = std::move(token);
    }
    m_content.members[index].value = value;
    return true;
}

std::string_view JsonFile::savedToken(std::size_t index) const {
    const Span& span = m_content.values[index];
    return std::string_view(m_content.text).substr(span.offset, span.length);
}

void JsonFile::revert() {
    for (const auto& [index, token] : m_edits) {
        Member& member = m_content.members[index];
        member.value = decode(member.kind, savedToken(index));
    }
    m_edits.clear();
}

std::string JsonFile::text() const {
    std::string result;
    std::size_t copied = 0;
    for (const auto& [index, token] : m_edits) {
        const Span& span = m_content.values[index];
        result.append(m_content.text, copied, span.offset - copied).append(token);
        copied = span.offset + span.length;
    }
    return result.append(m_content.text, copied, std::string::npos);
}

void JsonFile::save(IfChanged ifChanged) {
    const std::optional<std::string> onDisk = m_file.read();
    const bool isOurs = onDisk == m_content.text;
    if (!isOurs && ifChanged == IfChanged::Refuse) {
        throw ChangedOnDisk("'" + m_file.path() + "' was " + (onDisk ? "changed" : "removed") +
                            " by another program");
    }
    if (isOurs && !isModified()) {
        return;
    }
    Content next = parse(text());
    m_file.replaceWith(next.text);
    m_content = std::move(next);
    m_edits.clear();
}

}  // namespace jsonpad
