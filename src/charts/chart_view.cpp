#include "charts/chart_view.h"

#include <QAccessible>
#include <QBarSeries>
#include <QChart>
#include <QContextMenuEvent>
#include <QToolTip>
#include <algorithm>
#include <cmath>

namespace {

constexpr int kTwipsPerPixel = 15;
constexpr int kStep = 1000 / kTwipsPerPixel;
constexpr int kWidest = 32000 / kTwipsPerPixel;
constexpr int kModulesPerStep = 50;

}  // namespace

ChartView::ChartView(QWidget* parent) : QChartView(parent) {
    setObjectName(QStringLiteral("MSChart1"));
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setRenderHint(QPainter::TextAntialiasing);
    chart()->setAnimationOptions(QChart::NoAnimation);
    chart()->setMargins(QMargins(4, 8, 4, 4));
}

void ChartView::Show(const ChartTable& table) {
    table_ = table;
    marked_ = table_.RowOf(markedKey_);
    scrolled_ = std::min(scrolled_, ScrollRange());
    setAccessibleDescription(QString::fromStdString(ChartAsText(table_)));
    Draw();
    Q_EMIT ScrollChanged();
}

void ChartView::Mark(int row) {
    markedKey_ = row >= 0 ? table_.rows[static_cast<std::size_t>(row)].key : std::string();
    marked_ = row;
    if (row >= 0 && (row < part_.first || row >= part_.first + part_.count)) {
        ScrollTo(static_cast<int>(GroupWidth() * (row + 0.5)) - viewport()->width() / 2);
        return;
    }
    LabelSeries(*chart(), table_, marked_);
    NameIt();
    viewport()->update();
}

// With many modules a step of fixed size would change nothing to be seen.
void ChartView::Zoom(int step) {
    const int share = std::max(1, Rows() / kModulesPerStep);
    extraWidth_ = step == 0 ? 0 : std::clamp(extraWidth_ + step * kStep * share, 0, kWidest * share);
    if (step <= 0)
        scrolled_ = 0;
    Draw();
    Q_EMIT ScrollChanged();
    if (marked_ >= 0)
        Mark(marked_);
}

int ChartView::WholeWidth() const {
    return viewport()->width() + extraWidth_;
}

int ChartView::ScrollRange() const {
    return Rows() > 0 ? extraWidth_ : 0;
}

void ChartView::ScrollTo(int pixels) {
    scrolled_ = std::clamp(pixels, 0, ScrollRange());
    Draw();
    Q_EMIT ScrollChanged();
}

double ChartView::GroupWidth() const {
    return Rows() > 0 ? static_cast<double>(WholeWidth()) / Rows() : 0;
}

ChartPart ChartView::PartInView() const {
    if (Rows() == 0)
        return {};
    const double width = GroupWidth();
    const int count = std::clamp(static_cast<int>(std::lround(viewport()->width() / width)), 1, Rows());
    const int first = std::clamp(static_cast<int>(std::lround(scrolled_ / width)), 0, Rows() - count);
    return {first, count, width, marked_};
}

void ChartView::Draw() {
    part_ = PartInView();
    DrawChart(*chart(), table_, part_, palette(), font());
    NameIt();
}

// A screen reader says the marked module with its values.
void ChartView::NameIt() {
    setAccessibleName(marked_ >= 0 ? QString::fromStdString(ChartTip(table_, marked_)) : QString());
    QAccessibleEvent named(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&named);
}

int ChartView::RowAt(QPoint place) const {
    if (chart()->series().isEmpty() || !chart()->plotArea().contains(mapToScene(place)))
        return -1;
    const double x = chart()->mapToValue(mapToScene(place), chart()->series().front()).x();
    return part_.first + std::clamp(static_cast<int>(std::lround(x)), 0, part_.count - 1);
}

QRectF ChartView::FrameOf(int row) const {
    if (chart()->series().isEmpty() || row < part_.first || row >= part_.first + part_.count)
        return {};
    QAbstractSeries* series = chart()->series().front();
    const QRectF plot = chart()->plotArea();
    const double left = chart()->mapToPosition(QPointF(row - part_.first - 0.5, 0), series).x();
    const double right = chart()->mapToPosition(QPointF(row - part_.first + 0.5, 0), series).x();
    return {left, plot.top(), right - left, plot.height()};
}

void ChartView::drawForeground(QPainter* painter, const QRectF& rect) {
    QChartView::drawForeground(painter, rect);
    const QRectF frame = FrameOf(marked_);
    if (frame.isEmpty())
        return;
    painter->setPen(QPen(palette().color(QPalette::Highlight), hasFocus() ? 2 : 1, Qt::DotLine));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(frame);
}

void ChartView::resizeEvent(QResizeEvent* event) {
    QChartView::resizeEvent(event);
    Draw();
    Q_EMIT ScrollChanged();
}

void ChartView::changeEvent(QEvent* event) {
    QChartView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        Draw();
}

void ChartView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    if (const int row = RowAt(event->pos()); row >= 0) {
        Mark(row);
        Q_EMIT Picked(row);
    }
}

void ChartView::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
}

void ChartView::mouseMoveEvent(QMouseEvent* event) {
    const int row = RowAt(event->pos());
    if (row < 0)
        QToolTip::hideText();
    else
        QToolTip::showText(event->globalPosition().toPoint(), QString::fromStdString(ChartTip(table_, row)),
                           viewport());
}

void ChartView::wheelEvent(QWheelEvent* event) {
    const QPoint turned = event->angleDelta();
    const int delta = turned.y() != 0 ? turned.y() : turned.x();
    if (event->modifiers().testFlag(Qt::ControlModifier))
        Zoom(delta > 0 ? 1 : -1);
    else
        ScrollTo(scrolled_ - delta);
    event->accept();
}

void ChartView::keyPressEvent(QKeyEvent* event) {
    if (Rows() == 0)
        return QChartView::keyPressEvent(event);
    switch (event->key()) {
        case Qt::Key_Left:
            return Mark(std::max(marked_ - 1, 0));
        case Qt::Key_Right:
            return Mark(std::min(marked_ + 1, Rows() - 1));
        case Qt::Key_Home:
            return Mark(0);
        case Qt::Key_End:
            return Mark(Rows() - 1);
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (marked_ >= 0)
                Q_EMIT Picked(marked_);
            return;
        default:
            QChartView::keyPressEvent(event);
    }
}

void ChartView::focusInEvent(QFocusEvent* event) {
    QChartView::focusInEvent(event);
    viewport()->update();
}

void ChartView::focusOutEvent(QFocusEvent* event) {
    QChartView::focusOutEvent(event);
    viewport()->update();
}

void ChartView::contextMenuEvent(QContextMenuEvent* event) {
    Q_EMIT MenuAsked(event->globalPos());
}
