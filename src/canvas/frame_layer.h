// Pale named frames around the symbols of each module, behind everything else.
#pragma once

#include <QRectF>
#include <QString>
#include <vector>

class QPainter;
class XGraph;
struct GraphColours;

class FrameLayer {
public:
    /// Finds the frames of the graph again.
    void Find(const XGraph& graph);
    void Clear() { frames_.clear(); }
    /// @param exposed  in scene units, as all coordinates of the painter
    void Paint(QPainter& painter, const QRectF& exposed, const GraphColours& colours) const;

private:
    struct Frame {
        QString name;
        QRectF rect;
        int nr;  // decides the colour
    };
    std::vector<Frame> frames_;  // the larger ones first, so that they hide none
};
