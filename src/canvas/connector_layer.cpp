#include "canvas/connector_layer.h"

#include <QImage>
#include <QPaintDevice>
#include <QPainter>
#include <QPen>
#include <algorithm>

#include "canvas/dot_painter.h"
#include "canvas/graph_colours.h"
#include "shell/work_ahead.h"
#include "xgraph/connectors.h"

namespace {

constexpr int kBands = 8;
constexpr double kDash = 5;  // in widths of the line
constexpr double kGap = 4;

QRectF BoundsOf(const std::array<QPointF, 3>& points, bool isLine) {
    const auto last = points.begin() + (isLine ? 2 : 3);
    const auto [left, right] =
        std::minmax_element(points.begin(), last, [](QPointF one, QPointF other) { return one.x() < other.x(); });
    const auto [top, bottom] =
        std::minmax_element(points.begin(), last, [](QPointF one, QPointF other) { return one.y() < other.y(); });
    // Of a straight line too, or it would cross nothing.
    const double line = kTwipsPerPixel;
    return QRectF(QPointF(left->x(), top->y()), QPointF(right->x(), bottom->y())).adjusted(-line, -line, line, line);
}

}  // namespace

ConnectorPainter::ConnectorPainter(QPainter& painter, const GraphColours& colours, double lineWidth)
    : painter_(painter), colours_(colours), lineWidth_(lineWidth) {
    painter.setRenderHint(QPainter::Antialiasing);
}

// Neighbours in paint order mostly look alike, and another pen is as dear as a line.
void ConnectorPainter::Use(const ConnectorLook& look) {
    if (used_ == look)
        return;
    used_ = look;
    QPen pen(colours_.Of(look.line), lineWidth_);
    if (look.isDashed)
        pen.setDashPattern({kDash, kGap});
    painter_.setPen(pen);
    painter_.setBrush(colours_.Of(look.fill));
}

void ConnectorPainter::Paint(const std::array<QPointF, 3>& points, bool isLine, const ConnectorLook& look) {
    Use(look);
    if (isLine)
        painter_.drawLine(points[0], points[1]);
    else
        painter_.drawConvexPolygon(points.data(), 3);
}

void ConnectorLayer::Find(const XGraph& graph) {
    pairs_ = GraphPairs(GraphVerbindungen(graph));
    painted_.clear();
    painted_.reserve(pairs_.size());
    for (const GraphPair& pair : pairs_) {
        if (pair.IsLoop())
            continue;
        const ConnectorRoute route = GraphVerbindung(*pair.from, *pair.to);
        Painted painted{
            .bounds = {}, .points = {}, .isLine = route.shape == ConnectorShape::Line, .look = LookOf(pair)};
        std::transform(route.points.begin(), route.points.end(), painted.points.begin(),
                       [](GraphPoint point) { return QPointF(point.x, point.y); });
        painted.bounds = BoundsOf(painted.points, painted.isLine);
        painted_.push_back(painted);
    }
}

void ConnectorLayer::Clear() {
    pairs_.clear();
    painted_.clear();
}

void ConnectorLayer::Paint(QPainter& painter, const QRectF& exposed, const GraphColours& colours,
                           double lineWidth) const {
    ConnectorPainter connectors(painter, colours, lineWidth);
    for (const Painted& painted : painted_)
        if (painted.bounds.intersects(exposed))
            connectors.Paint(painted.points, painted.isLine, painted.look);
}

