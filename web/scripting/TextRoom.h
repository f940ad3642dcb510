#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <cstddef>

#include "Nesting.h"
#include "host/ribo/factory/kaArrayProxy.h"

// Qt (5.15) writes the texts and keys of an array or object behind one another and never takes one
// away again: what is replaced or removed stays until the whole goes. So an instance counts what
// its edits add, and is made anew when that is more than what lives in it.

namespace DOVA::web {

/// The bytes that a text takes in the array or object that holds it: one for each code unit where
/// all are ASCII, otherwise two.
std::size_t bytesOf(const char16_t* text, std::size_t size);

// The same for what a script gives to an edit; elements that are no texts take none.
std::size_t bytesOf(const ribo::factory::kaArrayProxy& value);
std::size_t bytesOf(const QJsonValue& value);
inline std::size_t bytesOf(const QJsonArray&) {
    return 0;
}
inline std::size_t bytesOf(const QJsonObject&) {
    return 0;
}
inline std::size_t bytesOf(const std::u16string& key) {
    return bytesOf(key.data(), key.size());
}

/// Has room in an instance for so many bytes more, which an edit is about to add. False, with the
/// parser's message, if it would hold more than Qt can; then nothing has changed.
bool makeRoom(QJsonArray& self, std::size_t bytes);
bool makeRoom(QJsonObject& self, std::size_t bytes);

}  // namespace DOVA::web
