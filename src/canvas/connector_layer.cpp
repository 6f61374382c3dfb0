#include "canvas/connector_layer.h"

#include <QPainter>
#include <algorithm>

#include "canvas/graph_colours.h"
#include "xgraph/connectors.h"

namespace {

// A cosmetic line is as wide at every zoom.
QPen PenOf(const ConnectorLook& look, const GraphColours& colours) {
    QPen pen(colours.Of(look.line), 1);
    pen.setCosmetic(true);
    if (look.isDashed)
        pen.setDashPattern({5, 4});
    return pen;
}

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

// A polygon with pen and brush is filled and outlined in one call, but edges that are made smooth twice cost most of
// the time: the outline hides those of the fill.
void FillWedge(QPainter& painter, const std::array<QPointF, 3>& points, const QColor& fill) {
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    painter.drawConvexPolygon(points.data(), 3);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setBrush(Qt::NoBrush);
}

}  // namespace

void PaintConnector(QPainter& painter, const std::array<QPointF, 3>& points, bool isLine, const ConnectorLook& look,
                    const GraphColours& colours) {
    if (!isLine)
        FillWedge(painter, points, colours.Of(look.fill));
    painter.setPen(PenOf(look, colours));
    if (isLine)
        painter.drawLine(points[0], points[1]);
    else
        painter.drawConvexPolygon(points.data(), 3);
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

void ConnectorLayer::Paint(QPainter& painter, const QRectF& exposed, const GraphColours& colours) const {
    for (const Painted& painted : painted_)
        if (painted.bounds.intersects(exposed))
            PaintConnector(painter, painted.points, painted.isLine, painted.look, colours);
}