// Where a wedge is narrower than its outline, one line looks the same and takes less time.
void ConnectorLayer::PaintDots(DotPainter& dots, const Painted& painted, const std::array<QPointF, 3>& points,
                               const GraphColours& colours, double lineWidth) {
    DotPainter::Line line{.colour = colours.Of(painted.look.line).rgb(), .width = lineWidth};
    if (painted.look.isDashed) {
        line.dash = qRound(kDash * lineWidth);
        line.gap = qRound(kGap * lineWidth);
    }
    if (painted.isLine)
        return dots.Draw(points[0], points[1], line);
    const auto& [one, other, end] = points;
    const double base = QLineF(one, other).length();
    const double thin = base > lineWidth ? lineWidth / base : 1;
    const QPointF tip = end + ((one + other) / 2 - end) * thin;
    if (thin < 1) {
        dots.Fill({one, other, tip}, colours.Of(painted.look.fill).rgb());
        dots.Draw(tip, one, line);
        dots.Draw(one, other, line);
        // Or the dashes of all wedges from one symbol would form columns.
        line.phase = qRound(QLineF(tip, one).length());
        dots.Draw(other, tip, line);
        line.phase = 0;
    }
    dots.Draw(tip, end, line);
}

// In bands, because thousands of wedges take a processor some 15 ms. The bands differ in what crosses them, so there
// are more of them than of processors.
void ConnectorLayer::PaintPixels(QPainter& painter, const QRectF& exposed, const GraphColours& colours,
                                 const std::function<void(QPainter&)>& below) const {
    const double ratio = painter.device()->devicePixelRatioF();
    const QRect place = painter.deviceTransform().mapRect(exposed).toAlignedRect();
    const bool isClear = colours.ground.alpha() == 0;
    QImage image(place.size(), isClear ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    if (image.isNull())
        return;
    image.fill(colours.ground);
    image.setDevicePixelRatio(ratio);
    const QTransform toImage = painter.deviceTransform() * QTransform::fromTranslate(-place.x(), -place.y());
    if (below) {
        QPainter belowPainter(&image);
        belowPainter.setTransform(toImage * QTransform::fromScale(1 / ratio, 1 / ratio));
        below(belowPainter);
    }
    uchar* const bits = image.bits();
    const int height = (image.height() + kBands - 1) / kBands;
    const auto paintBand = [&](std::size_t nr, std::size_t) {
        const int top = static_cast<int>(nr) * height;
        if (top >= image.height())
            return;
        QImage band(bits + top * image.bytesPerLine(), image.width(), std::min(height, image.height() - top),
                    image.bytesPerLine(), image.format());
        const QTransform toBand = toImage * QTransform::fromTranslate(0, -top);
        const QRectF seen = toBand.inverted().mapRect(QRectF(band.rect()));
        DotPainter dots(band);
        for (const Painted& painted : painted_) {
            const auto& [one, other, end] = painted.points;
            if (painted.bounds.intersects(seen))
                PaintDots(dots, painted, {toBand.map(one), toBand.map(other), toBand.map(end)}, colours,
                          std::max(1.0, ratio));
        }
    };
    AheadThreads threads(kBands, std::min<std::size_t>(AheadThreads::UsualHelpers(), kBands - 1), paintBand);
    for (std::size_t nr = 0; nr < kBands; ++nr)
        threads.Await(nr);
    painter.save();
    painter.resetTransform();
    painter.drawImage(QPointF(place.topLeft()) / ratio, image);
    painter.restore();
}

// A wedge is narrow: its middle line stands for it.
bool ConnectorLayer::Crosses(const Painted& painted, const QRectF& place) {
    const QPointF start = painted.isLine ? painted.points[0] : (painted.points[0] + painted.points[1]) / 2;
    const QLineF line(start, painted.points[painted.isLine ? 1 : 2]);
    if (place.contains(line.p1()) || place.contains(line.p2()))
        return true;
    const std::array<QLineF, 2> diagonals{QLineF(place.topLeft(), place.bottomRight()),
                                          QLineF(place.bottomLeft(), place.topRight())};
    return std::any_of(diagonals.begin(), diagonals.end(), [&](const QLineF& diagonal) {
        return line.intersects(diagonal, nullptr) == QLineF::BoundedIntersection;
    });
}

bool ConnectorLayer::HasAnyAt(const QRectF& place) const {
    return std::any_of(painted_.begin(), painted_.end(), [&](const Painted& painted) {
        return painted.bounds.intersects(place) && Crosses(painted, place);
    });
}
