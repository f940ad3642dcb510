#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tdom {

/// Builds a compact JSON text (RFC 8259, UTF-8) from front to back. The caller sees to commas and
/// brackets.
class JsonText {
public:
    /// Appends JSON as it stands.
    void raw(std::string_view json) { m_text += json; }
    void raw(char json) { m_text += json; }

    void flag(bool value) { raw(value ? "true" : "false"); }
    void number(std::uint64_t value);
    void number(std::int32_t value);

    /// A string in its quotes. Half a surrogate pair, which UTF-8 cannot hold, is written as an
    /// escape, so that every text arrives as it is.
    void string(std::u16string_view text);
    /// The same for UTF-8, which is taken as it is.
    void string(std::string_view text);

    std::size_t size() const noexcept { return m_text.size(); }
    std::string take() { return std::move(m_text); }

private:
    /// Appends the first character of a text, which is not plain; gives how many units it has.
    std::size_t special(std::u16string_view text);
    void escape(std::uint32_t unit);

    std::string m_text;
};

}  // namespace tdom
