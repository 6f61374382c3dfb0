#include "main_window_test.h"
#include "views/baum_view.h"
#include "views/code_view.h"
#include "views/deleted_list.h"
#include "views/frm_delete.h"

namespace {

const std::string kModule =
    "Attribute VB_Name = \"M\"\nPublic count\nSub Main()\n  Help\nEnd Sub\nSub Help()\nEnd Sub\nSub Unused()\nEnd "
    "Sub\n";

/// The window with a small project on disk, and answers to what it asks.
class DeletingInWindow : public MainWindowTest {
protected:
    DeletingInWindow() {
        directory_.Write("P.vbp", "Type=Exe\r\nStartup=\"Sub Main\"\r\nModule=M; M.bas\r\nName=\"P\"\r\n");
        directory_.Write("M.bas", kModule);
        ShowWindow();
        QObject::connect(&look_, &QTimer::timeout, [this] { Answer(); });
        look_.start(1);
        window_->OpenProject(directory_.Path("P.vbp"));
    }

    void Answer() {
        QWidget* const open = QApplication::activeModalWidget();
        if (auto* dialog = qobject_cast<frmDelete*>(open)) {
            const auto& table = ChildOf<QTableWidget>(*dialog);
            asked_.append(table.item(0, 0)->text() + QStringLiteral(": ") + table.item(0, 2)->text());
            ChildOf<QPushButton>(*dialog, confirms_ ? "cmdDelete" : "cmdCancel").click();
        } else if (auto* box = qobject_cast<QMessageBox*>(open)) {
            asked_.append(box->text());
            box->button(answer_)->click();
        }
    }
    void Delete(const std::string& key) {
        window_->ActivateKey(key);
        QTest::keyClick(&window_->BaumProjekt(), Qt::Key_Delete);
    }
    /// The title as it is shown: with a mark where something is not saved.
    [[nodiscard]] QString Title() const {
        return window_->windowTitle().replace(QStringLiteral("[*]"),
                                              window_->isWindowModified() ? QStringLiteral("*") : QString());
    }
    [[nodiscard]] QString Code() const { return window_->rtbCode().toPlainText(); }

    QTimer look_;
    bool confirms_ = true;
    QMessageBox::StandardButton answer_ = QMessageBox::Save;
};

}  // namespace

TEST_F(DeletingInWindow, TheQuestionSaysWhoCallsAndTheCodeShowsThePlace) {
    confirms_ = false;
    Delete("m.help");
    EXPECT_EQ(asked_, QStringList{QStringLiteral("M.Help: Really: M.Main")});
    EXPECT_TRUE(gProjekt->GetObjectFromCodePath("m.help"));
    confirms_ = true;
    Delete("m.unused");
    EXPECT_EQ(asked_.last(), QStringLiteral("M.Unused: nobody"));
    EXPECT_FALSE(gProjekt->GetObjectFromCodePath("m.unused"));
    EXPECT_TRUE(Code().endsWith(QStringLiteral("Sub Help()\nEnd Sub\n")));
    EXPECT_EQ(window_->rtbCode().SelStart(), Code().size() + Code().count(QLatin1Char('\n')));
    EXPECT_EQ(directory_.Bytes("M.bas"), kModule);
}

TEST_F(DeletingInWindow, TheListTakesBackAndTheFileIsWrittenOnDemand) {
    Delete("m.unused");
    Delete("m.count");
    Command("DeletedHere").trigger();
    auto& table = ChildOf<QTableWidget>(Find<DeletedList>(), "table");
    ASSERT_EQ(table.rowCount(), 2);
    EXPECT_EQ(Title(), QStringLiteral("P:   Ostrivane (P.vbp)*"));
    QTest::keyClick(&table, Qt::Key_Delete);
    ASSERT_EQ(table.rowCount(), 1);
    EXPECT_TRUE(gProjekt->GetObjectFromCodePath("m.count"));
    EXPECT_EQ(table.item(0, 3)->text(), TextNr(Text::StillInFile));
    ChildOf<QPushButton>(Find<DeletedList>(), "cmdSave").click();
    EXPECT_EQ(table.item(0, 3)->text(), TextNr(Text::GoneFromFile));
    EXPECT_EQ(directory_.Bytes("M.bas"), kModule.substr(0, kModule.find("Sub Unused")));
    EXPECT_EQ(directory_.Bytes("M.bas.bak"), kModule);
    EXPECT_FALSE(window_->findChild<QAction*>(QStringLiteral("SaveModules"))->isEnabled());
    EXPECT_EQ(Title(), QStringLiteral("P:   Ostrivane (P.vbp)"));
    ChildOf<QPushButton>(Find<DeletedList>(), "cmdUndoAll").click();
    EXPECT_TRUE(Title().endsWith(QLatin1Char('*')));
    EXPECT_TRUE(gProjekt->GetObjectFromCodePath("m.unused"));
    EXPECT_TRUE(window_->findChild<QAction*>(QStringLiteral("SaveModules"))->isEnabled());
}

TEST_F(DeletingInWindow, NothingIsLostByClosing) {
    window_->ActivateKey("m");
    Command("DeleteDead").trigger();
    EXPECT_EQ(ChildOf<QTableWidget>(Find<DeletedList>(), "table").rowCount(), 2);
    EXPECT_TRUE(Find<DeletedList>().isVisible());
    answer_ = QMessageBox::Cancel;
    Command("CloseProject").trigger();
    EXPECT_TRUE(gProjekt);
    EXPECT_TRUE(asked_.last().contains(QStringLiteral("M.bas")));
    window_->OpenProject(directory_.Path("P.vbp"));
    EXPECT_EQ(ChildOf<QTableWidget>(Find<DeletedList>(), "table").rowCount(), 2);
    window_->close();
    EXPECT_TRUE(window_->isVisible());
    answer_ = QMessageBox::Discard;
    Command("CloseProject").trigger();
    EXPECT_FALSE(gProjekt);
    EXPECT_EQ(ChildOf<QTableWidget>(Find<DeletedList>(), "table").rowCount(), 0);
    EXPECT_EQ(directory_.Bytes("M.bas"), kModule);
}

TEST_F(DeletingInWindow, RefreshNamesEditedFilesInThePageOfTheProject) {
    const std::string name = "\xd4.bas";  // a letter of Windows-1251
    directory_.Write(name, kModule);
    directory_.Write("P.vbp", "Type=Exe\r\nModule=M; " + name + "\r\nName=\"P\"\r\n");
    Settings cyrillic;
    cyrillic.CodePage = "1251";
    ShowWindow(cyrillic);
    window_->OpenProject(directory_.Path("P.vbp"));
    Delete("m.unused");
    directory_.Write(name, kModule + "Sub More()\nEnd Sub\n");
    answer_ = QMessageBox::No;
    Command("Refresh").trigger();
    QTRY_COMPARE(asked_.last().section(QLatin1Char('\n'), -1), QStringLiteral("\u0424.bas"));
}
