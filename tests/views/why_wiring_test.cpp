// Why objects are alive or dead, in the window: the page, the ways, the impact, and what the user declares.
#include "views/why_wiring.h"

#include "canvas/graph_canvas.h"
#include "display/project_reach.h"
#include "main_window_test.h"
#include "reach/reasons.h"
#include "views/baum_view.h"
#include "views/code_view.h"
#include "views/frm_declare.h"
#include "views/frm_reach.h"
#include "views/reach_list.h"
#include "views/search_bar.h"

namespace {

using Kind = ReachRow::Kind;

class WhyWindow : public SampleWindow {
protected:
    WhyWindow() {
        Open();
        EXPECT_TRUE(window_->TheWorkspace().ReadCalls());
    }

    void Why(const std::string& key) {
        window_->ActivateKey(key);
        window_->setFocus();
        Command("ShowWhy").trigger();
    }
    [[nodiscard]] int RowWhere(const std::function<bool(const ReachRow&)>& fits) const {
        const auto row = std::ranges::find_if(list_->Rows(), fits);
        return row == list_->Rows().end() ? -1 : static_cast<int>(row - list_->Rows().begin());
    }
    /// Types a comment into the next dialog and presses a button of it.
    void DeclareNext(const char* button) {
        OnNext<frmDeclare>([button](frmDeclare& dialog) {
            ChildOf<QLineEdit>(dialog, "comment").setText(QStringLiteral("by mail"));
            ChildOf<QPushButton>(dialog, button).click();
        });
    }
    [[nodiscard]] Grade GradeAt(const std::string& path) const {
        return window_->TheWorkspace().TheReasons()->GradeOf(*gProjekt->GetObjectFromCodePath(path)).grade;
    }

    ReachList* list_ = &ChildOf<ReachList>(*window_, "why");
};

}  // namespace

TEST_F(WhyWindow, EveryMenuOfAnObjectLeadsToItsReasons) {
    // The window for paths has a search of its own.
    const auto inWindow = [this](const auto& widgets) {
        return *std::ranges::find_if(widgets, [this](const QWidget* one) { return one->window() == window_.get(); });
    };
    SearchBar* const search = inWindow(window_->findChildren<SearchBar*>());
    auto* const field = search->findChild<QLineEdit*>();
    QListView* const hits = inWindow(window_->findChildren<QListView*>(QStringLiteral("hits")));
    auto* const canvas = window_->findChild<GraphCanvas*>();
    window_->RunOn(::Command::ShowInGraph, "modstore.loadbook");
    field->setText(QStringLiteral("VerifyStore"));
    ASSERT_TRUE(hits->isVisible());
    Q_EMIT hits->customContextMenuRequested(hits->visualRect(hits->currentIndex()).center());
    QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(canvas->viewport(), &key);
    auto* const impact = window_->findChild<frmReach*>(QStringLiteral("frmImpact"));
    for (const auto& [place, object] : {std::pair<QWidget*, const char*>{search, "modstore.verifystore"},
                                        std::pair<QWidget*, const char*>{canvas, "modstore.loadbook"}}) {
        SCOPED_TRACE(object);
        const QList<QMenu*> menus = place->findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly);
        ASSERT_EQ(menus.size(), 1);
        const auto actions = menus.front()->actions();
        const auto item = std::ranges::find_if(actions, [](const QAction* action) {
            return action->text().remove(QLatin1Char('&')).startsWith(TextNr(Text::Impact));
        });
        ASSERT_NE(item, actions.end());
        (*item)->trigger();
        EXPECT_TRUE(impact->isVisible());
        impact->close();
        EXPECT_EQ(NodeKeyOf(*window_->TheWorkspace().Current().CurObject), object);
        menus.front()->close();
    }
    EXPECT_FALSE(hits->isVisible());
    // What cannot be done with a library is grey.
    BaumView& tree = window_->BaumProjekt();
    window_->ActivateKey("stdole2");
    QApplication::sendEvent(tree.viewport(), &key);
    auto* const menu = tree.findChild<QMenu*>(QString(), Qt::FindDirectChildrenOnly);
    ASSERT_TRUE(menu);
    for (const QAction* const action : menu->actions()) {
        const auto texts = {Text::ShowWhy, Text::CallPath, Text::Impact, Text::DeclareEntry, Text::LeaveAlone};
        const QString text = action->text().remove(QLatin1Char('&'));
        const bool isForCode = action->shortcut() == QKeySequence::Delete ||
                               std::ranges::any_of(texts, [&](Text of) { return text.startsWith(TextNr(of)); });
        EXPECT_EQ(action->isEnabled(), action->isSeparator() || !isForCode) << text.toStdString();
    }
}

