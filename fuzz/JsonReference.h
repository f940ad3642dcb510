#pragma once

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cstddef>
#include <cstdint>
#include <string>

namespace DOVA::fuzz {

/// One input, the text of a script in UTF-8, and what Qt itself says that it means: the functions
/// have to print the same and to come to the same result. Made before the function is called, it
/// listens to the console.
class JsonReference {
public:
    JsonReference(const std::uint8_t* data, std::size_t size);
    ~JsonReference();

    const std::u16string& text() const { return m_text; }
    const QJsonDocument& document() const { return m_document; }
    /// The document as an element: an object, an array, otherwise Null.
    QJsonValue element() const;

    /// Ends the process if the parser's message was not printed as often as that, or the result is
    /// another one. Where Qt may keep any of two members of one key, the result is not compared.
    void require(const QJsonValue& result, const QJsonValue& expected, int messages = 1) const;

private:
    const std::u16string m_text;
    QJsonDocument m_document;
    std::string m_message;  // empty for a document
    bool m_certain = true;
    std::string m_printed;
};

}  // namespace DOVA::fuzz
