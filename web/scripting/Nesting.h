#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <cstddef>

#include "host/ribo/factory/kaArrayProxy.h"

// A value may have as many levels as the parser takes: what scripts make can be written and read
// again, and Qt, which frees and compares level by level on the stack, never runs out of it.

namespace DOVA::web {

constexpr int s_mostLevels = 1024;

/// The levels of a value: 0 for a plain one, 1 for an array of plain ones. Stops counting beyond
/// `s_mostLevels`.
int countLevels(const QJsonValue& value);

/// How many bytes texts and keys take in an array or object: see TextRoom.h.
struct TextBytes {
    std::size_t living = 0;  // at most, when it was made anew; before that nobody knows
    std::size_t added = 0;   // since then
};

/// An array or object of a script, and what is known about it. An instance holds the whole; its
/// methods get the value.
template <class T>
struct Noted {
    T value{};
    int levels = s_mostLevels;  // so many, or fewer; only edits that nest it somewhere want to know
    TextBytes texts{};

    /// In bytes. An edit of a copy makes its elements anew: sixteen each, and twice as many
    /// members.
    std::size_t weight() const noexcept {
        return sizeof(Noted) + 32 * static_cast<std::size_t>(value.size());
    }
    /// Another value was copied over this one; it has as many levels as any.
    void valueReplaced() {
        levels = s_mostLevels;
        texts = {};
    }
};

/// How many levels an instance's value has at most. It is to be told of every edit that nests.
template <class T>
int& levelsAtMost(T& self) {
    return reinterpret_cast<Noted<T>&>(self).levels;
}

template <class T>
TextBytes& textBytes(T& self) {
    return reinterpret_cast<Noted<T>&>(self).texts;
}

// The levels of what a script gives to an edit. An instance's are counted once, and only where its
// bound does not do; then it is good until an edit raises it.
inline int levelsOf(const ribo::factory::kaArrayProxy&) {
    return 0;
}
inline int levelsOf(const QJsonValue& value) {
    return countLevels(value);
}
template <class T>
int levelsOf(T& instance) {
    int& levels = levelsAtMost(instance);
    if (levels >= s_mostLevels) {
        levels = countLevels(instance);
    }
    return levels;
}

/// Whether a value of so many levels may become an element; otherwise prints the parser's message.
bool checkLevels(int levels);

/// The same for an instance that is to hold it; notes what it has then.
template <class T>
bool checkLevels(T& self, int levels) {
    const bool fits = checkLevels(levels);
    int& bound = levelsAtMost(self);
    bound = fits && levels >= bound ? levels + 1 : bound;
    return fits;
}

}  // namespace DOVA::web
