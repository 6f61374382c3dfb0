#include "views/main_panes.h"

#include "views/fold_splitter.h"
#include "views/twips.h"
#include "window_texts.h"

namespace {

class PanesTest : public WindowTest {
protected:
    PanesTest() {
        window.resize(1200, 800);
        panes.setGeometry(0, 0, 1200, 700);
    }
    void Show(const WindowSize& stored = {}, SplitMode mode = SplitMode::Calls) {
        panes.Restore(stored);
        panes.Arrange(mode);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    }
    void Resize(int width, int height) {
        window.resize(width, height);
        panes.resize(width, height - 100);
        QApplication::processEvents();
    }
    // The bars of the arrangement on the screen whose fold button can be clicked.
    [[nodiscard]] std::vector<const QSplitterHandle*> FoldingBars() const {
        std::vector<const QSplitterHandle*> bars;
        for (const QToolButton* button : panes.findChildren<QToolButton*>())
            if (button->isVisible())
                bars.push_back(qobject_cast<QSplitterHandle*>(button->parentWidget()));
        return bars;
    }

    QWidget window;
    QWidget &tree{*new QWidget}, &calledBy{*new QWidget}, &calls{*new QWidget}, &content{*new QWidget};
    MainPanes panes{{new QWidget, &tree, new QWidget, &calledBy, &calls, &content}, &window};
};

TEST_F(PanesTest, EachArrangementKeepsItsPlacesFoldsAndButtons) {
    WindowSize stored;
    stored.SplitX_Content = TwipsText(300);
    stored.SplitY_Content = TwipsText(410);
    stored.SplitX_Calls = TwipsText(350);
    stored.SplitY_Calls = TwipsText(150);
    Show(stored);
    // More than the panes above the bar need in width, and in height as little as that.
    calledBy.setMinimumWidth(400);
    for (const bool fold : {true, false}) {
        panes.picSplitY().SetFolded(fold);
        for (const SplitMode mode : {SplitMode::Content, SplitMode::Calls}) {
            panes.Arrange(mode);
            QApplication::processEvents();
            EXPECT_EQ(panes.picSplitY().Folded(), fold && mode == SplitMode::Calls);
            EXPECT_THAT(FoldingBars(),
                        testing::UnorderedElementsAre(panes.picSplitX().handle(1), panes.picSplitY().handle(1)));
        }
    }
    EXPECT_EQ(panes.picSplitY().sizes().front(), 150);
    panes.picSplitX().handle(1)->findChild<QToolButton*>()->click();
    EXPECT_EQ(panes.picSplitX().sizes().front(), 0);
    calledBy.setMinimumWidth(0);
    WindowSize now;
    panes.Store(now);
    EXPECT_EQ(now.SplitX_Content, stored.SplitX_Content);
    EXPECT_EQ(now.SplitY_Content, stored.SplitY_Content);
    EXPECT_EQ(now.SplitY_Calls, stored.SplitY_Calls);
    EXPECT_EQ(now.SplitX_Calls_Hide + now.SplitY_Calls_Hide + now.SplitX_Content_Hide, "100");
}

TEST_F(PanesTest, TreesShareANarrowWindowAndTheCodeKeepsAThird) {
    for (const int storedPixels : {0, 120, 350, 700}) {
        SCOPED_TRACE(storedPixels);
        WindowSize stored;
        if (storedPixels > 0) {
            stored.SplitX_Calls = TwipsText(storedPixels);
            stored.SplitY_Calls = TwipsText(storedPixels + 200);
        }
        Show(stored);
        for (const QSize size : {QSize(1024, 700), QSize(1700, 1000), QSize(1024, 700), QSize(800, 600)}) {
            Resize(size.width(), size.height());
            EXPECT_GE(tree.width(), 220);
            EXPECT_GE(std::min(calledBy.width(), calls.width()), ToPixels(2300));
            EXPECT_GE(content.height(), size.height() / 3);
        }
        panes.picSplitY().SetPlace(5000);
        EXPECT_GE(content.height(), 600 / 3) << "as by dragging the bar";
        Resize(1024, 700);
        panes.Restore(stored);
        EXPECT_LE(calledBy.width(), 1024 / 2);
        EXPECT_EQ(calledBy.width() == storedPixels, storedPixels == 350) << calledBy.width();
    }
}

TEST_F(PanesTest, TreeIsShownWhateverIsFolded) {
    for (const SplitMode mode : {SplitMode::Content, SplitMode::Calls}) {
        Show({}, mode);
        panes.picSplitX().SetFolded(true);
        panes.picSplitY().SetFolded(true);
        panes.ShowTree();
        EXPECT_FALSE(tree.visibleRegion().isEmpty());
    }
}

TEST(Twips, AnyNumberOfASettingsFileGivesPixels) {
    EXPECT_EQ(ToPixels(1500), 100);
    EXPECT_GT(ToPixels(1e300), 10'000);
    EXPECT_LT(ToPixels(-1e300), -10'000);
}

}  // namespace
