// Paints triangles and smooth lines dot by dot. Where there are thousands of them, a general painter, which takes each
// dot of a smooth line as a shape of its own, needs two to three times as long.
#pragma once

#include <QPointF>
#include <QRgb>
#include <array>
#include <cstddef>

class QImage;

class DotPainter {
public:
    /// Lengths are in dots and count along the axis that the line is closest to, so that a thin line stays sharp.
    struct Line {
        QRgb colour;   // opaque
        double width;  // at least 1
        int dash = 0;  // 0 for a line without gaps
        int gap = 0;
        int phase = 0;  // how far into a dash the line begins
    };
    /// @param image  RGB32 or ARGB32_Premultiplied; must outlive the painter
    explicit DotPainter(QImage& image);
    /// Fills the dots whose middle is inside, so its edges are not smooth.
    /// @param colour  opaque
    void Fill(std::array<QPointF, 3> triangle, QRgb colour);
    /// Draws a smooth line; its dashes count from `from`.
    void Draw(QPointF from, QPointF to, const Line& line);

private:
    QRgb* dots_;
    std::ptrdiff_t stride_;  // dots from one row to the next
    int width_, height_;
};
