// Points, sizes and rectangles on the canvas of the X-Graph, in twips. A pixel is 15 twips on every screen, so that a
// diagram looks alike everywhere.
#pragma once

#include <algorithm>

inline constexpr double kTwipsPerPixel = 15;
/// Width and height of an empty canvas.
inline constexpr double kCanvasTwips = 60'000;

struct GraphPoint {
    double x = 0;
    double y = 0;
    bool operator==(const GraphPoint&) const = default;
};

struct GraphSize {
    double width = 0;
    double height = 0;
    bool operator==(const GraphSize&) const = default;
};

struct GraphRect {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;

    [[nodiscard]] double Right() const { return left + width; }
    [[nodiscard]] double Bottom() const { return top + height; }
    [[nodiscard]] GraphPoint Center() const { return {left + width / 2, top + height / 2}; }
    /// All four edges belong to it.
    [[nodiscard]] bool Holds(GraphPoint point) const {
        return left <= point.x && point.x <= Right() && top <= point.y && point.y <= Bottom();
    }
    [[nodiscard]] bool Holds(const GraphRect& other) const {
        return other.left >= left && other.Right() <= Right() && other.top >= top && other.Bottom() <= Bottom();
    }
    /// The smallest rectangle that holds both.
    [[nodiscard]] GraphRect With(const GraphRect& other) const {
        const double newLeft = std::min(left, other.left);
        const double newTop = std::min(top, other.top);
        return {newLeft, newTop, std::max(Right(), other.Right()) - newLeft,
                std::max(Bottom(), other.Bottom()) - newTop};
    }
    bool operator==(const GraphRect&) const = default;
};

/// The rectangle between two corners, whichever of them comes first: the rubber band.
[[nodiscard]] inline GraphRect RectBetween(GraphPoint one, GraphPoint other) {
    return {std::min(one.x, other.x), std::min(one.y, other.y), std::max(one.x, other.x) - std::min(one.x, other.x),
            std::max(one.y, other.y) - std::min(one.y, other.y)};
}
