// The connectors as they are painted below the symbols: all in one go, only those that cross what is to be painted.
#pragma once

#include <QPointF>
#include <QRectF>
#include <array>
#include <functional>
#include <optional>
#include <vector>

#include "xgraph/pairs.h"
#include "xgraph/routing.h"

class DotPainter;
class QPainter;
class XGraph;
struct GraphColours;

/// Paints connectors one by one as drawings: for the legend, pages and files that can be enlarged.
class ConnectorPainter {
public:
    /// Nobody else may set pen and brush of the painter meanwhile.
    /// @param lineWidth  in the units of the painter
    ConnectorPainter(QPainter& painter, const GraphColours& colours, double lineWidth);
    void Paint(const std::array<QPointF, 3>& points, bool isLine, const ConnectorLook& look);

private:
    void Use(const ConnectorLook& look);

    QPainter& painter_;
    const GraphColours& colours_;
    double lineWidth_;
    std::optional<ConnectorLook> used_;
};

class ConnectorLayer {
public:
    /// Finds the connectors of the graph again.
    void Find(const XGraph& graph);
    void Clear();
    /// In paint order. They refer to symbols and edges, and last until those change.
    [[nodiscard]] const std::vector<GraphPair>& Pairs() const { return pairs_; }

    /// @param exposed  in scene units, as all coordinates of the painter
    void Paint(QPainter& painter, const QRectF& exposed, const GraphColours& colours, double lineWidth) const;
    /// The same in pixels, with the ground and on all processors, above what `below` paints in the coordinates of the
    /// painter. Lines are a pixel wide at every zoom.
    void PaintPixels(QPainter& painter, const QRectF& exposed, const GraphColours& colours,
                     const std::function<void(QPainter&)>& below = {}) const;
    /// Whether a connector crosses the rectangle.
    [[nodiscard]] bool HasAnyAt(const QRectF& place) const;

private:
    struct Painted {
        QRectF bounds;
        std::array<QPointF, 3> points;
        bool isLine;
        ConnectorLook look;
    };
    static void PaintDots(DotPainter& dots, const Painted& painted, const std::array<QPointF, 3>& points,
                          const GraphColours& colours, double lineWidth);
    [[nodiscard]] static bool Crosses(const Painted& painted, const QRectF& place);

    std::vector<GraphPair> pairs_;
    std::vector<Painted> painted_;  // loops are left out
};
