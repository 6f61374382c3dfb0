// The diagram in the window: it and the other panes follow each other, and its file.
#include "views/graph_wiring.h"

#include <QAction>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QTimer>
#include <QUndoStack>
#include <filesystem>
#include <fstream>

#include "canvas/graph_canvas.h"
#include "model/clsProjekt.h"
#include "platform/settings_file.h"
#include "platform/temp_directory.h"
#include "project/start.h"
#include "shell/settings.h"
#include "views/baum_view.h"
#include "views/commands.h"
#include "views/frm_main.h"
#include "widgets/qt_text.h"
#include "window_texts.h"
#include "xgraph/graph_file.h"

namespace {

class GraphWindow : public WindowTest {
protected:
    GraphWindow() : settings_(files_, directory_.Path("Ostrivane.ini")) {
        const std::filesystem::path samples = OSTRIVANE_SOURCE_DIR "/samples";
        std::filesystem::copy(samples, directory_.Path("samples"), std::filesystem::copy_options::recursive);
        gIniFile = settings_.Path();
        window_ = std::make_unique<frmMain>(files_, settings_, Settings(), ProgramDirectory());
        window_->resize(1200, 800);
        window_->show();
    }
    ~GraphWindow() override { window_.reset(); }

    [[nodiscard]] std::string Project() const { return directory_.Path("samples/ToolHire/ToolHire.vbp"); }
    void Open() {
        window_->OpenProject(Project());
        ASSERT_TRUE(gProjekt);
    }
    GraphCanvas& Canvas() { return *window_->findChild<GraphCanvas*>(); }
    QAction& Command(const char* key) { return *window_->findChild<QAction*>(QString::fromLatin1(key)); }
    /// Shows the object of a node in the diagram.
    void Show(const std::string& key) {
        window_->ActivateKey(key);
        window_->BaumProjekt().setFocus();
        Command("ShowInGraph").trigger();
    }
    std::string WriteFile(const char* name, const std::string& text) {
        const std::string path = directory_.Path(name);
        std::ofstream(path, std::ios::binary) << text;
        return path;
    }
    /// Presses a button of the next question.
    void AnswerNext(QMessageBox::StandardButton answer) {
        auto* timer = new QTimer(window_.get());
        QObject::connect(timer, &QTimer::timeout, timer, [this, timer, answer] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                asked_.push_back(box->text());
                timer->deleteLater();
                box->button(answer)->click();
            }
        });
        timer->start(1);
    }
    /// Chooses a file in the next dialog.
    void ChooseNext(const std::string& path) {
        auto* timer = new QTimer(window_.get());
        QObject::connect(timer, &QTimer::timeout, timer, [timer, path] {
            if (auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) {
                timer->deleteLater();
                dialog->selectFile(ToPath(path));
                QMetaObject::invokeMethod(dialog, "accept");
            }
        });
        timer->start(1);
    }

    TempDirectory directory_;
    SettingsFile settings_;
    std::unique_ptr<frmMain> window_;
    std::vector<QString> asked_;
};

TEST_F(GraphWindow, AnObjectOfTheTreeIsShownInTheGraphAndChosenThere) {
    Open();
    EXPECT_FALSE(Command("DeleteSymbols").isEnabled());
    Show("modmain.main");
    Show("modmain");
    EXPECT_EQ(window_->TheWorkspace().ContentShown(), ContentMode::Graph);
    EXPECT_TRUE(Canvas().isVisible());
    EXPECT_EQ(Canvas().Graph().GraphObjects().size(), 2U);
    EXPECT_TRUE(Command("DeleteSymbols").isEnabled());
    Q_EMIT Canvas().SymbolChosen("modmain.main");
    EXPECT_EQ(window_->TheWorkspace().Tree().Selected()->Key(), "modmain.main");
    Command("UndoGraph").trigger();
    Command("UndoGraph").trigger();
    EXPECT_TRUE(Canvas().Graph().GraphObjects().empty());
    EXPECT_FALSE(Command("UndoGraph").isEnabled());
    Command("ContentCode").trigger();
    EXPECT_FALSE(Canvas().isVisible());
}

