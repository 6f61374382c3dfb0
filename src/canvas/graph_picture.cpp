#include "canvas/graph_picture.h"

#include <QBuffer>
#include <QPageSize>
#include <QPaintEngine>
#include <QPainter>
#include <QPalette>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "canvas/connector_layer.h"
#include "canvas/graph_colours.h"
#include "canvas/legend.h"
#include "canvas/symbol_item.h"
#include "shell/operations.h"
#include "widgets/icons.h"
#include "xgraph/graph.h"

namespace {

constexpr double kMargin = 2;   // pixels
constexpr double kFootGap = 8;  // pixels above the legend and the caption
constexpr double kPointsPerPixel = 0.75;
constexpr double kLargestPage = 14'400;      // points; programs that show PDF go no farther
constexpr int kMostSide = 32'000;            // pixels; the painter goes no farther
constexpr double kMostPixels = 200'000'000;  // 800 million bytes
constexpr int kBands = 20;                   // of an image, between two looks at the window
constexpr int kQuality = 80;                 // of PNG: more effort takes seconds and saves little
constexpr QRgb kPaleModule = qRgb(180, 180, 180);

QFont FootFont() {
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(12);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

QPalette Paper() {
    QPalette paper;
    paper.setColor(QPalette::Base, Qt::white);
    paper.setColor(QPalette::Text, Qt::black);
    paper.setColor(QPalette::Highlight, Qt::blue);
    return paper;
}

// Takes nothing more after a cancel: large pictures are packed for seconds.
class CancellableBuffer final : public QBuffer {
protected:
    qint64 writeData(const char* data, qint64 size) override {
        DoEvents();
        return gAbort ? -1 : QBuffer::writeData(data, size);
    }
};

QByteArray ImageBytes(const QImage& image, const char* format) {
    CancellableBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    return !image.isNull() && image.save(&buffer, format, kQuality) ? buffer.data() : QByteArray();
}

QByteArray SvgBytes(const GraphPicture& picture) {
    QBuffer buffer;
    QSvgGenerator svg;
    svg.setOutputDevice(&buffer);
    svg.setResolution(96);
    svg.setSize(picture.Size().toSize());
    svg.setViewBox(QRectF(QPointF(), picture.Size()));
    QPainter painter(&svg);
    picture.Paint(painter, QRectF(QPointF(), picture.Size()));
    painter.end();
    return buffer.data();
}

QByteArray PdfBytes(const GraphPicture& picture) {
    const QSizeF points = picture.Size() * kPointsPerPixel;
    const double shrunk = std::min(1.0, kLargestPage / std::max(points.width(), points.height()));
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter pdf(&buffer);
    pdf.setPageSize(QPageSize(points * shrunk, QPageSize::Point, {}, QPageSize::ExactMatch));
    pdf.setPageMargins({});
    QPainter painter(&pdf);
    const double scale = shrunk * pdf.logicalDpiX() / 96;
    painter.scale(scale, scale);
    picture.Paint(painter, QRectF(QPointF(), picture.Size()));
    painter.end();
    return buffer.data();
}

}  // namespace

std::optional<PictureFormat> PictureFormatOf(const QString& path) {
    for (const auto& [suffix, format] : {std::pair{".bmp", PictureFormat::Bmp},
                                         {".png", PictureFormat::Png},
                                         {".svg", PictureFormat::Svg},
                                         {".pdf", PictureFormat::Pdf}})
        if (path.endsWith(QLatin1String(suffix), Qt::CaseInsensitive))
            return format;
    return {};
}

GraphPicture::GraphPicture(const XGraph& graph, const Settings& settings, PictureOptions options)
    : options_(std::move(options)),
      colours_(std::make_unique<GraphColours>(ColoursOf(Paper(), settings))),
      connectors_(std::make_unique<ConnectorLayer>()) {
    if (options_.hasClearGround)
        colours_->ground = Qt::transparent;
    if (options_.hasPaleModules)
        colours_->modul = kPaleModule;
    connectors_->Find(graph);
    for (const auto& symbol : graph.GraphObjects())
        symbols_.push_back(symbol.get());
    std::ranges::stable_sort(symbols_, {}, &ctlGraphObj::zOrder);
    const GraphRect bounds = graph.SymbolBounds();
    diagram_ = {bounds.left, bounds.top, bounds.width, bounds.height};
    size_ = {std::ceil(bounds.width / kTwipsPerPixel) + 2 * kMargin,
             std::ceil(bounds.height / kTwipsPerPixel) + 2 * kMargin};
    const auto addFoot = [this](QSizeF part) {
        size_ = {std::max(size_.width(), std::ceil(part.width()) + 2 * kMargin),
                 size_.height() + std::ceil(part.height()) + kFootGap};
    };
    if (options_.hasLegend)
        addFoot(LegendSize(FootFont()));
    const QFontMetricsF metrics(FootFont());
    if (!options_.caption.isEmpty())
        addFoot({metrics.horizontalAdvance(options_.caption), metrics.height()});
}

GraphPicture::~GraphPicture() = default;

QRectF GraphPicture::InTwips(const QRectF& pixels) const {
    return {diagram_.topLeft() + (pixels.topLeft() - QPointF(kMargin, kMargin)) * kTwipsPerPixel,
            pixels.size() * kTwipsPerPixel};
}

void GraphPicture::Paint(QPainter& painter, const QRectF& exposed) const {
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
    const QRectF twips = InTwips(exposed);
    painter.save();
    painter.translate(kMargin, kMargin);
    painter.scale(1 / kTwipsPerPixel, 1 / kTwipsPerPixel);
    painter.translate(-diagram_.topLeft());
    if (painter.paintEngine()->type() == QPaintEngine::Raster) {
        connectors_->PaintPixels(painter, twips, *colours_);
    } else {
        if (!options_.hasClearGround)
            painter.fillRect(twips, colours_->ground);
        connectors_->Paint(painter, twips, *colours_, kTwipsPerPixel);
    }
    painter.restore();
    for (const ctlGraphObj* symbol : symbols_)
        if (twips.intersects({symbol->Left, symbol->Top, symbol->Width(), symbol->Height()}))
            PaintSymbol(painter, *symbol);
    PaintFoot(painter);
}

bool GraphPicture::HasAnyAt(const QRectF& part) const {
    const QRectF twips = InTwips(part);
    return connectors_->HasAnyAt(twips) || std::ranges::any_of(symbols_, [&](const ctlGraphObj* symbol) {
               return twips.intersects({symbol->Left, symbol->Top, symbol->Width(), symbol->Height()});
           });
}

// Selected ones look like all others.
void GraphPicture::PaintSymbol(QPainter& painter, const ctlGraphObj& symbol) const {
    SymbolItem::Content content = ContentOf(symbol, false);
    content.isSelected = false;
    painter.save();
    painter.translate(QPointF(kMargin, kMargin) +
                      (QPointF(symbol.Left, symbol.Top) - diagram_.topLeft()) / kTwipsPerPixel);
    const GraphRect& image = content.layout.image;
    const QRectF place(image.left / kTwipsPerPixel, image.top / kTwipsPerPixel, image.width / kTwipsPerPixel,
                       image.height / kTwipsPerPixel);
    PaintGround(painter, place, *colours_);
    painter.save();
    painter.translate(place.topLeft());
    PaperIconFor(content.image).paint(&painter, QRect(QPoint(), place.size().toSize()));
    painter.restore();
    PaintCaptions(painter, content, *colours_);
    painter.restore();
}

void GraphPicture::PaintFoot(QPainter& painter) const {
    double top = 2 * kMargin + std::ceil(diagram_.height() / kTwipsPerPixel) + kFootGap;
    const QFont font = FootFont();
    if (options_.hasLegend) {
        PaintLegend(painter, {kMargin, top}, {*colours_, Qt::black, font, PaperIconFor("procedure")});
        top += std::ceil(LegendSize(font).height()) + kFootGap;
    }
    if (options_.caption.isEmpty())
        return;
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(QRectF(kMargin, top, size_.width(), size_.height() - top), Qt::AlignLeft | Qt::AlignTop,
                     options_.caption);
}

QImage ImageOf(const GraphPicture& picture, double scale) {
    const QSizeF size = picture.Size() * scale;
    if (std::max(size.width(), size.height()) > kMostSide || size.width() * size.height() > kMostPixels)
        return {};
    const bool isClear = picture.HasClearGround();
    QImage image(size.toSize(), isClear ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    if (image.isNull())
        return image;
    image.setDevicePixelRatio(scale);
    image.fill(isClear ? Qt::transparent : Qt::white);
    QPainter painter(&image);
    gProgress().Range(0, kBands);
    const double height = std::ceil(picture.Size().height() / kBands);
    for (int band = 0; band < kBands && !gAbort; ++band) {
        const QRectF place(0, band * height, picture.Size().width(), height);
        painter.setClipRect(place);
        picture.Paint(painter, place);
        gProgress().Progressiere_mal();
        DoEvents();
    }
    return gAbort ? QImage() : image;
}

QByteArray PictureBytes(const GraphPicture& picture, PictureFormat format, double scale) {
    switch (format) {
        case PictureFormat::Bmp:
            return ImageBytes(ImageOf(picture, 1), "BMP");
        case PictureFormat::Png:
            return ImageBytes(ImageOf(picture, scale), "PNG");
        case PictureFormat::Svg:
            return SvgBytes(picture);
        case PictureFormat::Pdf:
            return PdfBytes(picture);
    }
    return {};
}
