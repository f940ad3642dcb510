#pragma once

#include <QJsonDocument>
#include <QJsonValue>
#include <cstddef>
#include <optional>
#include <string>

#include "scripting/JSONFormat.h"
#include "scripting/JSONType.h"

namespace DOVA::web {

/// True if a text or a key of so many code units is short enough for Qt, whose sizes are ints: the
/// text as bytes, the values in it and what grows by doubling, too. Otherwise prints the parser's
/// message.
bool fits(std::size_t units);
inline bool fits(const std::u16string& text) {
    return fits(text.size());
}

/// The document of a text; the empty one, and the parser's message on the console, if it is none.
QJsonDocument parseText(const std::u16string& text);
/// The value that a text stands for: its object or array, otherwise Null.
QJsonValue valueFromText(const std::u16string& text);
/// The same, to become an element: none, and the parser's message, if the text is too long or the
/// element would be too deep.
std::optional<QJsonValue> elementFromText(const std::u16string& text);

/// Prints the parser's message for what is wrong with a value that no parser has seen.
void printError(QJsonParseError::ParseError error);

/// The document of an array or object; the empty one for every other value.
QJsonDocument documentOf(const QJsonValue& value);
/// The text of a document; empty for the empty one.
std::u16string writeText(const QJsonDocument& document, JSONFormat format);

JSONType typeOf(const QJsonValue& value);

}  // namespace DOVA::web
