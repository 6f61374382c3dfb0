// The bars of a chart, as many modules as the zoom leaves room for. One module is marked; keys walk from module to
// module.
#pragma once

#include <QChartView>
#include <string>

#include "charts/chart_drawing.h"

class ChartView final : public QChartView {
    Q_OBJECT

public:
    explicit ChartView(QWidget* parent = nullptr);

    /// Shows a table; the marked module stays marked if it takes part.
    void Show(const ChartTable& table);
    [[nodiscard]] const ChartTable& Table() const { return table_; }

    /// Marks a module and brings it into view; -1 marks none.
    void Mark(int row);
    [[nodiscard]] int Marked() const { return marked_; }

    /// One step wider (1), narrower (-1), or all modules side by side (0). A step is 1,000 twips, more where there are
    /// more than 50 modules.
    void Zoom(int step);
    /// How far the view can be moved to the right, in pixels; 0 if everything is in view.
    [[nodiscard]] int ScrollRange() const;
    [[nodiscard]] int ScrolledBy() const { return scrolled_; }
    void ScrollTo(int pixels);
    /// Width of the chart with all modules at the present zoom, in pixels.
    [[nodiscard]] int WholeWidth() const;

Q_SIGNALS:
    /// The user chose a module: by a click, or by Enter on the marked one.
    void Picked(int row);
    void ScrollChanged();
    void MenuAsked(const QPoint& globalPlace);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void drawForeground(QPainter* painter, const QRectF& rect) override;

private:
    [[nodiscard]] int Rows() const { return static_cast<int>(table_.rows.size()); }
    [[nodiscard]] double GroupWidth() const;
    [[nodiscard]] ChartPart PartInView() const;
    [[nodiscard]] int RowAt(QPoint place) const;
    [[nodiscard]] QRectF FrameOf(int row) const;
    void Draw();
    void NameIt();

    ChartTable table_;
    ChartPart part_;
    std::string markedKey_;
    int marked_ = -1;
    int extraWidth_ = 0;  // beyond the view, in pixels
    int scrolled_ = 0;    // of it
};
