#pragma once

namespace diagram {

/// A point; x grows to the right, y downwards.
template <class T>
struct PointTemplate {
    T x{};
    T y{};
    bool operator==(const PointTemplate& other) const { return x == other.x && y == other.y; }
};

/// A width and a height.
template <class T>
struct TSize {
    T width{};
    T height{};
    bool operator==(const TSize& other) const {
        return width == other.width && height == other.height;
    }
};

/// A rectangle by its top left corner and its size.
template <class T>
struct RectTemplate {
    T x{};
    T y{};
    T width{};
    T height{};
    bool operator==(const RectTemplate& other) const {
        return x == other.x && y == other.y && width == other.width && height == other.height;
    }
};

}  // namespace diagram
