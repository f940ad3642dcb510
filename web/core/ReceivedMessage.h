#pragma once

#include <QJsonObject>
#include <QString>
#include <cstdint>
#include <string>
#include <string_view>

namespace DOVA {

/// A page's message to one object, as the kinds read it.
///
/// Nearly every message is a small object of plain members. Its text is read where it stands, once:
/// to make a QJsonObject of it takes more time than everything else until the program's handler is
/// called. All other messages come from Qt's parser.
class ReceivedMessage {
public:
    /// An empty message.
    ReceivedMessage() = default;
    /// A message that was parsed; it must outlive this one.
    explicit ReceivedMessage(const QJsonObject& message) : m_parsed(&message) {}

    /// Makes an empty message that of a text, which must outlive it. False if the text is not
    /// plain: one object of at most `s_most` members without blanks, each key once, the values
    /// words, whole numbers of few digits and strings, all strings ASCII without escapes. What
    /// else it may be, or whether it is JSON at all, is for Qt's parser to say.
    bool readPlain(std::string_view text);

    /// The object's identifier, as parseIdentifier() reads it.
    std::uint32_t identifier() const;
    bool has(const QString& key) const;
    /// Whether "event" is that text.
    bool isEvent(const QString& name) const;
    /// The value, if it is of the kind; otherwise false, the empty text, or 0.
    bool flag(const QString& key) const;
    std::u16string text(const QString& key) const;
    int number(const QString& key) const;

private:
    static constexpr std::size_t s_most = 8;
    struct Member {
        std::string_view key;
        std::string_view value;  // as it stands
    };

    bool add(const Member& added);
    std::string_view plain(const QString& key) const;

    const QJsonObject* m_parsed = nullptr;  // or else the members
    Member m_members[s_most];
    std::size_t m_count = 0;
};

}  // namespace DOVA
