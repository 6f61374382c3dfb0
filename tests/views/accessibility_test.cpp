// The main window with a screen reader or without a mouse.

#include "display/recent_projects.h"
#include "main_window_test.h"
#include "views/baum_view.h"
#include "views/code_view.h"
#include "views/commands.h"
#include "views/fold_splitter.h"
#include "views/main_panes.h"
#include "views/mnemonics.h"
#include "views/overview_row.h"
#include "views/path_line.h"
#include "views/properties_grid.h"
#include "views/search_bar.h"
#include "window_invariants.h"

namespace {

class AccessibleWindow : public MainWindowTest {
protected:
    AccessibleWindow() {
        AddRecentProject(settings_, directory_.Path("gone & lost.vbp"));
        AddRecentProject(settings_, kSample);
        ShowWindow(WithoutCalls(), {1024, 700});
        QApplication::processEvents();
    }

    // Runs `check` for the empty window and both arrangements in both languages.
    template <class Check>
    void InEveryState(Check check) {
        for (const char* state : {"empty", "content", "calls"}) {
            if (state == std::string("content"))
                window_->OpenProject(kSample);
            if (state == std::string("calls"))
                window_->Split_For_Calls();
            for (const char* language : {"english", "german"}) {
                SCOPED_TRACE(std::string(state) + ", " + language);
                Speak(language);
                window_->frmMainTexte();
                QApplication::processEvents();
                check();
            }
        }
    }

    static void CheckMenu(const QList<QAction*>& items) {
        std::set<QChar> letters;
        for (const QAction* item : items) {
            if (item->isSeparator() || !item->isVisible())
                continue;
            const std::string text = item->text().toStdString();
            const qsizetype mark = item->text().indexOf(QLatin1Char('&'));
            EXPECT_GE(mark, 0) << text;
            if (mark >= 0) {
                EXPECT_TRUE(letters.insert(item->text()[mark + 1].toLower()).second) << text;
            }
            EXPECT_TRUE(item->isEnabled() || item->menu() || item->toolTip().contains(QLatin1Char('\n')))
                << text << " does not say why it is greyed";
            if (item->menu())
                CheckMenu(item->menu()->actions());
        }
    }

    // The widgets that Tab visits in one round.
    [[nodiscard]] std::set<const QWidget*> Round() const {
        std::set<const QWidget*> reached;
        window_->BaumProjekt().setFocus();
        while (window_->focusWidget() && reached.insert(window_->focusWidget()).second)
            QTest::keyClick(window_->focusWidget(), Qt::Key_Tab);
        return reached;
    }

