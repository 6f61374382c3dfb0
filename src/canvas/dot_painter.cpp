#include "canvas/dot_painter.h"

#include <QImage>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

namespace {

constexpr double kMiddle = 0.5;  // of a dot
constexpr int kShareBits = 8;    // of a dot that a line covers in part
constexpr int kPlaceBits = 32;   // of a place after its point: adding up thousands of steps loses nothing

// `share` of the colour, the rest of the ground; two channels at once.
QRgb Mixed(QRgb ground, QRgb colour, unsigned share) {
    constexpr QRgb kEven = 0x00ff00ff;
    const unsigned rest = (1U << kShareBits) - share;
    const QRgb even = (ground & kEven) * rest + (colour & kEven) * share;
    const QRgb odd = (ground >> 8 & kEven) * rest + (colour >> 8 & kEven) * share;
    return (even >> kShareBits & kEven) | (odd & ~kEven);
}

// The first dot whose middle is at the place or after it.
int DotAt(double place) {
    return static_cast<int>(place + kMiddle);
}

std::int64_t Fixed(double place) {
    return static_cast<std::int64_t>(place * static_cast<double>(std::int64_t{1} << kPlaceBits));
}

unsigned ShareOf(std::int64_t place) {
    return static_cast<unsigned>(place >> (kPlaceBits - kShareBits)) & ((1U << kShareBits) - 1);
}

double PlaceAt(double row, QPointF from, double slope) {
    return from.x() + (row - from.y()) * slope;
}

double SlopeOf(QPointF from, QPointF to) {
    return from.y() == to.y() ? 0 : (to.x() - from.x()) / (to.y() - from.y());
}

// A line along its nearest axis, which is called y here.
struct Course {
    QRgb* dots;
    std::ptrdiff_t along, aside;  // from one dot to the next
    int length, breadth;          // dots of the image
    QPointF from;
    double slope;
};

// Paints the dots that the line covers across its axis in each step, the first and the last one in part.
void PaintSteps(Course course, int begin, int end, QRgb colour, double lineWidth) {
    const std::int64_t width = Fixed(lineWidth);
    const std::int64_t rise = Fixed(course.slope);
    std::int64_t left = Fixed(PlaceAt(begin + kMiddle, course.from, course.slope) - lineWidth / 2);
    for (int step = begin; step < end; ++step, left += rise) {
        QRgb* const dots = course.dots + step * course.along;
        const auto mix = [=](std::int64_t nr, unsigned share) {
            if (nr >= 0 && nr < course.breadth)
                dots[nr * course.aside] = Mixed(dots[nr * course.aside], colour, share);
        };
        const std::int64_t right = left + width;
        std::int64_t nr = left >> kPlaceBits;
        mix(nr, (1U << kShareBits) - ShareOf(left));
        while (++nr < right >> kPlaceBits)
            mix(nr, 1U << kShareBits);
        mix(nr, ShareOf(right));
    }
}

}  // namespace

DotPainter::DotPainter(QImage& image)
    : dots_(reinterpret_cast<QRgb*>(image.bits())),
      stride_(image.bytesPerLine() / static_cast<std::ptrdiff_t>(sizeof(QRgb))),
      width_(image.width()),
      height_(image.height()) {}

void DotPainter::Fill(std::array<QPointF, 3> triangle, QRgb colour) {
    std::ranges::sort(triangle, {}, &QPointF::y);
    const auto [top, middle, bottom] = triangle;
    const double whole = SlopeOf(top, bottom);
    const double upper = SlopeOf(top, middle);
    const double lower = SlopeOf(middle, bottom);
    const double width = width_;
    const int end = DotAt(std::clamp<double>(bottom.y(), 0, height_));
    for (int row = DotAt(std::clamp<double>(top.y(), 0, height_)); row < end; ++row) {
        const double y = row + kMiddle;
        const double one = PlaceAt(y, top, whole);
        const double other = PlaceAt(y, middle, y < middle.y() ? upper : lower);
        QRgb* const dots = dots_ + row * stride_;
        std::fill(dots + DotAt(std::clamp(std::min(one, other), 0.0, width)),
                  dots + DotAt(std::clamp(std::max(one, other), 0.0, width)), colour);
    }
}

void DotPainter::Draw(QPointF from, QPointF to, const Line& line) {
    Course course{dots_, stride_, 1, height_, width_, {}, 0};
    if (std::abs(to.x() - from.x()) > std::abs(to.y() - from.y())) {
        course = {dots_, 1, stride_, width_, height_, {}, 0};
        from = from.transposed();
        to = to.transposed();
    }
    const int period = line.dash + line.gap;
    const double firstDash = from.y() > to.y() ? from.y() + line.phase - line.dash : from.y() - line.phase;
    if (from.y() > to.y())
        std::swap(from, to);
    course.from = from;
    course.slope = SlopeOf(from, to);
    double first = from.y();
    double last = to.y();
    if (course.slope != 0) {
        const auto stepAt = [&](double place) { return from.y() + (place - from.x()) / course.slope; };
        const auto [enters, leaves] = std::minmax({stepAt(-line.width), stepAt(course.breadth + line.width)});
        first = std::max(first, enters);
        last = std::min(last, leaves);
    }
    const int begin = DotAt(std::clamp<double>(first, 0, course.length));
    const int end = DotAt(std::clamp<double>(last, 0, course.length));
    if (line.dash == 0)
        return PaintSteps(course, begin, end, line.colour, line.width);
    const double skipped = std::floor((begin - firstDash) / period) * period;
    for (int dash = static_cast<int>(std::lround(firstDash + skipped)); dash < end; dash += period)
        PaintSteps(course, std::max(dash, begin), std::min(dash + line.dash, end), line.colour, line.width);
}
