#include "RepeatedContainers.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>
#include <cstring>

namespace DOVA {

namespace {

constexpr std::string_view s_blanks = " \t\r\n";

// How deep the parser goes before it gives a text up.
constexpr std::size_t s_deepest = 1024;

bool isBracket(std::string_view text, std::size_t position) {
    return position < text.size() && (text[position] == '{' || text[position] == '[');
}

std::size_t skipBlanks(std::string_view text, std::size_t position) {
    return std::min(text.find_first_not_of(s_blanks, position), text.size());
}

// Most messages are one flat object, which shows at the price of one glance at the bytes.
bool isFlat(const std::string& text) {
    return text.size() < 2 || std::strcspn(text.c_str() + 1, "{[") == text.size() - 1;
}

bool hasContainerAsValue(std::string_view text) {
    for (auto at = text.find(':'); at != text.npos; at = text.find(':', at)) {
        do {
            at = skipBlanks(text, at + 1);
        } while (at < text.size() && text[at] == ':');
        if (isBracket(text, at)) {
            return true;
        }
    }
    return false;
}

}  // namespace

bool RepeatedContainers::occurIn(const std::string& text) {
    return !isFlat(text) && hasContainerAsValue(text) && RepeatedContainers(text).scan();
}

bool RepeatedContainers::scan() {
    while (m_position < m_text.size() && m_open.size() <= s_deepest) {
        const char character = m_text[m_position++];
        if (character == '{' || character == '[') {
            open();
        } else if (character == '}' || character == ']') {
            close();
        } else if (character == '"' && readString()) {
            return true;
        }
    }
    return false;
}

void RepeatedContainers::open() {
    m_open.push_back(++m_containers);
}

void RepeatedContainers::close() {
    if (!m_open.empty()) {
        m_open.pop_back();
    }
}

/// True if the string is a key that has held a container before.
bool RepeatedContainers::readString() {
    const std::size_t begin = m_position;
    while (m_position < m_text.size() && m_text[m_position] != '"') {
        m_position += m_text[m_position] == '\\' ? 2 : 1;
    }
    const std::size_t end = std::min(m_position, m_text.size());
    m_position = skipBlanks(m_text, end + 1);
    const bool isKey = m_position < m_text.size() && m_text[m_position] == ':';
    return isKey && !m_open.empty() && readKey(m_text.substr(begin, end - begin));
}

bool RepeatedContainers::readKey(std::string_view literal) {
    m_position = skipBlanks(m_text, m_position + 1);
    const bool holds = isBracket(m_text, m_position);
    if (!holds && m_holders.empty()) {
        return false;
    }
    const std::pair key(m_open.back(), keyText(literal));
    if (m_holders.count(key) > 0) {
        return true;
    }
    if (holds) {
        m_holders.insert(key);
    }
    return false;
}

// The parser whose keys are compared is asked itself what the escapes mean.
std::string_view RepeatedContainers::keyText(std::string_view literal) {
    if (literal.find('\\') == literal.npos) {
        return literal;
    }
    const QByteArray text(literal.data(), static_cast<int>(literal.size()));
    const QJsonArray array = QJsonDocument::fromJson("[\"" + text + "\"]").array();
    return m_unescaped.emplace_front(array.first().toString().toStdString());
}

}  // namespace DOVA
