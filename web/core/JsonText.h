#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

class QJsonValue;

namespace DOVA {

/// Builds a compact JSON text from front to back, byte for byte as Qt writes it. The caller sees to
/// brackets, commas and the order of keys, which is Qt's: that of their code units.
class JsonText {
public:
    /// With room for a text of so many bytes.
    explicit JsonText(std::size_t expected) { m_text.reserve(expected); }

    /// Appends JSON as it stands.
    void raw(std::string_view json) { m_text += json; }
    void raw(char json) { m_text += json; }

    void flag(bool value) { raw(value ? "true" : "false"); }
    void number(std::int64_t value);
    /// A string in its quotes. Half a surrogate pair is written as an escape.
    void string(std::u16string_view text);
    /// The same for UTF-8, as QString reads it.
    void utf8(const std::string& text);
    /// Any value. REQUIRES: not undefined, for which JSON has no word.
    void value(const QJsonValue& value);

    std::size_t size() const { return m_text.size(); }
    /// Takes everything behind so many bytes off again.
    void cut(std::size_t size) { m_text.resize(size); }
    /// Appends a bracket, in the place of the comma that may stand last.
    void close(char bracket);

    std::string take() { return std::move(m_text); }

private:
    void special(std::u16string_view text, std::size_t& at);
    void escape(unsigned unit);

    std::string m_text;
};

}  // namespace DOVA
