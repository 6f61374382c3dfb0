#include "views/icons.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QRegularExpression>
#include <QSet>
#include <cmath>
#include <map>
#include <set>
#include <string>
#include <vector>

using testing::Each;
using testing::Gt;
using testing::SizeIs;

namespace {

QImage Image(const QIcon& icon, int size, qreal ratio = 1, QIcon::Mode mode = QIcon::Normal) {
    return icon.pixmap(QSize(size, size), ratio, mode).toImage().convertToFormat(QImage::Format_ARGB32);
}

/// How much of the area is covered in one picture and not in the other, 0 to 1.
double ShapeDifference(const QImage& a, const QImage& b) {
    double sum = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            sum += std::abs(qAlpha(a.pixel(x, y)) - qAlpha(b.pixel(x, y))) / 255.0;
    return sum / (a.width() * a.height());
}

double Covered(const QImage& image) {
    QImage nothing(image.size(), QImage::Format_ARGB32);
    nothing.fill(Qt::transparent);
    return ShapeDifference(image, nothing);
}

std::set<QRgb> OpaqueColours(const QImage& image) {
    std::set<QRgb> colours;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) == 255)
                colours.insert(image.pixel(x, y));
    return colours;
}

double Contrast(const QColor& a, const QColor& b) {
    const auto luminance = [](const QColor& colour) {
        const auto linear = [](double part) {
            return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
    };
    const double la = luminance(a) + 0.05;
    const double lb = luminance(b) + 0.05;
    return std::max(la, lb) / std::min(la, lb);
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

// Right angles fall on whole pixels at the sizes of menus and toolbars; curves are drawn anew for each.
TEST_F(Icons, AreCrispAtOneAndTwoTimes) {
    for (const int size : {16, 24})
        for (const int ratio : {1, 2}) {
            const QImage lines = Image(IconFor("ContentCode"), size, ratio);
            int halfTones = 0;
            for (int y = 0; y < lines.height(); ++y)
                for (int x = 0; x < lines.width(); ++x)
                    halfTones += qAlpha(lines.pixel(x, y)) % 255 != 0;
            EXPECT_EQ(halfTones, 0) << size << " at " << ratio;
        }
    const QIcon round = IconFor("userevent");
    EXPECT_GT(ShapeDifference(Image(round, 16, 2), Image(round, 16).scaled(32, 32)), 0.01);
}

TEST_F(Icons, UnknownKeysAreEmpty) {
    for (const char* key : {"", "FORM", "moduleDeath", "eventDeath", "ostrivane"})
        EXPECT_TRUE(IconFor(key).isNull()) << key;
    EXPECT_FALSE(ApplicationIcon().isNull());
}

TEST_F(Icons, NoTwoInTheTreeAreAlikeWithoutColour) {
    const std::span<const std::string_view> inTree = AllIconKeys().first(27);
    ASSERT_EQ(inTree.back(), "EnumDeath");
    std::map<std::string_view, QImage> images;
    for (const std::string_view key : inTree)
        images[key] = Image(IconFor(key), 16, 1, QIcon::Selected);  // in one colour
    for (auto a = images.begin(); a != images.end(); ++a)
        for (auto b = std::next(a); b != images.end(); ++b)
            EXPECT_GT(ShapeDifference(a->second, b->second), 0.08) << a->first << " and " << b->first;
}

TEST_F(Icons, DeadFormsAreHollowAndCrossed) {
    for (const auto& [living, dead] : std::map<std::string_view, std::string_view>{{"procedure", "ProcedureDeath"},
                                                                                   {"property", "PropertyDeath"},
                                                                                   {"declare", "DeclareDeath"},
                                                                                   {"userevent", "UserEventDeath"},
                                                                                   {"variable", "VariableDeath"},
                                                                                   {"const", "ConstDeath"},
                                                                                   {"type", "TypeDeath"},
                                                                                   {"enum", "EnumDeath"}}) {
        SCOPED_TRACE(std::string(dead));
        const QImage alive = Image(IconFor(living), 16, 1, QIcon::Selected);
        const QImage hollow = Image(IconFor(dead), 16, 1, QIcon::Selected);
        EXPECT_LT(Covered(hollow.copy(0, 0, 9, 9)), Covered(alive.copy(0, 0, 9, 9)));
        EXPECT_GT(ShapeDifference(alive.copy(10, 10, 5, 5), hollow.copy(10, 10, 5, 5)), 0.3);
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

// Holds for the sources of all drawings, whichever key shows them.
TEST_F(Icons, DrawingsUseFewColoursThatStandOutOnLightAndDark) {
    QFile list(QStringLiteral(OSTRIVANE_SOURCE_DIR "/src/views/icons.qrc"));
    ASSERT_TRUE(list.open(QIODevice::ReadOnly));
    static const QRegularExpression aliases(QStringLiteral("alias=\"([^\"]+)\""));
    static const QRegularExpression colours(QStringLiteral("\"(#[0-9a-f]+)\""));
    const QString listed = QString::fromUtf8(list.readAll());
    for (auto alias = aliases.globalMatch(listed); alias.hasNext();) {
        const QString name = alias.next().captured(1);
        SCOPED_TRACE(name.toStdString());
        QFile file(QStringLiteral(":/icons/") + name);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        if (name.startsWith(QLatin1String("ostrivane")))
            continue;
        QSet<QString> used;
        const QString source = QString::fromUtf8(file.readAll());
        for (auto colour = colours.globalMatch(source); colour.hasNext();)
            used.insert(colour.next().captured(1));
        EXPECT_LE(used.size(), 3);
        std::vector<double> contrasts;
        for (const QString& colour : used)
            if (colour != QLatin1String("#444"))
                for (const QColor& ground : {QColor(0xff, 0xff, 0xff), QColor(0x1e, 0x1e, 0x1e)})
                    contrasts.push_back(Contrast(QColor(colour), ground));
        EXPECT_THAT(contrasts, Each(Gt(3.0)));
    }
}

}  // namespace