    const std::string kSample = OSTRIVANE_SOURCE_DIR "/samples/ToolHire/ToolHire.vbp";
};

TEST_F(AccessibleWindow, NamesWhateverCanBeReachedAndCutsNoText) {
    InEveryState([this] {
        EXPECT_EQ(UnnamedWidgets(*window_), QStringList());
        EXPECT_EQ(CutTexts(*window_), QStringList());
        EXPECT_EQ(window_->size(), QSize(1024, 700));
    });
}

TEST_F(AccessibleWindow, EveryMenuItemHasALetterOfItsOwnAndSaysWhyItIsGreyed) {
    InEveryState([this] { CheckMenu(window_->menuBar()->actions()); });
    window_->TheCommands()[Command::CheckBoxOn].trigger();
    CheckMenu(window_->menuBar()->actions());
}

TEST_F(AccessibleWindow, MenuOfTheChartHasLetters) {
    window_->OpenProject(kSample);
    window_->TheCommands()[Command::ContentChart].trigger();
    bool isChecked = false;
    QTimer::singleShot(0, window_.get(), [&] {
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_TRUE(menu);
        CheckMenu(menu->actions());
        isChecked = menu->close();
    });
    for (QWidget* const widget : window_->findChildren<QWidget*>())
        if (widget->inherits("ChartView"))
            QMetaObject::invokeMethod(widget, "MenuAsked", Q_ARG(QPoint, QPoint()));
    EXPECT_TRUE(isChecked);
}

TEST_F(AccessibleWindow, ButtonsInTheSearchFieldHaveNames) {
    auto* const field = window_->findChild<QLineEdit*>(QStringLiteral("searchField"));
    field->setText(QStringLiteral("tax"));
    auto* const clear = field->findChild<QAction*>(QStringLiteral("_q_qlineeditclearaction"));
    ASSERT_TRUE(clear);
    for (QObject* const owner : clear->associatedObjects()) {
        if (auto* const button = qobject_cast<QAbstractButton*>(owner)) {
            EXPECT_NE(QAccessible::queryAccessibleInterface(button)->text(QAccessible::Name), QString());
        }
    }
}

TEST_F(AccessibleWindow, LettersAreGivenAsLongAsThereAreAny) {
    std::set<QChar> taken{QLatin1Char('c')};
    EXPECT_EQ(WithLetters({QStringLiteral("ab"), QStringLiteral("bc"), QStringLiteral("a")}, taken),
              (QStringList{QStringLiteral("&ab"), QStringLiteral("&bc"), QStringLiteral("a")}));
    taken.clear();
    // First letters of words are preferred: the first text leaves its letter to the second.
    EXPECT_EQ(WithLetters({QStringLiteral("Recent projects"), QStringLiteral("Reports")}, taken),
              (QStringList{QStringLiteral("Recent &projects"), QStringLiteral("&Reports")}));
    taken.clear();
    // With one more letter, all texts move to leave a letter for the last.
    EXPECT_EQ(WithLetters({QStringLiteral("ab"), QStringLiteral("&bc"), QStringLiteral("a")}, taken),
              (QStringList{QStringLiteral("a&b"), QStringLiteral("b&c"), QStringLiteral("&a")}));
}

TEST_F(AccessibleWindow, TabVisitsEveryPaneAndLeavesTheCode) {
    window_->OpenProject(kSample);
    QApplication::processEvents();
    const auto overview = Round();
    for (const OverviewRow* row : window_->findChildren<OverviewRow*>())
        EXPECT_EQ(overview.contains(row), row->isEnabled()) << row->accessibleName().toStdString();
    window_->ActivateKey("modmain");
    for (const bool calls : {false, true}) {
        SCOPED_TRACE(calls ? "calls" : "content");
        if (calls)
            window_->Split_For_Calls();
        QApplication::processEvents();
        const MainPanes& panes = Find<MainPanes>();
        const auto reached = Round();
        for (const QWidget* widget : std::initializer_list<const QWidget*>{
                 &window_->BaumProjekt(), &window_->rtbCode(), &Find<PathLine>(), &Find<PropertiesGrid>().Grid(),
                 Find<SearchBar>().findChild<QLineEdit*>(), panes.picSplitX().handle(1), panes.picSplitY().handle(1)})
            EXPECT_TRUE(reached.contains(widget)) << widget->metaObject()->className();
        for (const BaumView* tree : window_->findChildren<BaumView*>())
            EXPECT_EQ(reached.contains(tree), tree->isVisible());
    }
}

TEST_F(AccessibleWindow, BarsMoveAndFoldByKeys) {
    window_->OpenProject(kSample);
    QApplication::processEvents();
    FoldSplitter& bar = Find<MainPanes>().picSplitX();
    const int before = bar.Place();
    QTest::keyClick(bar.handle(1), Qt::Key_Right);
    EXPECT_GT(bar.Place(), before);
    QTest::keyClick(bar.handle(1), Qt::Key_Return);
    EXPECT_TRUE(bar.Folded());
    EXPECT_FALSE(window_->TheCommands()[Command::SplitX].isChecked());
    QTest::keyClick(bar.handle(1), Qt::Key_Left);  // a folded bar does not move
    QTest::keyClick(bar.handle(1), Qt::Key_Space);
    EXPECT_GT(bar.Place(), before);
}

TEST_F(AccessibleWindow, TreeCellsSayTheirKindAndWhetherTheyAreDead) {
    window_->OpenProject(kSample);
    (void)window_->TheWorkspace().ReadCalls();
    ASSERT_TRUE(window_->ActivateKey("modslip.printall"));
    QApplication::processEvents();
    const QAccessibleInterface* tree = QAccessible::queryAccessibleInterface(&window_->BaumProjekt());
    std::vector<std::string> names;
    for (int i = 0; i < tree->childCount(); ++i)
        names.push_back(tree->child(i)->text(QAccessible::Name).toStdString());
    EXPECT_THAT(names, testing::IsSupersetOf({"MODULE", "modSlip, module", "PrintAll(), public sub",
                                              "PrintBarcode(), public sub, dead"}));
    EXPECT_EQ(tree->text(QAccessible::Description), QString()) << "it is not empty";
    window_->CloseTheProject();
    EXPECT_NE(tree->text(QAccessible::Description), QString());
}

TEST_F(AccessibleWindow, RecentProjectsAreInTheFileMenu) {
    QMenu* recent = window_->menuBar()->actions().front()->menu()->actions().at(2)->menu();
    ASSERT_TRUE(recent);
    Q_EMIT recent->aboutToShow();
    ASSERT_EQ(recent->actions().size(), 2);
    EXPECT_TRUE(recent->actions()[0]->text().startsWith(QStringLiteral("&1  ToolHire.vbp")));
    EXPECT_FALSE(recent->actions()[1]->isEnabled());
    EXPECT_TRUE(recent->actions()[1]->text().contains(QStringLiteral("gone && lost.vbp")));
    EXPECT_TRUE(recent->actions()[1]->toolTip().contains(TextNr(Text::FileGone)));
    recent->actions()[0]->trigger();
    EXPECT_TRUE(gProjekt);
}

}  // namespace
