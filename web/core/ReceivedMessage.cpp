#include "ReceivedMessage.h"

#include <algorithm>
#include <charconv>

#include "PropertyNames.h"
#include "TextConversions.h"

namespace DOVA {

namespace {

constexpr std::size_t s_mostDigits = 9;  // which every int holds

/// The string at the front, quotes included; empty if there is no plain one.
std::string_view stringAtFront(std::string_view text) {
    std::size_t at = 1;
    while (at < text.size() && text[at] >= 0x20 && text[at] < 0x7F && text[at] != '"' &&
           text[at] != '\\') {
        ++at;
    }
    const bool isString = at < text.size() && text[0] == '"' && text[at] == '"';
    return isString ? text.substr(0, at + 1) : std::string_view();
}

std::string_view numberAtFront(std::string_view text) {
    const std::size_t sign = text.substr(0, 1) == "-" ? 1 : 0;
    const std::size_t end = std::min(text.find_first_not_of("0123456789", sign), text.size());
    const std::size_t digits = end - sign;
    const bool isPlain = digits > 0 && digits <= s_mostDigits && (text[sign] != '0' || end == 1);
    return isPlain ? text.substr(0, end) : std::string_view();
}

std::string_view valueAtFront(std::string_view text) {
    for (const std::string_view word : {"true", "false", "null"}) {
        if (text.substr(0, word.size()) == word) {
            return word;
        }
    }
    return text.substr(0, 1) == "\"" ? stringAtFront(text) : numberAtFront(text);
}

bool isString(std::string_view value) {
    return !value.empty() && value[0] == '"';
}

QLatin1String toLatin1(std::string_view text) {
    return QLatin1String(text.data(), static_cast<int>(text.size()));
}

std::string_view withoutQuotes(std::string_view string) {
    return string.substr(1, string.size() - 2);
}

}  // namespace

bool ReceivedMessage::readPlain(std::string_view text) {
    if (text.substr(0, 1) != "{") {
        return false;
    }
    do {
        text.remove_prefix(1);  // the bracket or comma before a member
        const std::string_view key = stringAtFront(text);
        text.remove_prefix(key.size());
        if (key.empty() || text.substr(0, 1) != ":") {
            return false;
        }
        const std::string_view value = valueAtFront(text.substr(1));
        if (value.empty() || !add({withoutQuotes(key), value})) {
            return false;
        }
        text.remove_prefix(1 + value.size());
    } while (text.substr(0, 1) == ",");
    return text == "}";
}

/// False if there are too many, or the key is there already.
bool ReceivedMessage::add(const Member& added) {
    const Member* const begin = m_members;
    const Member* const end = begin + m_count;
    if (m_count == s_most ||
        std::any_of(begin, end, [&](const Member& one) { return one.key == added.key; })) {
        return false;
    }
    m_members[m_count++] = added;
    return true;
}

/// The value as it stands; empty if there is none.
std::string_view ReceivedMessage::plain(const QString& key) const {
    for (std::size_t i = 0; i < m_count; ++i) {
        if (key == toLatin1(m_members[i].key)) {
            return m_members[i].value;
        }
    }
    return {};
}

std::uint32_t ReceivedMessage::identifier() const {
    if (m_parsed) {
        return parseIdentifier(m_parsed->value(received::id));
    }
    const std::string_view value = plain(received::id);
    return parseIdentifier(isString(value) ? withoutQuotes(value) : value);
}

bool ReceivedMessage::has(const QString& key) const {
    return m_parsed ? m_parsed->contains(key) : !plain(key).empty();
}

bool ReceivedMessage::isEvent(const QString& name) const {
    if (m_parsed) {
        return m_parsed->value(received::event).toString() == name;
    }
    const std::string_view value = plain(received::event);
    return isString(value) && name == toLatin1(withoutQuotes(value));
}

bool ReceivedMessage::flag(const QString& key) const {
    return m_parsed ? m_parsed->value(key).toBool() : plain(key) == "true";
}

std::u16string ReceivedMessage::text(const QString& key) const {
    if (m_parsed) {
        return toU16(m_parsed->value(key).toString());
    }
    const std::string_view value = plain(key);
    return isString(value) ? std::u16string(value.begin() + 1, value.end() - 1) : std::u16string();
}

int ReceivedMessage::number(const QString& key) const {
    if (m_parsed) {
        return m_parsed->value(key).toInt();
    }
    const std::string_view value = plain(key);
    int number = 0;  // stays, where there is no digit
    std::from_chars(value.data(), value.data() + value.size(), number);
    return number;
}

}  // namespace DOVA
