#include "charts/chart_view.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QGraphicsTextItem>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>

#include "charts/chart_export.h"

namespace {

ChartTable TableOf(int rows) {
    ChartTable table{ChartType::CodeLines, {"Code", "Comment", "Blank"}, {}};
    for (int i = 0; i < rows; ++i)
        table.rows.push_back({"m" + std::to_string(i), "Module" + std::to_string(i), {rows - i, 1, 0}});
    return table;
}

class ChartViews : public testing::Test {
protected:
    ChartViews() {
        view_.resize(600, 300);
        view_.Show(TableOf(10));
        view_.show();
    }
    // Middle of the part of the view that belongs to a row.
    [[nodiscard]] QPoint PlaceOf(int row) const {
        const QRectF plot = view_.chart()->plotArea();
        return QPointF(plot.left() + plot.width() * (row + 0.5) / 10, plot.center().y()).toPoint();
    }
    ChartView view_;
};

TEST_F(ChartViews, NumbersOfTheAxisHaveSeparators) {
    view_.Show(TableOf(4000));
    QApplication::processEvents();
    const auto items = view_.scene()->items();
    EXPECT_TRUE(std::any_of(items.begin(), items.end(), [](const QGraphicsItem* item) {
        const auto* text = qgraphicsitem_cast<const QGraphicsTextItem*>(item);
        return text && text->toPlainText() == QStringLiteral("4,000");
    }));
}

TEST_F(ChartViews, ClickPicksTheModuleUnderItHoweverShortItsBars) {
    const QSignalSpy picked(&view_, &ChartView::Picked);
    QTest::mouseClick(view_.viewport(), Qt::LeftButton, {}, PlaceOf(9));
    ASSERT_EQ(picked.count(), 1);
    EXPECT_EQ(picked.front().front().toInt(), 9);
    EXPECT_EQ(view_.Marked(), 9);
}

TEST_F(ChartViews, KeysWalkAndEnterPicks) {
    const QSignalSpy picked(&view_, &ChartView::Picked);
    for (const Qt::Key key : {Qt::Key_End, Qt::Key_Right, Qt::Key_Left})
        QTest::keyClick(&view_, key);
    EXPECT_EQ(view_.Marked(), 8);
    EXPECT_EQ(view_.accessibleName(), QStringLiteral("Module8 (Code = 2, Comment = 1, Blank = 0)"));
    EXPECT_EQ(picked.count(), 0);
    QTest::keyClick(&view_, Qt::Key_Return);
    EXPECT_EQ(picked.count(), 1);
}

TEST_F(ChartViews, ZoomScrollsAndTheMarkedModuleStaysInView) {
    EXPECT_EQ(view_.ScrollRange(), 0);
    for (int i = 0; i < 20; ++i)
        view_.Zoom(1);
    EXPECT_GT(view_.ScrollRange(), 600);
    view_.Mark(9);
    EXPECT_EQ(view_.ScrolledBy(), view_.ScrollRange());
    view_.Mark(0);
    EXPECT_EQ(view_.ScrolledBy(), 0);
    view_.Zoom(0);
    EXPECT_EQ(view_.ScrollRange(), 0);
}

TEST_F(ChartViews, MarkFollowsItsModuleIntoTheNextTable) {
    view_.Mark(3);
    ChartTable turned = TableOf(10);
    std::ranges::reverse(turned.rows);
    view_.Show(turned);
    EXPECT_EQ(view_.Marked(), 6);
    view_.Show(TableOf(2));
    EXPECT_EQ(view_.Marked(), -1);
    view_.Show({});
    QTest::keyClick(&view_, Qt::Key_Right);
    EXPECT_EQ(view_.Marked(), -1);
}

TEST_F(ChartViews, SeriesAreVisibleOnLightAndDarkGround) {
    for (const ChartType type : kChartTypes)
        for (int series = 0; series < 2; ++series)
            EXPECT_NE(SeriesColour(type, series, Qt::black), SeriesColour(type, series + 1, Qt::black));
    EXPECT_EQ(SeriesColour(ChartType::CodeLines, 0, Qt::white), QColor(0, 0, 255));
    EXPECT_GT(SeriesColour(ChartType::CodeLines, 0, Qt::black).lightness(), QColor(0, 0, 255).lightness());
}

TEST_F(ChartViews, PicturesAreWrittenWhole) {
    const QTemporaryDir dir;
    const QString svg = dir.filePath(QStringLiteral("c.svg")), png = dir.filePath(QStringLiteral("c.png"));
    ASSERT_TRUE(SaveChartPicture(TableOf(3), 1, {400, 400}, view_.font(), svg));
    ASSERT_TRUE(SaveChartPicture(TableOf(3), 1, {400, 200}, view_.font(), png));
    EXPECT_EQ(QImage(png).size(), QSize(800, 400));
    QFile file(svg);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().contains("Module2"));
    EXPECT_FALSE(SaveChartPicture(TableOf(3), 1, {400, 200}, view_.font(), dir.filePath(QStringLiteral("no/c.png"))));
}

}  // namespace
