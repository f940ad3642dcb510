#pragma once

#include <cstdint>

namespace DOVA {

/// A colour with 8 bits a channel: red in bits 24-31, green 16-23, blue 8-15, alpha 0-7.
class Color {
public:
    Color() = default;
    explicit constexpr Color(std::uint32_t rgba) : m_rgba(rgba) {}
    /// Channels from 0.0 to 1.0; values outside are clamped.
    static constexpr Color fromFractions(double red, double green, double blue, double alpha) {
        return Color(channel(red) << 24 | channel(green) << 16 | channel(blue) << 8 |
                     channel(alpha));
    }
    /// Channels from 0 to 255.
    static constexpr Color fromRgb(unsigned red, unsigned green, unsigned blue) {
        return Color((red & 0xFF) << 24 | (green & 0xFF) << 16 | (blue & 0xFF) << 8 | 0xFF);
    }

    constexpr std::uint32_t rgba() const { return m_rgba; }
    constexpr unsigned red() const { return m_rgba >> 24; }
    constexpr unsigned green() const { return m_rgba >> 16 & 0xFF; }
    constexpr unsigned blue() const { return m_rgba >> 8 & 0xFF; }
    constexpr unsigned alpha() const { return m_rgba & 0xFF; }
    bool operator==(const Color& other) const { return m_rgba == other.m_rgba; }

private:
    static constexpr std::uint32_t channel(double value) {
        // Asked this way round, what is not a number counts as 0.
        return !(value > 0) ? 0u
               : value >= 1 ? 255u
                            : static_cast<std::uint32_t>(value * 255 + 0.5);
    }

    std::uint32_t m_rgba = 0;
};

/// What a colour of a widget is for.
enum class ColorRole {
    Background = 0,
    Foreground = 1,
    DisabledBackground = 2,
    DisabledForeground = 3,
    Show = 6
};

}  // namespace DOVA
