// What the shapes and colours of the diagram mean, in a corner of it.
#pragma once

#include <QWidget>

struct GraphColours;

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
    [[nodiscard]] QSizeF LineSize() const;

    const GraphColours& colours_;
};
