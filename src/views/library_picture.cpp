#include "views/library_picture.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>
#include <QPainter>
#include <QPixmap>

#include "model/clsProjekt.h"
#include "model/clsTypeLib.h"
#include "project/start.h"
#include "widgets/icons.h"

namespace {

constexpr int kMostPixels = 512;  // a side
constexpr int kUsualPixels = 16;  // of the other icons

// As the toolbox does with bitmaps, which have no transparency of their own.
QImage WithoutGround(const QImage& image) {
    QImage result = image.convertToFormat(QImage::Format_ARGB32);
    const QRgb ground = result.pixel(0, result.height() - 1);
    for (int y = 0; y < result.height(); ++y)
        for (int x = 0; x < result.width(); ++x)
            if (result.pixel(x, y) == ground)
                result.setPixel(x, y, qRgba(0, 0, 0, 0));
    return result;
}

// In the middle of the usual size: the names beside a smaller one would not be in line with those of other nodes.
QImage AtLeastUsual(const QImage& image) {
    const QSize size = image.size().expandedTo({kUsualPixels, kUsualPixels});
    if (size == image.size())
        return image;
    QImage result(size, QImage::Format_ARGB32_Premultiplied);
    result.fill(Qt::transparent);
    QPainter(&result).drawImage((size.width() - image.width()) / 2, (size.height() - image.height()) / 2, image);
    return result;
}

}  // namespace

QIcon PictureOfFile(const std::string& file) {
    QByteArray bytes(file.data(), static_cast<qsizetype>(file.size()));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    const bool isBitmap = bytes.startsWith("BM");
    QImageReader reader(&buffer, isBitmap ? "bmp" : "ico");
    QIcon icon;
    do {
        const QSize size = reader.size();
        if (size.isEmpty() || size.width() > kMostPixels || size.height() > kMostPixels)
            break;
        const QImage image = reader.read();
        if (!image.isNull())
            icon.addPixmap(QPixmap::fromImage(AtLeastUsual(isBitmap ? WithoutGround(image) : image)));
    } while (!isBitmap && reader.jumpToNextImage());
    return icon;
}

QIcon LibraryPicture(std::string_view typeLibId) {
    if (gProjekt)
        for (const auto& library : gProjekt->OwnedLibraries())
            if (library->TypeLibID == typeLibId && !library->picture.empty())
                if (QIcon icon = PictureOfFile(library->picture); !icon.isNull())
                    return icon;
    return IconFor("Object");
}
