// Why objects are alive or dead, in the window: the page, the ways, the impact, and what the user declares.
#include "views/why_wiring.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QUndoStack>
#include <filesystem>

#include "canvas/graph_canvas.h"
#include "display/project_reach.h"
#include "platform/settings_file.h"
#include "platform/temp_directory.h"
#include "project/start.h"
#include "reach/reasons.h"
#include "shell/settings.h"
#include "views/code_view.h"
#include "views/frm_declare.h"
#include "views/frm_main.h"
#include "views/frm_reach.h"
#include "views/reach_list.h"
#include "window_texts.h"

namespace {

using Kind = ReachRow::Kind;

class WhyWindow : public WindowTest {
protected:
    WhyWindow() : settings_(files_, directory_.Path("Ostrivane.ini")) {
        const std::filesystem::path samples = OSTRIVANE_SOURCE_DIR "/samples";
        std::filesystem::copy(samples, directory_.Path("samples"), std::filesystem::copy_options::recursive);
        gIniFile = settings_.Path();
        window_ = std::make_unique<frmMain>(files_, settings_, Settings(), ProgramDirectory());
        window_->resize(1200, 800);
        window_->show();
        window_->OpenProject(directory_.Path("samples/ToolHire/ToolHire.vbp"));
        EXPECT_TRUE(window_->TheWorkspace().ReadCalls());
        list_ = window_->findChild<ReachList*>(QStringLiteral("why"));
    }
    ~WhyWindow() override { window_.reset(); }

    QAction& Command(const char* key) { return *window_->findChild<QAction*>(QString::fromLatin1(key)); }
    void Why(const std::string& key) {
        window_->ActivateKey(key);
        window_->setFocus();
        Command("ShowWhy").trigger();
    }
    [[nodiscard]] int RowWhere(const std::function<bool(const ReachRow&)>& fits) const {
        const auto row = std::ranges::find_if(list_->Rows(), fits);
        return row == list_->Rows().end() ? -1 : static_cast<int>(row - list_->Rows().begin());
    }
    /// Presses a button of the next dialog, after a comment was typed.
    void AnswerNext(const char* button) {
        auto* timer = new QTimer(window_.get());
        QObject::connect(timer, &QTimer::timeout, timer, [timer, button] {
            auto* dialog = qobject_cast<frmDeclare*>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            timer->deleteLater();
            dialog->findChild<QLineEdit*>(QStringLiteral("comment"))->setText(QStringLiteral("by mail"));
            dialog->findChild<QPushButton*>(QString::fromLatin1(button))->click();
        });
        timer->start(1);
    }
    [[nodiscard]] Grade GradeAt(const std::string& path) const {
        return window_->TheWorkspace().TheReasons()->GradeOf(*gProjekt->GetObjectFromCodePath(path)).grade;
    }

    TempDirectory directory_;
    SettingsFile settings_;
    std::unique_ptr<frmMain> window_;
    ReachList* list_ = nullptr;
};

}  // namespace

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
    AnswerNext("cmdDeclare");
    Command("DeclareEntry").trigger();
    EXPECT_EQ(GradeAt(dead), Grade::Living);
    EXPECT_GE(RowWhere([](const ReachRow& row) { return row.text.ends_with("by mail"); }), 0);
    AnswerNext("cmdRemove");
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