TEST_F(WhyWindow, ThePageFollowsTheObjectAndItsPlacesAreWalked) {
    Why("modstore.readsettings");
    ASSERT_TRUE(list_->isVisible());
    const int first = RowWhere([](const ReachRow& row) { return row.place == 0; });
    ASSERT_GT(first, 0);
    list_->setFocus();
    Command("NextPlace").trigger();
    EXPECT_TRUE(window_->TheWorkspace().WalksWhy());
    EXPECT_EQ(list_->currentIndex().row(), first);
    EXPECT_EQ(NodeKeyOf(*window_->TheWorkspace().Current().CurObject), "modstore.readsettings");
    EXPECT_EQ(window_->rtbCode().PlaceCount(), 1);
    window_->ActivateKey("modstore");
    EXPECT_TRUE(list_->Rows().empty());
    EXPECT_FALSE(Command("ShowWhy").isEnabled());
}

TEST_F(WhyWindow, WhatTheUserDeclaresCountsAtOnceAndIsTakenBack) {
    const std::string dead = "modslip.printbarcode";
    ASSERT_NE(GradeAt(dead), Grade::Living);
    Why(dead);
    DeclareNext("cmdDeclare");
    Command("DeclareEntry").trigger();
    EXPECT_EQ(GradeAt(dead), Grade::Living);
    EXPECT_GE(RowWhere([](const ReachRow& row) { return row.text.ends_with("by mail"); }), 0);
    DeclareNext("cmdRemove");
    Command("DeclareEntry").trigger();
    EXPECT_NE(GradeAt(dead), Grade::Living);
    EXPECT_TRUE(window_->TheWorkspace().TheReach().Stored(*gProjekt).declared.All().empty());
}

TEST_F(WhyWindow, AWayIsChosenShownInTheDiagramAndForgottenWithTheProject) {
    window_->ActivateKey("modmain.main");
    window_->setFocus();
    Command("CallPath").trigger();
    auto& window = *window_->findChild<frmReach*>(QStringLiteral("frmCallPath"));
    auto* field = window.findChild<QLineEdit*>(QStringLiteral("searchField"));
    QTest::keyClicks(field, QStringLiteral("ReadS"));
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_TRUE(window.isVisible() && field->text().isEmpty()) << "only the list of hits closes";
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
    Command("CallPath").trigger();
    QTest::keyClicks(field, QStringLiteral("ReadSettings"));
    QTest::keyClick(field, Qt::Key_Return);
    ASSERT_FALSE(window.List().Rows().empty());
    // The first row is a heading, which leads nowhere.
    EXPECT_EQ(window.List().CurrentObject(), "modmain.main");
    const auto* const goTo = window.findChild<QPushButton*>(QStringLiteral("cmdGoTo"));
    EXPECT_TRUE(goTo->isEnabled());
    QTest::keyClick(&window.List(), Qt::Key_Home);
    EXPECT_FALSE(goTo->isEnabled());
    const std::vector<std::string> keys = window.List().KeysMeant();
    EXPECT_EQ(keys.front(), "modmain.main");
    window.findChild<QPushButton*>(QStringLiteral("cmdGraph"))->click();
    GraphCanvas& canvas = *window_->findChild<GraphCanvas*>();
    EXPECT_EQ(canvas.Graph().GraphObjects().size(), keys.size());
    EXPECT_EQ(canvas.Undo().count(), 1);
    canvas.Undo().undo();
    EXPECT_TRUE(canvas.Graph().GraphObjects().empty());
    window_->CloseTheProject();
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(window.List().Rows().empty());
}
