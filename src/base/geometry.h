#pragma once

#include <cmath>

namespace tavrin {

/// Everything in the program is in screen points with the origin at the top left of the primary screen and
/// y growing downwards, as Accessibility reports it. A platform that counts otherwise converts at its edge.
struct Point {
    double x = 0;
    double y = 0;

    bool operator==(const Point&) const = default;
};

struct Size {
    double width = 0;
    double height = 0;

    bool operator==(const Size&) const = default;
};

struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    static Rect from(Point origin, Size size) { return {origin.x, origin.y, size.width, size.height}; }

    double minX() const { return x; }

    double maxX() const { return x + width; }

    double minY() const { return y; }

    double maxY() const { return y + height; }

    double midX() const { return x + width / 2; }

    double midY() const { return y + height / 2; }

    Point origin() const { return {x, y}; }

    Size size() const { return {width, height}; }

    Point middle() const { return {midX(), midY()}; }

    /// The right and bottom edges belong to the neighbour.
    bool contains(Point p) const { return p.x >= x && p.x < maxX() && p.y >= y && p.y < maxY(); }

    bool intersects(const Rect& other) const {
        return x < other.maxX() && other.x < maxX() && y < other.maxY() && other.y < maxY();
    }

    bool isFinite() const {
        return std::isfinite(x) && std::isfinite(y) && std::isfinite(width) && std::isfinite(height);
    }

    bool operator==(const Rect&) const = default;
};

} // namespace tavrin
