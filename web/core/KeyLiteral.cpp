#include "KeyLiteral.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace DOVA {

namespace {

bool isEscaped(std::string_view text, std::size_t at) {
    std::size_t before = at;
    while (before > 0 && text[before - 1] == '\\') {
        --before;
    }
    return (at - before) % 2 != 0;
}

}  // namespace

std::string_view literalBefore(std::string_view text, std::size_t colon) {
    const std::size_t end = lastBefore(text, colon);
    if (end == 0 || end == text.npos || text[end] != '"' || isEscaped(text, end)) {
        return {};
    }
    std::size_t begin = text.rfind('"', end - 1);
    while (begin != text.npos && begin > 0 && isEscaped(text, begin)) {
        begin = text.rfind('"', begin - 1);
    }
    return begin == text.npos ? std::string_view() : text.substr(begin + 1, end - begin - 1);
}

// The parser whose keys are compared is asked itself what the escapes mean. Lone surrogates, which
// UTF-8 has no bytes for, are kept apart from everything that it has.
std::string unescaped(std::string_view literal) {
    const QByteArray bytes(literal.data(), static_cast<int>(literal.size()));
    const QString text = QJsonDocument::fromJson("[\"" + bytes + "\"]").array().first().toString();
    const QByteArray utf8 = text.toUtf8();
    if (QString::fromUtf8(utf8) == text) {
        return utf8.toStdString();
    }
    return '\xff' + std::string(reinterpret_cast<const char*>(text.utf16()),
                                static_cast<std::size_t>(text.size()) * sizeof(char16_t));
}

}  // namespace DOVA
