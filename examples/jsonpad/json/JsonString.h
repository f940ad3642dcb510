#pragma once

#include <string>
#include <string_view>

#include "JsonScanner.h"

/// How texts stand in JSON.
namespace jsonpad {

/// The text that a JSON string stands for. `token` is a valid one with its quotes. An escaped
/// surrogate without its partner comes as it is.
std::u16string decodeJsonString(std::string_view token);

/// `text` as a JSON string with its quotes, in UTF-8: escapes only what must be (quote, backslash,
/// control characters) and surrogates without a partner, so that decoding gives `text` again.
std::string encodeJsonString(std::u16string_view text);

/// A number that is written as JSON writes numbers, in its own bytes; empty when it is not.
std::string encodeJsonNumber(std::u16string_view text);

/// What a value says: a string's text; a number exactly as it is written; "true", "false", "null";
/// an array or object on one line.
std::u16string decodeJson(JsonKind kind, std::string_view token);

/// Valid JSON on one line: the white space between the tokens goes, everything else stays.
std::u16string compactJson(std::string_view value);

/// Any valid UTF-8 as UTF-16.
std::u16string toUtf16(std::string_view text);

}  // namespace jsonpad
