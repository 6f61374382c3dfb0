// Which dots triangles and lines cover, and that a part of an image gets what the whole image has there.
#include "canvas/dot_painter.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QString>
#include <algorithm>
#include <cstdlib>
#include <random>

namespace {

constexpr QRgb kBlack = qRgb(0, 0, 0);

QImage White(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::white);
    return image;
}

/// A row as text: "#" is black, "." white, a digit how many ninths are black.
std::string Row(const QImage& image, int row) {
    std::string text;
    for (int column = 0; column < image.width(); ++column) {
        const int dark = 255 - qRed(image.pixel(column, row));
        text += dark == 0 ? '.' : dark == 255 ? '#' : static_cast<char>('0' + dark * 9 / 255);
    }
    return text;
}

TEST(Dots, ALineCoversAsMuchOfEachDotAsItsWidth) {
    QImage image = White(6, 6);
    DotPainter dots(image);
    dots.Draw({1, 1.5}, {5, 1.5}, {.colour = kBlack, .width = 1});
    dots.Draw({5, 4}, {1, 4}, {.colour = kBlack, .width = 2});
    for (const auto& [row, text] : {std::pair{0, "......"}, {1, ".####."}, {2, "......"}, {3, ".####."}, {4, ".####."}})
        EXPECT_EQ(Row(image, row), text);
    image = White(6, 6);
    dots = DotPainter(image);
    dots.Draw({2, 0}, {2, 9}, {.colour = kBlack, .width = 1});
    EXPECT_EQ(Row(image, 0), ".44...") << "half of each";
    EXPECT_EQ(Row(image, 5), ".44...") << "beyond the image there is nothing to paint";
}

TEST(Dots, DashesCountFromWhereTheLineBegins) {
    QImage image = White(14, 4);
    DotPainter dots(image);
    DotPainter::Line line{.colour = kBlack, .width = 1, .dash = 3, .gap = 2};
    dots.Draw({0, 0.5}, {14, 0.5}, line);
    dots.Draw({14, 1.5}, {0, 1.5}, line);
    line.phase = 4;
    dots.Draw({0, 2.5}, {14, 2.5}, line);
    dots.Draw({-7, 3.5}, {14, 3.5}, line);
    EXPECT_EQ(Row(image, 0), "###..###..###.");
    EXPECT_EQ(Row(image, 1), ".###..###..###");
    EXPECT_EQ(Row(image, 2), ".###..###..###");
    EXPECT_EQ(Row(image, 3), "##..###..###..") << "it began before the image";
}

TEST(Dots, ATriangleFillsTheDotsWhoseMiddleIsInside) {
    QImage image = White(6, 4);
    DotPainter(image).Fill({QPointF(0, 0), QPointF(8, 0), QPointF(0, 4)}, kBlack);
    EXPECT_EQ(Row(image, 0), "######");
    EXPECT_EQ(Row(image, 1), "#####.");
    EXPECT_EQ(Row(image, 2), "###...");
    EXPECT_EQ(Row(image, 3), "#.....");
}

// As the bands of a diagram are painted: lines and triangles that begin and end anywhere.
TEST(Dots, APartHasWhatTheWholeHasThere) {
    constexpr int kSide = 90;
    constexpr int kTop = 30;
    constexpr int kRows = 20;
    std::mt19937 random(7);
    std::uniform_real_distribution<double> anywhere(-kSide, 2 * kSide);
    const auto point = [&] { return QPointF(anywhere(random), anywhere(random)); };
    for (int nr = 0; nr < 400; ++nr) {
        SCOPED_TRACE(nr);
        QImage whole = White(kSide, kSide);
        QImage part = White(kSide, kRows);
        const std::array<QPointF, 3> corners{point(), nr % 8 == 0 ? QPointF(1e9, 1e8) : point(), point()};
        const QPointF up(0, -kTop);
        const DotPainter::Line line{
            .colour = qRgb(200, 30, 90), .width = 1 + nr % 3 * 0.75, .dash = nr % 2 * 5, .gap = 4, .phase = nr % 7};
        for (auto& [image, aside] : {std::pair<QImage&, QPointF>{whole, {}}, {part, up}}) {
            DotPainter dots(image);
            dots.Fill({corners[0] + aside, corners[1] + aside, corners[2] + aside}, kBlack);
            dots.Draw(corners[0] + aside, corners[1] + aside, line);
            dots.Draw(corners[2] + aside, corners[0] + aside, line);
        }
        int most = 0;
        for (int y = 0; y < kRows; ++y)
            for (int x = 0; x < kSide; ++x)
                most = std::max(most, std::abs(qRed(whole.pixel(x, y + kTop)) - qRed(part.pixel(x, y))));
        EXPECT_LE(most, 2);
    }
}

}  // namespace
