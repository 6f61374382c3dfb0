// The diagram as a picture: what is where, in each format.
#include "canvas/graph_picture.h"

#include <QXmlStreamReader>

#include "canvas/symbol_fonts.h"
#include "shell/settings.h"
#include "support/project_test.h"
#include "xgraph/graph.h"

namespace {

class Pictures : public ProgramState {
protected:
    Pictures() {
        Analyse(ReadProject({{"M.bas", "Sub Go()\nStay\nEnd Sub\nSub Stay()\nEnd Sub\n"}}));
        graph.SetProject(gProjekt.get());
        graph.GraphObjCreate(&ObjectAt("m.go"), 30000, 30000, false);
        graph.GraphObjCreate(&ObjectAt("m.stay"), 33000, 34500, false);
    }
    /// Pixel of the diagram, from its upper left corner in twips.
    static QColor At(const QImage& image, double left, double top, int scale = 1) {
        const auto pixel = [scale](double twips) { return static_cast<int>((twips / 15 + 2) * scale); };
        return image.pixelColor(pixel(left), pixel(top));
    }
    [[nodiscard]] static QImage Read(const QByteArray& bytes, const char* format) {
        return QImage::fromData(bytes, format);
    }
    /// The texts of an SVG, each followed by "; ".
    static QString TextsOf(const QByteArray& svg) {
        QString texts;
        QXmlStreamReader reader(svg);
        while (!reader.atEnd())
            if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == QLatin1String("text"))
                texts += reader.readElementText() + QStringLiteral("; ");
        EXPECT_FALSE(reader.hasError());
        return texts;
    }

    [[nodiscard]] GraphPicture Picture() const { return {graph, settings}; }

    Settings settings;
    SymbolFonts fonts;
    XGraph graph{fonts};
};

TEST_F(Pictures, ABitmapIsTheSymbolsWithAMarginOfTwoPixels) {
    const GraphRect bounds = graph.SymbolBounds();
    const QImage image = Read(PictureBytes(Picture(), PictureFormat::Bmp, 4), "BMP");
    EXPECT_EQ(image.size(), QSize(static_cast<int>(bounds.width / 15) + 4, static_cast<int>(bounds.height / 15) + 4));
    EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::white));
    // Half way between the symbols there is the connector, beside it nothing.
    const GraphPoint from = graph.GraphObjects()[0]->Center();
    const GraphPoint to = graph.GraphObjects()[1]->Center();
    EXPECT_NE(At(image, (from.x + to.x) / 2 - 30000, (from.y + to.y) / 2 - 30000), QColor(Qt::white));
    EXPECT_EQ(At(image, (from.x + to.x) / 2 - 29000, (from.y + to.y) / 2 - 30000), QColor(Qt::white));
}

TEST_F(Pictures, WhatIsSelectedLooksLikeTheRest) {
    const QImage before = ImageOf(Picture(), 1);
    graph.GraphSelectAll();
    EXPECT_EQ(ImageOf(Picture(), 1), before);
    graph.SetActive(1);
    EXPECT_NE(ImageOf(Picture(), 1), before) << "the connectors of the active one are coloured";
}

TEST_F(Pictures, PngIsEnlargedAndItsGroundCanBeClear) {
    const QSizeF size = Picture().Size();
    const QImage white = Read(PictureBytes(Picture(), PictureFormat::Png, 3), "PNG");
    EXPECT_EQ(white.size(), (size * 3).toSize());
    EXPECT_EQ(At(white, 2500, 100, 3), QColor(Qt::white));
    const GraphPicture picture(graph, settings, {.hasClearGround = true});
    const QImage clear = Read(PictureBytes(picture, PictureFormat::Png, 3), "PNG");
    EXPECT_EQ(At(clear, 2500, 100, 3).alpha(), 0);
    // A caption hides the connector there as well: beside its letters the picture stays clear.
    const ctlGraphObj& first = *graph.GraphObjects()[0];
    const GraphRect& name = first.layout.name;
    EXPECT_EQ(At(clear, name.left + name.width / 2, name.top + name.height - 8, 3).alpha(), 0);
}

TEST_F(Pictures, TextStaysTextInDrawings) {
    EXPECT_EQ(TextsOf(PictureBytes(Picture(), PictureFormat::Svg, 1)), QStringLiteral("M; Go; M; Stay; "));
    const GraphPicture picture(graph, settings, {.hasLegend = true, .caption = QStringLiteral("P, 2 symbols")});
    EXPECT_TRUE(TextsOf(PictureBytes(picture, PictureFormat::Svg, 1)).endsWith(QStringLiteral("P, 2 symbols; ")));
    EXPECT_GT(picture.Size().height(), Picture().Size().height() + 50);
    const QByteArray pdf = PictureBytes(Picture(), PictureFormat::Pdf, 1);
    EXPECT_TRUE(pdf.contains("/FontFile2") || pdf.contains("/FontFile3") || pdf.contains("/FontFile ")) << "no curves";
    const QSizeF points = Picture().Size() * 0.75;
    QByteArray page = pdf.mid(pdf.indexOf("/MediaBox"), 80);
    const QList<QByteArray> numbers = page.mid(page.indexOf('[') + 1).replace(']', " ").split(' ');
    EXPECT_NEAR(numbers[2].toDouble(), points.width(), 1) << page.constData();
    EXPECT_NEAR(numbers[3].toDouble(), points.height(), 1) << page.constData();
}

TEST_F(Pictures, WhatIsTooLargeForPixelsIsNoPicture) {
    graph.MoveTo(2, {900'000, 34500});
    const GraphPicture picture = Picture();
    EXPECT_TRUE(PictureBytes(picture, PictureFormat::Bmp, 1).isEmpty());
    EXPECT_FALSE(PictureBytes(picture, PictureFormat::Svg, 1).isEmpty());
    EXPECT_FALSE(PictureBytes(picture, PictureFormat::Pdf, 1).isEmpty());
}

TEST_F(Pictures, WithoutSymbolsThereIsAnEmptyOne) {
    graph.Clear();
    const QImage image = Read(PictureBytes(Picture(), PictureFormat::Bmp, 1), "BMP");
    EXPECT_EQ(image.size(), QSize(4, 4));
    EXPECT_EQ(image.pixelColor(2, 2), QColor(Qt::white));
}

TEST_F(Pictures, APartHasWhatIsOnItOrCrossesIt) {
    const GraphPicture picture = Picture();
    const QSizeF size = picture.Size();
    const QSizeF third = size / 3;
    EXPECT_TRUE(picture.HasAnyAt({{0, 0}, third}));
    EXPECT_TRUE(picture.HasAnyAt({{third.width(), third.height()}, third})) << "only a connector";
    EXPECT_FALSE(picture.HasAnyAt({{2 * third.width() + 5, 0}, third}));
    EXPECT_FALSE(picture.HasAnyAt({{0, 2 * third.height() + 5}, third / 2}));
}

}  // namespace
