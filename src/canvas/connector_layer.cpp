#include "canvas/connector_layer.h"

#include <QImage>
#include <QPaintDevice>
#include <QPainter>
#include <QVarLengthArray>
#include <algorithm>
#include <cmath>

#include "canvas/graph_colours.h"
#include "shell/work_ahead.h"
#include "xgraph/connectors.h"

namespace {

constexpr int kBands = 8;

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

ConnectorPainter::ConnectorPainter(QPainter& painter, const GraphColours& colours, std::optional<double> lineWidth)
    : painter_(painter), colours_(colours), lineWidth_(lineWidth) {
    painter.setRenderHint(QPainter::Antialiasing);
    if (!lineWidth) {
        const QTransform& device = painter.deviceTransform();
        dot_ = 1 / std::hypot(device.m11(), device.m12());
        strokes_ = std::max(1, qRound(painter.device()->devicePixelRatioF()));
    }
}

// Neighbours in paint order mostly look alike, and another pen is as dear as a line.
void ConnectorPainter::Use(const ConnectorLook& look) {
    if (used_ == look)
        return;
    used_ = look;
    pen_ = QPen(colours_.Of(look.line), lineWidth_.value_or(1));
    pen_.setCosmetic(!lineWidth_);
    if (look.isDashed)
        pen_.setDashPattern({5.0 * strokes_, 4.0 * strokes_});
    painter_.setPen(pen_);
    painter_.setBrush(colours_.Of(look.fill));
}

// Qt takes some twenty times as long for a line that is wider than a dot of the device. So a line of two dots is two
// lines beside each other.
void ConnectorPainter::Stroke(std::span<const QPointF> points) {
    if (strokes_ == 1)
        return painter_.drawPolyline(points.data(), static_cast<int>(points.size()));
    QVarLengthArray<QLineF, 12> lines;
    for (std::size_t nr = 1; nr < points.size(); ++nr) {
        const QLineF line(points[nr - 1], points[nr]);
        if (line.isNull())
            continue;
        const QPointF aside = QPointF(-line.dy(), line.dx()) * (dot_ / line.length());
        for (int stroke = 0; stroke < strokes_; ++stroke)
            lines.append(line.translated(aside * (stroke - (strokes_ - 1) / 2.0)));
    }
    painter_.drawLines(lines.data(), static_cast<int>(lines.size()));
}

void ConnectorPainter::Paint(const std::array<QPointF, 3>& points, bool isLine, const ConnectorLook& look) {
    Use(look);
    if (isLine)
        return Stroke({points.data(), 2});
    // Where the wedge is narrower than its outline, one line looks the same: it saves 14 % of a diagram that is all in
    // view. Pictures of lines are for all sizes, so theirs stay whole.
    const double base = QLineF(points[0], points[1]).length();
    const double share = lineWidth_ ? 0 : std::min(1.0, dot_ * strokes_ / base);
    const QPointF tip = points[2] + ((points[0] + points[1]) / 2 - points[2]) * share;
    if (share < 1) {
        // Qt takes more than ten times as long to fill with smooth edges; the outline hides those that are not.
        painter_.setRenderHint(QPainter::Antialiasing, false);
        painter_.setPen(Qt::NoPen);
        painter_.drawConvexPolygon(std::array{points[0], points[1], tip}.data(), 3);
        painter_.setRenderHint(QPainter::Antialiasing, true);
        painter_.setPen(pen_);
        Stroke(std::array{tip, points[0], points[1], tip});
    }
    if (share > 0)
        Stroke(std::array{tip, points[2]});
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
                           std::optional<double> lineWidth) const {
    ConnectorPainter connectors(painter, colours, lineWidth);
    for (const Painted& painted : painted_)
        if (painted.bounds.intersects(exposed))
            connectors.Paint(painted.points, painted.isLine, painted.look);
}

// In bands, because the smooth edges of thousands of wedges take a processor some 30 ms: two do it in half the time.
// The bands differ in what crosses them, so there are more of them than of processors. Without a clip Qt needs twice as
// long for a smooth line.
void ConnectorLayer::PaintScreen(QPainter& painter, const QRectF& exposed, const GraphColours& colours,
                                 const std::function<void(QPainter&)>& below) const {
    const double ratio = painter.device()->devicePixelRatioF();
    const QRect place = painter.deviceTransform().mapRect(exposed).toAlignedRect();
    QImage image(place.size(), QImage::Format_RGB32);
    if (image.isNull())
        return;
    const QTransform toImage = painter.deviceTransform() * QTransform::fromTranslate(-place.x(), -place.y());
    const QTransform toDots = QTransform::fromScale(1 / ratio, 1 / ratio);
    image.setDevicePixelRatio(ratio);
    {
        QPainter belowPainter(&image);
        belowPainter.setTransform(toImage * toDots);
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
        band.setDevicePixelRatio(ratio);
        QPainter bandPainter(&band);
        bandPainter.setClipRect(band.rect());
        bandPainter.setTransform(toBand * toDots);
        Paint(bandPainter, seen, colours);
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
