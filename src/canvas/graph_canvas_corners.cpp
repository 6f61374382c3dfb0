// What lies over the corners of the diagram: the legend at the lower left, where it hides least of what is being worked
// on, and the overview map at the upper right, where the two never meet.
#include <algorithm>

#include "canvas/frame_layer.h"
#include "canvas/graph_canvas.h"
#include "canvas/legend.h"
#include "canvas/overview_map.h"
#include "shell/settings.h"

namespace {

constexpr int kMargin = 8;     // pixels to the edges of the view
constexpr int kMapLines = 11;  // height of the map in lines of text
constexpr int kMapShare = 3;   // of the view, at most a third

}  // namespace

void GraphCanvas::ShowExtras() {
    legend_->setVisible(settings_.GraphLegend != 0);
    frames_->Clear();
    ShowConnectors();
    PlaceCorners();
}

void GraphCanvas::PlaceCorners() {
    PlaceLegend();
    PlaceMap();
}

void GraphCanvas::PlaceLegend() {
    legend_->adjustSize();
    const QRect view = viewport()->geometry();
    legend_->move(view.left() + kMargin, view.bottom() - legend_->height() - kMargin);
    legend_->raise();
}

void GraphCanvas::PlaceMap() {
    const bool isLarger = isShown_ && !graph_.GraphObjects().empty() && !VisiblePart().Holds(graph_.SymbolBounds());
    map_->setVisible(isLarger && settings_.GraphMap != 0);
    if (!map_->isVisibleTo(this))
        return;
    const QRect view = viewport()->geometry();
    const int height = std::min(kMapLines * fontMetrics().height(), view.height() / kMapShare);
    map_->ShowGraph(graph_, {std::min(height * 3 / 2, view.width() / kMapShare), height});
    map_->move(view.right() - map_->width() - kMargin, view.top() + kMargin);
    map_->raise();
    ShowMapView();
}

void GraphCanvas::ShowMapView() {
    const GraphRect seen = VisiblePart();
    map_->ShowView({seen.left, seen.top, seen.width, seen.height});
}

// A diagram that leaves the view shows the map, and one that fits into it hides it.
void GraphCanvas::scrollContentsBy(int dx, int dy) {
    QGraphicsView::scrollContentsBy(dx, dy);
    const bool fits = VisiblePart().Holds(graph_.SymbolBounds());
    if (map_->isVisibleTo(this) == fits)
        PlaceMap();
    else
        ShowMapView();
}
