#pragma once

namespace DOVA {

/// A set of the bits of an enumeration.
template <class Enum>
class DVFlags {
public:
    constexpr DVFlags() = default;
    constexpr DVFlags(Enum flag) : m_value(static_cast<unsigned>(flag)) {}

    constexpr unsigned value() const { return m_value; }
    constexpr bool has(Enum flag) const { return (m_value & static_cast<unsigned>(flag)) != 0; }
    constexpr DVFlags operator|(DVFlags other) const {
        DVFlags result;
        result.m_value = m_value | other.m_value;
        return result;
    }
    constexpr bool operator==(DVFlags other) const { return m_value == other.m_value; }

private:
    unsigned m_value = 0;
};

}  // namespace DOVA
