#include "canvas/overview_map.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "canvas/graph_colours.h"
#include "widgets/code_style.h"
#include "widgets/qt_text.h"
#include "xgraph/graph.h"

namespace {

constexpr double kMargin = 4;          // pixels around the diagram
constexpr double kSmallestSymbol = 2;  // pixels, so that each can be seen
constexpr double kSmallestFrame = 6;   // pixels, so that it can be grasped
constexpr int kShortestSide = 40;      // pixels of a map of a single row

}  // namespace

GraphMap::GraphMap(const GraphColours& colours, QWidget* parent) : QWidget(parent), colours_(colours) {
    setObjectName(QStringLiteral("overviewMap"));
    setCursor(Qt::SizeAllCursor);
    hide();
}

void GraphMap::Texte() {
    setAccessibleName(TextNr(Text::OverviewMap));
}

QRectF GraphMap::ToMap(const QRectF& rect) const {
    const double scale = (width() - 2 * kMargin) / bounds_.width();
    return {kMargin + (rect.left() - bounds_.left()) * scale, kMargin + (rect.top() - bounds_.top()) * scale,
            rect.width() * scale, rect.height() * scale};
}

QPointF GraphMap::ToScene(QPointF point) const {
    const double scale = bounds_.width() / (width() - 2 * kMargin);
    return bounds_.topLeft() + (point - QPointF(kMargin, kMargin)) * scale;
}

void GraphMap::ShowGraph(const XGraph& graph, QSize most) {
    const GraphRect all = graph.SymbolBounds();
    bounds_ = {all.left, all.top, std::max(all.width, 1.0), std::max(all.height, 1.0)};
    // As large as it may be, with the shape of the diagram; one that is very long or tall has empty sides.
    const QSizeF room = QSizeF(most) - QSizeF(2 * kMargin, 2 * kMargin);
    const QSizeF size = bounds_.size().scaled(room, Qt::KeepAspectRatio);
    const QSizeF least = size.expandedTo({kShortestSide, kShortestSide});
    const double unit = bounds_.width() / size.width();
    const QSizeF aside = (least - size) * unit / 2;
    bounds_.adjust(-aside.width(), -aside.height(), aside.width(), aside.height());
    resize((least + QSizeF(2 * kMargin, 2 * kMargin)).toSize());

    picture_ = QPixmap(this->size() * devicePixelRatioF());
    picture_.setDevicePixelRatio(devicePixelRatioF());
    picture_.fill(Qt::transparent);
    QPainter painter(&picture_);
    QColor ground = colours_.ground;
    ground.setAlphaF(0.94F);
    painter.setPen(colours_.frame);
    painter.setBrush(ground);
    painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
    const QColor plain = Mixed(colours_.ground, colours_.name, 0.45);
    const auto paint = [&](const ctlGraphObj& symbol, const QColor& colour) {
        QRectF place = ToMap({symbol.Left, symbol.Top, symbol.Width(), symbol.Height()});
        place.setSize(place.size().expandedTo({kSmallestSymbol, kSmallestSymbol}));
        painter.fillRect(place, colour);
    };
    for (const auto& symbol : graph.GraphObjects())
        paint(*symbol, plain);
    for (const ctlGraphObj* symbol : graph.GraphSelected())
        paint(*symbol, colours_.mark);
    update();
}

void GraphMap::ShowView(const QRectF& seen) {
    seen_ = seen;
    update();
}

void GraphMap::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.drawPixmap(0, 0, picture_);
    QRectF frame = ToMap(seen_);
    const QSizeF least = frame.size().expandedTo({kSmallestFrame, kSmallestFrame});
    frame = QRectF(frame.center() - QPointF(least.width(), least.height()) / 2, least);
    frame &= QRectF(rect()).adjusted(1, 1, -1, -1);
    if (frame.isEmpty())
        return;
    QColor inside = colours_.mark;
    inside.setAlphaF(0.14F);
    painter.setPen(QPen(colours_.mark, 1.5));
    painter.setBrush(inside);
    painter.drawRect(frame.adjusted(0.5, 0.5, -0.5, -0.5));
}

// A click beside the frame brings it there.
void GraphMap::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    const QPointF at = ToScene(event->position());
    grip_ = seen_.contains(at) ? at - seen_.center() : QPointF();
    if (grip_.isNull())
        Q_EMIT Moved(at);
}

void GraphMap::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons().testFlag(Qt::LeftButton))
        Q_EMIT Moved(ToScene(event->position()) - grip_);
}
