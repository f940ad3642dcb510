#include "RepeatedMembers.h"

#include <cstring>

#include "../core/JsonMarks.h"
#include "../core/KeyLiteral.h"
#include "../core/RepeatedContainers.h"

namespace DOVA::web {

namespace {

std::string_view viewOf(const QByteArray& bytes) {
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

/// A number at the end of each key, so that no key is like another and the parser meets the same
/// errors as in the text itself.
QByteArray withNumberedKeys(const QByteArray& bytes) {
    const std::string_view text = viewOf(bytes);
    QByteArray numbered;
    int copied = 0;
    int number = 0;
    JsonMarks marks(text);
    for (auto at = marks.next(); at < text.size(); at = marks.next()) {
        const std::string_view literal = literalBefore(text, at);
        if (text[at] == ':' && literal.data()) {
            const int end = static_cast<int>(literal.data() + literal.size() - text.data());
            numbered.append(bytes.constData() + copied, end - copied);
            numbered.append('#').append(QByteArray::number(++number));
            copied = end;
        }
    }
    return numbered.append(bytes.constData() + copied, bytes.size() - copied);
}

/// Blanks where a later member replaces an earlier one.
QByteArray withoutReplaced(const QByteArray& bytes) {
    QByteArray left = bytes;
    for (const auto [begin, end] : RepeatedContainers::replacedIn(viewOf(bytes))) {
        std::memset(left.data() + begin, ' ', end - begin);
    }
    return left;
}

}  // namespace

QJsonDocument parseLastMembers(const QByteArray& bytes, QJsonParseError& error) {
    if (!RepeatedContainers::occurOrMayMixIn(viewOf(bytes))) {
        return QJsonDocument::fromJson(bytes, &error);
    }
    QJsonDocument::fromJson(withNumberedKeys(bytes), &error);
    return error.error == QJsonParseError::NoError ? QJsonDocument::fromJson(withoutReplaced(bytes))
                                                   : QJsonDocument();
}

}  // namespace DOVA::web