TEST_F(GraphWindow, ADiagramIsSavedNamedAndOpenedAgain) {
    Open();
    Show("modmain.main");
    EXPECT_TRUE(window_->isWindowModified());
    const std::string path = directory_.Path("calls.ovg");
    ChooseNext(path);
    Command("SaveGraph").trigger();
    EXPECT_FALSE(window_->isWindowModified());
    EXPECT_TRUE(window_->windowTitle().contains(QStringLiteral("calls.ovg[*]")));
    const std::vector<SymbolPlace> places = Canvas().Graph().Places();
    Show("modmain");
    window_->CloseTheProject();
    Open();
    EXPECT_TRUE(Canvas().Graph().GraphObjects().empty());
    window_->OpenFile(path);
    EXPECT_EQ(Canvas().Graph().Places(), places);
    EXPECT_FALSE(window_->isWindowModified());
}

TEST_F(GraphWindow, ChangesThatAreNotSavedAreAskedAboutOnce) {
    Open();
    Show("modmain.main");
    AnswerNext(QMessageBox::Cancel);
    Command("CloseProject").trigger();
    EXPECT_TRUE(gProjekt);
    AnswerNext(QMessageBox::Discard);
    Command("CloseProject").trigger();
    EXPECT_FALSE(gProjekt);
    EXPECT_EQ(asked_.size(), 2U);
    EXPECT_TRUE(asked_.front().contains(QStringLiteral("X-Graph")));
}

TEST_F(GraphWindow, ForeignFilesLeaveTheDiagramAlone) {
    Open();
    Show("modmain.main");
    Canvas().Undo().setClean();
    const std::string path = WriteFile("no.ovg", "Hello\r\n");
    AnswerNext(QMessageBox::Ok);
    auto* second = new QTimer(window_.get());
    QObject::connect(second, &QTimer::timeout, second, [this, second] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box && asked_.size() == 1) {
            asked_.push_back(box->text());
            second->deleteLater();
            box->accept();
        }
    });
    second->start(20);
    window_->OpenFile(path);
    EXPECT_EQ(Canvas().Graph().GraphObjects().size(), 1U);
    ASSERT_EQ(asked_.size(), 2U);
    EXPECT_TRUE(asked_[1].contains(TextNr(Text::GraphFileForeign))) << asked_[1].toStdString();
}

TEST_F(GraphWindow, ADiagramWaitsForItsProject) {
    const std::string path =
        WriteFile("w.ovg", "Version=1\r\nBEGIN:\r\nCodePath=modmain.main\r\nLeft=600\r\nTop=900\r\nEND:\r\n");
    window_->OpenFile(path);
    Open();
    ASSERT_EQ(Canvas().Graph().GraphObjects().size(), 1U);
    EXPECT_EQ(Canvas().Graph().GraphObjects().front()->Left, 600);
}

TEST_F(GraphWindow, SymbolsOfObjectsThatHaveGoneComeBackByUndo) {
    Open();
    Show("modmain.main");
    Show("modstore");
    const std::vector<SymbolPlace> before = Canvas().Graph().Places();
    const std::string file = directory_.Path("samples/ToolHire/modMain.bas");
    std::ostringstream text;
    text << std::ifstream(file, std::ios::binary).rdbuf();
    const auto save = [&](const std::string& bytes) {
        const auto date = std::filesystem::last_write_time(file);
        std::ofstream(file, std::ios::binary) << bytes;
        std::filesystem::last_write_time(file, date + std::chrono::seconds(10));
        Command("Refresh").trigger();
    };
    const int steps = Canvas().Undo().count();
    save(text.str() + "Private Sub Added()\r\nEnd Sub\r\n");
    EXPECT_EQ(Canvas().Graph().Places(), before);
    EXPECT_EQ(Canvas().Undo().count(), steps) << "nothing to undo";
    save("Attribute VB_Name = \"modMain\"\r\n");
    EXPECT_EQ(Canvas().Graph().GraphObjects().size(), 1U);
    save(text.str());
    Command("UndoGraph").trigger();
    EXPECT_EQ(Canvas().Graph().Places(), before);
    EXPECT_FALSE(Canvas().grab().isNull());
}

TEST_F(GraphWindow, AChainAddsCallees) {
    Open();
    Show("modmain.main");
    ASSERT_TRUE(Command("CallsChain").isEnabled());
    Command("CallsChain").trigger();
    const std::size_t symbols = Canvas().Graph().GraphObjects().size();
    EXPECT_GT(symbols, 1U);
    Command("UndoGraph").trigger();
    EXPECT_EQ(Canvas().Graph().GraphObjects().size(), 1U);
}

}  // namespace
