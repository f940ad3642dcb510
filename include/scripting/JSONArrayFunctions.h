#pragma once

#include <QJsonArray>
#include <string>

#include "core/WebExport.h"
#include "scripting/JSONFormat.h"
#include "scripting/JSONType.h"

/// What scripts do with JSON arrays, for the host and the toolkit to call. Texts are UTF-16 and may
/// hold anything; indices count from 0. All of it throws only when memory runs out. Different
/// threads may use different arrays.
///
/// Parsing. A text is a JSON document (RFC 8259, nested at most 1024 deep): an object or an array.
/// It goes to the parser through the host's local 8-bit codec: a character that the codec does not
/// have, in UTF-8 half a surrogate pair, becomes a question mark, and bytes that are no UTF-8 are
/// refused. A text that is no document prints the parser's message on the host's console and counts
/// as an empty document. The message is printed as a format, with nothing added: it ends without a
/// line break, and a percent sign in a translated message would act as one of a format. A text of
/// more than 268,304,384 code units (2^28 less 2^17, the most that Qt holds as an array of digits)
/// is refused unread as too large: an edit changes nothing then, not even to Null. If an object
/// repeats a key, the last value stands.
///
/// Beyond RFC 8259 the parser takes control characters in texts as they are, a backslash before a
/// character that needs none for that character ("\q" for "q"), and numbers with no digit on one
/// side of the point (1. and .5); it refuses numbers that a double does not hold (1e309, 1e-400).
///
/// Nesting. What edits make has at most 1024 levels, too. A text with exactly 1024 is a document
/// but cannot become an element: an edit with it prints the parser's message and changes nothing.
///
/// Writing. Only arrays and objects can be written. The result comes back through the same codec.
namespace DOVA::web {

/// The array that a text stands for; empty if it stands for an object, or for nothing.
DOVA_WEB_EXPORT QJsonArray arrayFromJSON(const std::u16string& text);

/// The text of an array.
DOVA_WEB_EXPORT std::u16string arrayToJSON(const QJsonArray& array, JSONFormat format);
/// The same, indented.
DOVA_WEB_EXPORT std::u16string arrayToJSONIndented(const QJsonArray& array);

/// Puts what a text stands for before the element `index`, as one element, even an array; Null for
/// a text that is no document. The index of the end, the array's length, is allowed. Any other
/// index outside prints "Array index out of bounds for insert", without a line break; then nothing
/// changes and the text is not looked at.
DOVA_WEB_EXPORT void arrayInsertFromJSON(QJsonArray& array, int index, const std::u16string& text);
/// The same at the end.
DOVA_WEB_EXPORT void arrayAppendFromJSON(QJsonArray& array, const std::u16string& text);
/// The same at the front.
DOVA_WEB_EXPORT void arrayPrependFromJSON(QJsonArray& array, const std::u16string& text);

/// Puts what a text stands for, Null for a text that is no document, in the place of the element
/// `index`. An index outside prints "Array index out of bounds for replace", without a line break;
/// then nothing changes and the text is not looked at.
DOVA_WEB_EXPORT void arrayReplaceFromJSON(QJsonArray& array, int index, const std::u16string& text);

/// Whether an element equals what a text stands for. A text that is no document stands for Null,
/// and is found in an array that holds Null.
DOVA_WEB_EXPORT bool arrayContainsFromJSON(const QJsonArray& array, const std::u16string& text);

/// The text of the element `index`, if it is an array or an object; empty for every other element
/// and for an index outside, without a message.
DOVA_WEB_EXPORT std::u16string arrayValueToJSON(const QJsonArray& array, int index,
                                                JSONFormat format);
/// The same, indented.
DOVA_WEB_EXPORT std::u16string arrayValueToJSONIndented(const QJsonArray& array, int index);

/// The kind of the element `index`; UndefinedType for an index outside, without a message.
DOVA_WEB_EXPORT JSONType arrayValueType(const QJsonArray& array, int index);

}  // namespace DOVA::web
