#include "canvas/symbol_item.h"

#include <QHash>
#include <QPainter>
#include <QPixmap>
#include <QStyleOptionGraphicsItem>
#include <cmath>

#include "canvas/graph_colours.h"
#include "canvas/symbol_fonts.h"
#include "widgets/icons.h"
#include "widgets/qt_text.h"

namespace {

constexpr double kRing = 3;            // pixels around a symbol
constexpr double kReadableZoom = 0.4;  // captions of a smaller symbol are only a grey line
constexpr int kMostPictures = 400;     // some thirty icons in a dozen of zooms

QRectF Pixels(const GraphRect& rect) {
    return {rect.left / kTwipsPerPixel, rect.top / kTwipsPerPixel, rect.width / kTwipsPerPixel,
            rect.height / kTwipsPerPixel};
}

// Icons are drawn as SVG whenever they are asked for.
QHash<QPair<QLatin1StringView, int>, QPixmap>& Pictures() {
    static QHash<QPair<QLatin1StringView, int>, QPixmap> pictures;
    return pictures;
}

const QPixmap& Picture(std::string_view key, int pixels) {
    auto& pictures = Pictures();
    if (pictures.size() > kMostPictures)
        pictures.clear();
    QPixmap& picture = pictures[{QLatin1StringView(key.data(), static_cast<qsizetype>(key.size())), pixels}];
    if (picture.isNull())
        picture = IconFor(key).pixmap(QSize(pixels, pixels), 1.0);
    return picture;
}

}  // namespace

void ForgetSymbolPictures() {
    Pictures().clear();
}

SymbolItem::Content ContentOf(const ctlGraphObj& symbol, bool isMarked) {
    return {.modul = ToQString(symbol.MyModul),
            .name = ToQString(symbol.MyName),
            .image = symbol.image,
            .layout = symbol.layout,
            .isSelected = symbol.Selected,
            .isMarked = isMarked};
}

void SymbolItem::Show(const ctlGraphObj& symbol, bool isMarked) {
    Content content = ContentOf(symbol, isMarked);
    if (content.layout != content_.layout)
        prepareGeometryChange();
    if (content != content_) {
        content_ = std::move(content);
        update();
    }
    setPos(symbol.Left, symbol.Top);
    setZValue(symbol.zOrder);
}

QRectF SymbolItem::Frame() const {
    return {pos(), QSizeF(content_.layout.size.width, content_.layout.size.height)};
}

QRectF SymbolItem::boundingRect() const {
    const double ring = kRing * kTwipsPerPixel;
    return QRectF(0, 0, content_.layout.size.width, content_.layout.size.height).adjusted(-ring, -ring, ring, ring);
}

QPainterPath SymbolItem::shape() const {
    QPainterPath path;
    path.addRect(0, 0, content_.layout.size.width, content_.layout.size.height);
    return path;
}

// Painted in the pixels that captions are measured in.
void SymbolItem::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) {
    painter->scale(kTwipsPerPixel, kTwipsPerPixel);
    const QTransform& device = painter->deviceTransform();
    const double zoom = std::hypot(device.m11(), device.m12());
    const QRectF whole(0, 0, content_.layout.size.width / kTwipsPerPixel, content_.layout.size.height / kTwipsPerPixel);
    if (content_.isSelected) {
        QPen border(colours_.frame, 1, Qt::DotLine);
        border.setCosmetic(true);
        painter->setPen(border);
        painter->setBrush(colours_.selectedGround);
        painter->setRenderHint(QPainter::Antialiasing, false);
        painter->drawRect(whole);
        painter->setRenderHint(QPainter::Antialiasing, true);
    }
    if (content_.isMarked) {
        painter->setPen(QPen(colours_.mark, 1.5));
        painter->setBrush(Qt::NoBrush);
        const double ring = kRing - 1;
        painter->drawRoundedRect(whole.adjusted(-ring, -ring, ring, ring), ring, ring);
    }
    PaintImage(*painter, zoom);
    if (zoom >= kReadableZoom) {
        PaintCaptions(*painter, content_, colours_);
    } else {
        painter->fillRect(Pixels(content_.layout.name).adjusted(0, 3, 0, -3), colours_.modul);
    }
}

// At the size that it has on the screen, so that it is sharp at every zoom.
void SymbolItem::PaintImage(QPainter& painter, double pixels) const {
    const QRectF place = Pixels(content_.layout.image);
    const int size = std::max(1, static_cast<int>(std::lround(place.width() * pixels)));
    painter.drawPixmap(place, Picture(content_.image, size), QRectF(0, 0, size, size));
}

void PaintGround(QPainter& painter, const QRectF& place, const GraphColours& colours) {
    const QPainter::CompositionMode mode = painter.compositionMode();
    if (colours.ground.alpha() == 0)
        painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(place, colours.ground);
    painter.setCompositionMode(mode);
}

void PaintCaptions(QPainter& painter, const SymbolItem::Content& content, const GraphColours& colours) {
    struct Caption {
        const QString& text;
        GraphRect place;
        SymbolLabel label;
        QColor colour;
    };
    const bool isSelected = content.isSelected;
    for (const Caption& caption : {Caption{content.modul, content.layout.modul, SymbolLabel::Modul,
                                           isSelected ? colours.selectedModul : colours.modul},
                                   Caption{content.name, content.layout.name, SymbolLabel::Name,
                                           isSelected ? colours.selectedName : colours.name}}) {
        const QRectF place = Pixels(caption.place);
        // Captions hide the connectors below them; those of a selected symbol let its ground show.
        if (!isSelected && !caption.text.isEmpty())
            PaintGround(painter, place, colours);
        painter.setFont(FontOf(caption.label));
        painter.setPen(caption.colour);
        painter.drawText(place.adjusted(-1, 0, 1, 0), Qt::AlignCenter | Qt::TextDontClip | Qt::TextSingleLine,
                         caption.text);
    }
}
