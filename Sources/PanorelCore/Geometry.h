#pragma once

#include <algorithm>

namespace Panorel {

/// A place in the global space: x grows to the right, y downwards, the origin is the top-left
/// corner of the primary display. Points on macOS, pixels on X11.
struct Point {
    double x = 0;
    double y = 0;

    bool operator==(const Point &) const = default;
};

struct Size {
    double width = 0;
    double height = 0;

    bool operator==(const Size &) const = default;
};

/// A rectangle of four exact doubles. Two rectangles are equal only when all four are, because a
/// learned desk is compared with the live one and "almost equal" would hide a moved window.
/// The axis is that of whoever hands it out: top-left everywhere but in ScreensPort.
struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    static Rect of(Point origin, Size size)
    {
        return {origin.x, origin.y, size.width, size.height};
    }

    double minX() const { return x; }
    double minY() const { return y; }
    double maxX() const { return x + width; }
    double maxY() const { return y + height; }
    Point origin() const { return {x, y}; }
    Size size() const { return {width, height}; }
    double area() const { return width * height; }

    /// The common part; an all-zero rectangle where the two do not overlap.
    Rect intersection(const Rect &other) const
    {
        const double left = std::max(minX(), other.minX());
        const double top = std::max(minY(), other.minY());
        const double right = std::min(maxX(), other.maxX());
        const double bottom = std::min(maxY(), other.maxY());
        if (right <= left || bottom <= top)
            return {};
        return {left, top, right - left, bottom - top};
    }

    /// Around both; an all-zero rectangle adds nothing.
    Rect united(const Rect &other) const
    {
        if (*this == Rect{})
            return other;
        if (other == Rect{})
            return *this;
        const double left = std::min(minX(), other.minX());
        const double top = std::min(minY(), other.minY());
        return {left, top, std::max(maxX(), other.maxX()) - left,
                std::max(maxY(), other.maxY()) - top};
    }

    bool operator==(const Rect &) const = default;
};

} // namespace Panorel
