#include "canvas/legend.h"

#include <QFontMetricsF>
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

QSizeF LineSize(const QFont& font) {
    const QFontMetricsF metrics(font);
    double widest = 0;
    for (const Line& line : kLines)
        widest = std::max(widest, metrics.boundingRect(TextNr(line.text)).width() + 2.0);
    return {kSample + kGap + widest, metrics.height() + 4.0};
}

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

QSizeF LegendSize(const QFont& font) {
    const QSizeF line = LineSize(font);
    return {line.width() + 3 * kGap, line.height() * static_cast<double>(kLines.size()) + 2 * kGap};
}

QSize GraphLegend::sizeHint() const {
    return LegendSize(font()).toSize();
}

void GraphLegend::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor ground = colours_.ground;
    ground.setAlphaF(0.92F);
    const QColor text = palette().color(QPalette::Text);
    painter.setPen(Mixed(colours_.ground, text, 0.3));
    painter.setBrush(ground);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    PaintLegend(painter, {}, {colours_, text, font(), IconFor("procedure")});
}

void PaintLegend(QPainter& painter, QPointF at, const LegendLook& look) {
    painter.setFont(look.font);
    const QSizeF size = LineSize(look.font);
    const double left = at.x() + kGap;
    double top = at.y() + kGap;
    for (const Line& line : kLines) {
        const double middle = top + size.height() / 2;
        if (line.isSymbol) {
            constexpr int kImage = 16;
            look.symbol.paint(&painter, QRect(static_cast<int>(left) + (kSample - kImage) / 2,
                                              static_cast<int>(middle) - kImage / 2, kImage, kImage));
        } else {
            // As in the diagram: wide at the caller.
            const std::array<QPointF, 3> wedge{QPointF(left, middle - 50.0 / kTwipsPerPixel),
                                               QPointF(left, middle + 50.0 / kTwipsPerPixel),
                                               QPointF(left + kSample, middle)};
            const std::array<QPointF, 3> straight{QPointF(left, middle), QPointF(left + kSample, middle), {}};
            ConnectorPainter(painter, look.colours, 1).Paint(line.isLine ? straight : wedge, line.isLine, line.look);
        }
        painter.setPen(look.text);
        painter.drawText(QRectF(left + kSample + kGap, top, size.width(), size.height()), Qt::AlignVCenter,
                         TextNr(line.text));
        top += size.height();
    }
}
