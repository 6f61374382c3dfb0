// The whole diagram, small, in a corner of it: symbols as blocks, and a frame around what can be seen. Dragging the
// frame moves the view.
#pragma once

#include <QPixmap>
#include <QRectF>
#include <QWidget>

class XGraph;
struct GraphColours;

class GraphMap final : public QWidget {
    Q_OBJECT

public:
    /// @param colours  must outlive the map
    explicit GraphMap(const GraphColours& colours, QWidget* parent = nullptr);
    void Texte();
    /// Takes symbols, selection and active symbol, and the size that fits into this one.
    void ShowGraph(const XGraph& graph, QSize most);
    /// @param seen  what the view shows, in the scene
    void ShowView(const QRectF& seen);

Q_SIGNALS:
    /// The middle of the view is to be there in the scene.
    void Moved(QPointF centre);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    [[nodiscard]] QPointF ToScene(QPointF point) const;
    [[nodiscard]] QRectF ToMap(const QRectF& rect) const;

    const GraphColours& colours_;
    QPixmap picture_;
    QRectF bounds_;  // of what is shown, in the scene
    QRectF seen_;
    QPointF grip_;  // from the middle of the frame to where it was grasped, in the scene
};
