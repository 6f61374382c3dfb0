#include "canvas/legend.h"

#include <QPainter>
#include <algorithm>
#include <array>
#include <functional>

#include "canvas/connector_layer.h"
#include "canvas/graph_colours.h"
#include "widgets/code_style.h"
#include "widgets/icons.h"
#include "widgets/qt_text.h"

namespace {

constexpr int kSample = 44;  // pixels of a sample before its text
constexpr int kGap = 8;

struct Line {
    Text text;
    ConnectorLook look;
    bool isLine = false;
    bool isSymbol = false;
};

constexpr ConnectorLook kIdle{};
constexpr ConnectorLook kPossible{.fill = ConnectorFill::Idle, .line = ConnectorLine::Idle, .isDashed = true};
constexpr ConnectorLook kInside{.fill = ConnectorFill::Inside, .line = ConnectorLine::Inside, .isDashed = false};
constexpr ConnectorLook kOutside{.fill = ConnectorFill::Outside, .line = ConnectorLine::Outside, .isDashed = false};

constexpr std::array kLines{
    Line{.text = Text::LegendSymbol, .look = kIdle, .isSymbol = true},
    Line{.text = Text::LegendCalls, .look = kIdle},
    Line{.text = Text::LegendUses, .look = kIdle, .isLine = true},
    Line{.text = Text::LegendPossible, .look = kPossible},
    Line{.text = Text::LegendInside, .look = kInside},
    Line{.text = Text::LegendOutside, .look = kOutside},
};

}  // namespace

GraphLegend::GraphLegend(const GraphColours& colours, QWidget* parent) : QWidget(parent), colours_(colours) {
    setObjectName(QStringLiteral("legend"));
    // What is below it is reached through it.
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void GraphLegend::Texte() {
    setAccessibleName(TextNr(Text::Legend));
    QStringList lines;
    for (const Line& line : kLines)
        lines.append(TextNr(line.text));
    setAccessibleDescription(lines.join(QStringLiteral("; ")));
    updateGeometry();
    adjustSize();
    update();
}

QSizeF GraphLegend::LineSize() const {
    double widest = 0;
    for (const Line& line : kLines)
        widest = std::max(widest, fontMetrics().boundingRect(TextNr(line.text)).width() + 2.0);
    return {kSample + kGap + widest, fontMetrics().height() + 4.0};
}

QSize GraphLegend::sizeHint() const {
    const QSizeF line = LineSize();
    return QSizeF(line.width() + 3 * kGap, line.height() * static_cast<double>(kLines.size()) + 2 * kGap).toSize();
}

void GraphLegend::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor ground = colours_.ground;
    ground.setAlphaF(0.92F);
    painter.setPen(Mixed(colours_.ground, palette().color(QPalette::Text), 0.3));
    painter.setBrush(ground);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    const QSizeF size = LineSize();
    double top = kGap;
    for (const Line& line : kLines) {
        const double middle = top + size.height() / 2;
        const double left = kGap;
        if (line.isSymbol) {
            constexpr int kImage = 16;
            IconFor("procedure")
                .paint(&painter, QRect(static_cast<int>(left) + (kSample - kImage) / 2,
                                       static_cast<int>(middle) - kImage / 2, kImage, kImage));
        } else {
            // As in the diagram: wide at the caller.
            const std::array<QPointF, 3> wedge{QPointF(left, middle - 50.0 / kTwipsPerPixel),
                                               QPointF(left, middle + 50.0 / kTwipsPerPixel),
                                               QPointF(left + kSample, middle)};
            const std::array<QPointF, 3> straight{QPointF(left, middle), QPointF(left + kSample, middle), {}};
            ConnectorPainter(painter, colours_).Paint(line.isLine ? straight : wedge, line.isLine, line.look);
        }
        painter.setPen(palette().color(QPalette::Text));
        painter.drawText(QRectF(left + kSample + kGap, top, size.width(), size.height()), Qt::AlignVCenter,
                         TextNr(line.text));
        top += size.height();
    }
}
