#include "widgets/icons.h"

#include <set>

#include "platform/library_bytes.h"
#include "platform/picture_resource.h"
#include "views/library_picture.h"
#include "window_texts.h"

using testing::Each;
using testing::SizeIs;

namespace {

QImage Image(const QIcon& icon, int size, qreal ratio = 1, QIcon::Mode mode = QIcon::Normal) {
    return icon.pixmap(QSize(size, size), ratio, mode).toImage().convertToFormat(QImage::Format_ARGB32);
}

/// The covered part of the area, from 0 to 1.
double Covered(const QImage& image) {
    double sum = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            sum += qAlpha(image.pixel(x, y)) / 255.0;
    return sum / (image.width() * image.height());
}

std::set<QRgb> OpaqueColours(const QImage& image) {
    std::set<QRgb> colours;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) == 255)
                colours.insert(image.pixel(x, y));
    return colours;
}

class Icons : public testing::Test {
protected:
    ~Icons() override {
        QApplication::setPalette(before_);
        IconsPaletteChanged();
    }
    static void UsePalette(const char* text, const char* disabledText, const char* selectedText) {
        QPalette palette;
        palette.setColor(QPalette::ButtonText, QColor(QLatin1String(text)));
        palette.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(QLatin1String(disabledText)));
        palette.setColor(QPalette::HighlightedText, QColor(QLatin1String(selectedText)));
        QApplication::setPalette(palette);
        IconsPaletteChanged();
    }

private:
    QPalette before_ = QApplication::palette();
};

TEST_F(Icons, EveryKeyIsDrawnAtEverySizeAndRatio) {
    EXPECT_TRUE(IconFor("FORM").isNull());
    EXPECT_THAT(std::set(AllIconKeys().begin(), AllIconKeys().end()), SizeIs(AllIconKeys().size()));
    for (const std::string_view key : AllIconKeys()) {
        SCOPED_TRACE(std::string(key));
        const QIcon icon = IconFor(key);
        ASSERT_FALSE(icon.isNull());
        for (const int size : {16, 24, 32})
            for (const int ratio : {1, 2}) {
                const QImage image = Image(icon, size, ratio);
                EXPECT_EQ(image.size(), QSize(size * ratio, size * ratio));
                EXPECT_GT(Covered(image), 0.06);
            }
    }
}

TEST_F(Icons, MonochromeGlyphsAndStatesFollowThePalette) {
    const QIcon glyph = IconFor("NavPrev");
    const QIcon inColour = IconFor("event");
    UsePalette("#202020", "#a0a0a0", "#ffffff");
    EXPECT_THAT(OpaqueColours(Image(glyph, 32)), testing::ElementsAre(qRgb(0x20, 0x20, 0x20)));
    const QImage light = Image(inColour, 32);
    UsePalette("#e8e8e8", "#707070", "#101010");
    EXPECT_THAT(OpaqueColours(Image(glyph, 32)), testing::ElementsAre(qRgb(0xe8, 0xe8, 0xe8)));
    EXPECT_EQ(Image(inColour, 32), light);
    for (const std::string_view key : {"NavPrev", "event", "OpenProject", "AllObjTypes"}) {
        SCOPED_TRACE(std::string(key));
        EXPECT_THAT(OpaqueColours(Image(IconFor(key), 32, 1, QIcon::Disabled)), Each(qRgb(0x70, 0x70, 0x70)));
        EXPECT_THAT(OpaqueColours(Image(IconFor(key), 32, 1, QIcon::Selected)), Each(qRgb(0x10, 0x10, 0x10)));
    }
    EXPECT_EQ(Image(ApplicationIcon(), 32, 1, QIcon::Selected), Image(ApplicationIcon(), 32));
}

TEST_F(Icons, FillTheMiddleOfTheRectangleAtThePaintersScale) {
    QImage canvas(80, 40, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    painter.scale(2, 2);
    IconFor("form").paint(&painter, QRect(0, 2, 40, 16));
    painter.end();
    EXPECT_EQ(canvas.copy(24, 4, 32, 32).convertToFormat(QImage::Format_ARGB32), Image(IconFor("form"), 16, 2));
    EXPECT_EQ(Covered(canvas.copy(0, 0, 24, 40)) + Covered(canvas.copy(56, 0, 24, 40)), 0.0);
}

TEST_F(Icons, PictureOfAComponentIsABitmapOrAnIconOfItsFile) {
    const std::string program = LibraryBytes("pe_resources/pictures.dll").Bytes();
    const QImage bitmap = Image(PictureOfFile(PictureFileOf(program, 1)), 16);
    EXPECT_EQ(qAlpha(bitmap.pixel(0, 0)), 0) << "the colour of the lower left corner";
    EXPECT_EQ(bitmap.pixel(4, 4), qRgb(200, 0, 0));
    EXPECT_EQ(bitmap.pixel(8, 8), qRgb(255, 255, 255));
    const QImage icon = Image(PictureOfFile(PictureFileOf(program, 2)), 16);
    EXPECT_EQ(qAlpha(icon.pixel(0, 0)), 0) << "its mask";
    EXPECT_EQ(icon.pixel(3, 3), qRgb(255, 0, 0));
    EXPECT_EQ(PictureFileOf(program, 3), "");
    EXPECT_TRUE(PictureOfFile("BM of nothing").isNull());

    QImage small(8, 10, QImage::Format_RGB32);
    small.fill(Qt::red);
    small.setPixel(0, 9, qRgb(1, 1, 1));
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    small.save(&file, "BMP");
    const QIcon inTheMiddle = PictureOfFile(file.data().toStdString());
    EXPECT_EQ(inTheMiddle.actualSize({16, 16}), QSize(16, 16));
    EXPECT_EQ(Covered(Image(inTheMiddle, 16)), (8 * 10 - 1) / 256.0);
}

}  // namespace
