// Files that change on disk while the window shows their project: what it says, and what stays as it was.

#include "canvas/graph_canvas.h"
#include "display/baum_walk.h"
#include "main_window_test.h"
#include "views/baum_view.h"
#include "views/code_view.h"
#include "views/overview_pane.h"
#include "views/overview_table.h"
#include "views/references_list.h"
#include "views/remark_line.h"
#include "window_invariants.h"

namespace {

class RefreshWindow : public SampleWindow {
protected:
    RefreshWindow() { Open(); }

    void LookAtFiles() {
        QEvent event(QEvent::ActivationChange);
        QApplication::setActiveWindow(window_.get());
        QApplication::sendEvent(window_.get(), &event);
    }
    QToolButton& BarButton(const char* name = "FilesChanged") { return ChildOf<QToolButton>(*window_, name); }
    QWidget& Bar() { return *BarButton().parentWidget(); }
    QString BarText() { return Bar().isVisible() ? ChildOf<QLabel>(Bar()).text() : QString(); }
    void Refresh() { Command("Refresh").trigger(); }
};

TEST_F(RefreshWindow, ABarSaysThatFilesHaveChangedAndThenWhatChanged) {
    LookAtFiles();
    EXPECT_EQ(BarText(), QString());
    Append("modStore.bas", "\r\nPublic Sub JustAdded()\r\nEnd Sub\r\n");
    LookAtFiles();
    EXPECT_EQ(BarText(), QStringLiteral("1 file changed: modStore.bas"));
    EXPECT_FALSE(window_->TheWorkspace().Tree().Exist("modstore.justadded")) << "nothing is read by itself";
    BarButton("FilesChangedDismiss").click();
    LookAtFiles();
    EXPECT_EQ(BarText(), QString()) << "it is known now";
    Remove("modSlip.bas");
    LookAtFiles();
    const std::string project = TextOf("ToolHire.vbp");
    Save("ToolHire.vbp", Replace(project, "Form=frmReturn.frm\r\n", ""));
    LookAtFiles();
    EXPECT_EQ(BarText(), QStringLiteral("3 files changed: ToolHire.vbp (frmReturn.frm removed from the project), "
                                        "modStore.bas, modSlip.bas (missing)"));
    Save("ToolHire.vbp", project);
    LookAtFiles();
    EXPECT_EQ(BarText(), QStringLiteral("3 files changed: ToolHire.vbp, modStore.bas, modSlip.bas (missing)"));
    BarButton().click();
    EXPECT_EQ(BarText(), QStringLiteral("No procedure changed, 1 new; 1 newly dead; 1 not readable, left as it was"));
    EXPECT_TRUE(window_->TheWorkspace().Tree().Exist("modslip"));
    EXPECT_EQ(BrokenRules(*window_), QStringList());
    BarButton().click();
    auto& list = Find<OverviewTable>();
    ASSERT_TRUE(list.isVisible());
    ASSERT_EQ(list.model()->rowCount(), 2);
    EXPECT_EQ(list.model()->index(1, OverviewModel::Change).data(), QStringLiteral("new, newly dead"));
    list.setCurrentIndex(list.model()->index(1, OverviewModel::Name));
    QTest::keyClick(&list, Qt::Key_Return);
    ASSERT_TRUE(window_->TheWorkspace().Current().CurObject);
    EXPECT_EQ(window_->TheWorkspace().Current().CurObject->CodePath(), "modstore.justadded");
    LookAtFiles();
    EXPECT_FALSE(BarText().isEmpty()) << "what was said last stays until it is dismissed";
}

TEST_F(RefreshWindow, ReadsByItselfOnlyIfTheSettingsSaySo) {
    Refresh();
    EXPECT_EQ(StatusText(), TextNr(Text::NoFileChanged));
    window_->TheSettings().RefreshAuto = 1;
    Append("modStore.bas", "\r\nPublic Sub JustAdded()\r\nEnd Sub\r\n");
    LookAtFiles();
    EXPECT_TRUE(window_->TheWorkspace().Tree().Exist("modstore.justadded"));
    Save("ToolHire.vbp", "");
    LookAtFiles();  // no dialog
    EXPECT_FALSE(QApplication::activeModalWidget());
    EXPECT_TRUE(window_->TheWorkspace().Tree().Exist("modstore.justadded"));
}

TEST_F(RefreshWindow, AFileThatIsBeingWrittenIsReadWhenItIsWhole) {
    directory_.Write("samples/ToolHire/modStore.bas",
                     TextOf("modStore.bas") + "\r\nPublic Sub JustAdded()\r\nEnd Sub\r\n");
    Refresh();
    EXPECT_FALSE(window_->TheWorkspace().Tree().Exist("modstore.justadded"));
    EXPECT_TRUE(QTest::qWaitFor([this] { return window_->TheWorkspace().Tree().Exist("modstore.justadded"); }, 10000));
}

TEST_F(RefreshWindow, AMissingFileDoesNotInterrupt) {
    Remove("modSlip.bas");
    Refresh();
    EXPECT_EQ(BarText(), QStringLiteral("No procedure changed; 1 not readable, left as it was"));
    EXPECT_FALSE(gProjekt->problems.All().empty());
    Refresh();
    EXPECT_EQ(BarText(), QString()) << "nothing has changed since";
    EXPECT_EQ(BrokenRules(*window_), QStringList());
}

TEST_F(RefreshWindow, EverythingShownStaysWhereItWas) {
    auto& canvas = Find<GraphCanvas>();
    window_->ActivateKey("modstore.savebook");
    Command("ShowInGraph").trigger();
    const std::vector<SymbolPlace> places = canvas.Graph().Places();
    ASSERT_EQ(places.size(), 1U);
    window_->MainActions(13);
    window_->MainActions(9);
    CodeView& code = window_->rtbCode();
    code.Select({40, 5});
    const QString selected = code.textCursor().selectedText();
    Workspace& workspace = window_->TheWorkspace();
    ASSERT_FALSE(workspace.CalledBy().Roots().empty());
    workspace.Tree().SetExpanded(*workspace.Tree().Item("modmain"), true);
    const auto open = [&] { return NodesWhere(workspace.Tree(), &BaumNode::Expanded); };
    const std::vector<NodeId> folds = open();
    const auto history = workspace.Navigation().Current().node;
    for (const bool withProject : {false, true}) {
        Append("modStore.bas", std::string("Private Sub Added") + (withProject ? "1" : "0") + "()\r\nEnd Sub\r\n");
        if (withProject)  // another library: the whole project is loaded again
            Save("ToolHire.vbp", "Reference=*\\G{1}#1.0#0#C:\\w\\x.tlb#X\r\n" + TextOf("ToolHire.vbp"));
        Refresh();
        EXPECT_EQ(StatusText(), TextNr(Text::FilesChanged, withProject ? QStringLiteral("2") : QStringLiteral("1")));
        EXPECT_TRUE(BarText().startsWith(QStringLiteral("No procedure changed, 1 new"))) << BarText().toStdString();
        EXPECT_EQ(canvas.Graph().Places(), places);
        EXPECT_EQ(code.textCursor().selectedText(), selected);
        EXPECT_EQ(open(), folds);
        EXPECT_EQ(workspace.Navigation().Current().node, history);
        EXPECT_EQ(workspace.Current().CurObject->CodePath(), "modstore.savebook");
        EXPECT_EQ(BrokenRules(*window_), QStringList());
    }
}

}  // namespace
