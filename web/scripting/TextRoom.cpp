#include "TextRoom.h"

#include <QString>
#include <algorithm>
#include <utility>

#include "../seam/ScriptTypes.h"
#include "JSONText.h"

namespace DOVA::web {

namespace {

// What Qt puts before each text, and fills up behind it.
constexpr std::size_t s_bytesBeside = 8;
// Less is not worth the work, and nothing against what an instance takes anyway.
constexpr std::size_t s_fewBytes = 64 * 1024;
// Qt's sizes are ints; a header and the growth of what is nearly full are to fit as well.
constexpr std::size_t s_mostBytes = (std::size_t(1) << 31) - (std::size_t(1) << 12);
// An element is sixteen bytes, a member two elements.
constexpr std::size_t s_bytesOfMember = 32;

std::size_t bytesOfKey(const QString& text) {
    return web::bytesOf(reinterpret_cast<const char16_t*>(text.utf16()),
                        static_cast<std::size_t>(text.size()));
}

/// Copies each element into a container of its own. Gives how many bytes live in it.
std::size_t renew(QJsonArray& self) {
    QJsonArray fresh;
    std::size_t bytes = 0;
    for (const QJsonValue element : std::as_const(self)) {
        bytes += bytesOf(element);
        fresh.append(element);
        if (element.isUndefined()) {
            fresh.replace(fresh.size() - 1, element);  // appended it became null
        }
    }
    self = fresh;
    return bytes;
}

std::size_t renew(QJsonObject& self) {
    QJsonObject fresh;
    std::size_t bytes = 0;
    for (auto member = self.constBegin(); member != self.constEnd(); ++member) {
        const QString key = member.key();
        const QJsonValue value = *member;
        bytes += bytesOfKey(key) + bytesOf(value);
        fresh.insert(key, value);
    }
    self = fresh;
    return bytes;
}

template <class T>
bool makeRoomIn(T& self, std::size_t bytes) {
    TextBytes& known = textBytes(self);
    const auto hasRoom = [&] { return known.living + known.added + bytes <= s_mostBytes; };
    const std::size_t size = s_bytesOfMember * static_cast<std::size_t>(self.size());
    // Twice as much, so that what is built text by text is seldom made anew.
    if (known.added + bytes > std::max(s_fewBytes, 2 * (known.living + size)) || !hasRoom()) {
        known = {renew(self), 0};
    }
    if (!hasRoom()) {
        printError(QJsonParseError::DocumentTooLarge);
        return false;
    }
    known.added += bytes;
    return true;
}

}  // namespace

std::size_t bytesOf(const char16_t* text, std::size_t size) {
    const bool isAscii = std::all_of(text, text + size, [](char16_t unit) { return unit < 0x80; });
    return (isAscii ? size : 2 * size) + s_bytesBeside;
}

std::size_t bytesOf(const ribo::factory::kaArrayProxy& value) {
    const std::u16string* text = seam::textOf(value.get());
    return text ? bytesOf(*text) : 0;
}

std::size_t bytesOf(const QJsonValue& value) {
    return value.isString() ? bytesOfKey(value.toString()) : 0;
}

bool makeRoom(QJsonArray& self, std::size_t bytes) {
    return bytes == 0 || makeRoomIn(self, bytes);
}

bool makeRoom(QJsonObject& self, std::size_t bytes) {
    return bytes == 0 || makeRoomIn(self, bytes);
}

}  // namespace DOVA::web
