// What the shapes and colours of the diagram mean, in a corner of it.
#pragma once

#include <QIcon>
#include <QWidget>

struct GraphColours;

/// How the legend is painted where it is no widget.
struct LegendLook {
    const GraphColours& colours;
    QColor text;
    QFont font;
    QIcon symbol;  // of a procedure
};
[[nodiscard]] QSizeF LegendSize(const QFont& font);
/// In pixels, from a point at its upper left.
void PaintLegend(QPainter& painter, QPointF at, const LegendLook& look);

class GraphLegend final : public QWidget {
    Q_OBJECT

public:
    /// @param colours  must outlive the legend
    explicit GraphLegend(const GraphColours& colours, QWidget* parent = nullptr);
    void Texte();
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const GraphColours& colours_;
};
