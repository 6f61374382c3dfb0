#include "canvas/frame_layer.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "canvas/graph_colours.h"
#include "canvas/symbol_fonts.h"
#include "widgets/code_style.h"
#include "widgets/qt_text.h"
#include "xgraph/module_frames.h"

namespace {

constexpr int kPixels = 11;            // of a name
constexpr double kBeyond = 16;         // pixels that a name may be wider than its frame
constexpr double kReadableZoom = 0.8;  // names do not become smaller than at this one

// Hues that follow each other are far apart.
QColor HueOf(int nr) {
    constexpr double kGoldenRatio = 0.618034;
    const double hue = nr * kGoldenRatio;
    return QColor::fromHslF(static_cast<float>(hue - std::floor(hue)), 0.6F, 0.5F);
}

}  // namespace

void FrameLayer::Find(const XGraph& graph) {
    frames_.clear();
    for (const ModuleFrame& frame : ModuleFrames(graph))
        frames_.push_back({ToQString(frame.modul),
                           QRectF(frame.rect.left, frame.rect.top, frame.rect.width, frame.rect.height),
                           static_cast<int>(frames_.size())});
    std::stable_sort(frames_.begin(), frames_.end(), [](const Frame& one, const Frame& other) {
        return one.rect.width() * one.rect.height() > other.rect.width() * other.rect.height();
    });
}

void FrameLayer::Paint(QPainter& painter, const QRectF& exposed, const GraphColours& colours) const {
    painter.save();
    const double zoom = painter.transform().m11() * kTwipsPerPixel;
    const double unit = kTwipsPerPixel * std::max(1.0, kReadableZoom / zoom);  // of the name, in the scene
    QFont font = FontOf(SymbolLabel::Name);
    font.setPixelSize(kPixels);
    const QFontMetricsF metrics(font);
    painter.setFont(font);
    for (const Frame& frame : frames_) {
        if (!frame.rect.intersects(exposed))
            continue;
        const QColor hue = HueOf(frame.nr);
        QPen pen(Mixed(colours.ground, hue, 0.5), 1);
        pen.setCosmetic(true);
        painter.setPen(pen);
        QColor fill = hue;
        fill.setAlphaF(0.09F);
        painter.setBrush(fill);
        painter.drawRect(frame.rect);
        painter.setPen(Readable(hue, Mixed(colours.ground, hue, 0.09)));
        const double width = frame.rect.width() / unit + kBeyond;
        const QString name = metrics.elidedText(frame.name, Qt::ElideRight, width);
        if (name.size() < std::min<qsizetype>(3, frame.name.size()))
            continue;
        painter.save();
        painter.translate(frame.rect.topLeft());
        painter.scale(unit, unit);
        painter.drawText(QPointF(4, 2 + metrics.ascent()), name);
        painter.restore();
    }
    painter.restore();
}
