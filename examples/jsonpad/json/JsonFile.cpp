#include "JsonFile.h"

#include <utility>

#include "JsonError.h"
#include "JsonString.h"

namespace jsonpad {

JsonFile::JsonFile(TextFile file, JsonOutline outline)
    : m_file(std::move(file)), m_outline(std::move(outline)) {}

JsonFile JsonFile::load(const std::string& path, FileDoor& door) {
    TextFile file(path, door);
    std::optional<std::string> text = file.read();
    if (!text) {
        throw FileError("cannot open '" + path + "': there is no such file");
    }
    file.requireWritable();
    try {
        return {std::move(file), JsonOutline(*std::move(text))};
    } catch (const JsonError& error) {
        throw FileError("cannot read '" + path + "': " + error.what());
    }
}

bool JsonFile::setString(std::size_t index, std::u16string_view text) {
    return edit(index, Kind::String, text, encodeJsonString(text));
}

bool JsonFile::setNumber(std::size_t index, std::u16string_view text) {
    std::string token = encodeJsonNumber(text);
    return !token.empty() && edit(index, Kind::Number, text, std::move(token));
}

bool JsonFile::setBoolean(std::size_t index, bool value) {
    return edit(index, Kind::Boolean, value ? u"true" : u"false", value ? "true" : "false");
}

bool JsonFile::setList(std::size_t index, const JsonList& list) {
    std::string token = list.text();
    const std::u16string value = compactJson(token);
    return edit(index, Kind::List, value, std::move(token));
}

bool JsonFile::edit(std::size_t index, Kind kind, std::u16string_view value, std::string token) {
    if (index >= members().size() || members()[index].kind != kind) {
        return false;
    }
    if (value == decodeJson(kind, savedToken(index))) {
        m_edits.erase(index);
    } else {
        m_edits[index] = std::move(token);
    }
    m_outline.say(index, std::u16string(value));
    return true;
}

void JsonFile::revert(std::size_t index) {
    if (m_edits.erase(index) > 0) {
        m_outline.say(index, decodeJson(members()[index].kind, savedToken(index)));
    }
}

void JsonFile::revert() {
    while (isModified()) {
        revert(m_edits.begin()->first);
    }
}

void JsonFile::save(IfChanged ifChanged) {
    const std::optional<std::string> onDisk = m_file.read();
    const bool isOurs = onDisk == m_outline.text();
    if (!isOurs && ifChanged == IfChanged::Refuse) {
        throw ChangedOnDisk("'" + m_file.path() + "' was " + (onDisk ? "changed" : "removed") +
                            " by another program");
    }
    if (isOurs && !isModified()) {
        return;
    }
    JsonOutline next = m_outline.with(m_edits);
    m_file.replaceWith(next.text());
    m_outline = std::move(next);
    m_edits.clear();
}

}  // namespace jsonpad
