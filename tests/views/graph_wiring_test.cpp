// The diagram in the window: it and the other panes follow each other, and its file.
#include "views/graph_wiring.h"

#include "canvas/graph_canvas.h"
#include "main_window_test.h"
#include "shell/operations.h"
#include "views/baum_view.h"
#include "views/commands.h"
#include "views/graph_chains.h"
#include "xgraph/graph_file.h"

namespace {

class GraphWindow : public SampleWindow {
protected:
    [[nodiscard]] GraphCanvas& Canvas() const { return Find<GraphCanvas>(); }
    /// Shows the object of a node in the diagram.
    void Show(const std::string& key) {
        window_->ActivateKey(key);
        window_->BaumProjekt().setFocus();
        Command("ShowInGraph").trigger();
    }
    /// Chooses a file in the next dialog.
    void ChooseNext(const std::string& path) {
        OnNext<QFileDialog>([path](QFileDialog& dialog) {
            dialog.selectFile(ToPath(path));
            QMetaObject::invokeMethod(&dialog, "accept");
        });
    }
};

class OpenGraph : public GraphWindow {
protected:
    OpenGraph() { Open(); }
};

TEST_F(OpenGraph, AnObjectOfTheTreeIsShownInTheGraphAndChosenThere) {
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

// Commands have the letters of the menu bar, which only there are different from each other.
TEST_F(OpenGraph, EachItemOfTheContextMenuHasALetterThatNoCommandHas) {
    for (const char* key : {"modmain.main", "modmain"})
        Show(key);
    for (const char* language : {"english", "german"}) {
        Speak(language);
        window_->frmMainTexte();
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
        QApplication::sendEvent(Canvas().viewport(), &event);
        auto* const menu = Canvas().findChild<QMenu*>(QString(), Qt::FindDirectChildrenOnly);
        ASSERT_TRUE(menu);
        QStringList own, commands;
        for (const QAction* item : menu->actions()) {
            if (item->isSeparator() || !item->isVisible())
                continue;
            const qsizetype mark = item->text().indexOf(QLatin1Char('&'));
            EXPECT_GE(mark, 0) << item->text().toStdString();
            const bool isCommand = !item->objectName().isEmpty();
            (isCommand ? commands : own).append(item->text().mid(mark + 1, 1).toLower());
        }
        EXPECT_GT(own.size(), 4);
        const qsizetype count = own.size();
        EXPECT_EQ(own.removeDuplicates(), 0) << own.join(QLatin1Char(' ')).toStdString();
        for (const QString& letter : own)
            EXPECT_FALSE(commands.contains(letter)) << letter.toStdString() << " of " << count;
        delete menu;
    }
}

TEST_F(OpenGraph, ADiagramIsSavedNamedAndOpenedAgain) {
    Show("modmain.main");
    EXPECT_TRUE(window_->isWindowModified());
    const std::string path = directory_.Path("calls.ovg");
    OnNext<QFileDialog>([path](QFileDialog& dialog) {
        EXPECT_EQ(QFileInfo(dialog.selectedFiles().value(0)).fileName(), QStringLiteral("ToolHire.ovg"));
        dialog.selectFile(ToPath(path));
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    Command("SaveGraph").trigger();
    EXPECT_FALSE(window_->isWindowModified());
    EXPECT_TRUE(window_->windowTitle().endsWith(QStringLiteral("calls.ovg")));
    const std::vector<SymbolPlace> places = Canvas().Graph().Places();
    Show("modmain");
    window_->CloseTheProject();
    Open();
    EXPECT_TRUE(Canvas().Graph().GraphObjects().empty());
    window_->OpenFile(path);
    EXPECT_EQ(Canvas().Graph().Places(), places);
    EXPECT_FALSE(window_->isWindowModified());
}

TEST_F(OpenGraph, ChangesThatAreNotSavedAreAskedAboutOnce) {
    Show("modmain.main");
    AnswerNext(QMessageBox::Cancel);
    Command("CloseProject").trigger();
    EXPECT_TRUE(gProjekt);
    AnswerNext(QMessageBox::Discard);
    Command("CloseProject").trigger();
    EXPECT_FALSE(gProjekt);
    EXPECT_EQ(asked_.size(), 2);
    EXPECT_TRUE(asked_.front().contains(QStringLiteral("X-Graph")));
}

TEST_F(OpenGraph, ForeignFilesLeaveTheDiagramAlone) {
    Show("modmain.main");
    Canvas().Undo().setClean();
    const std::string path = directory_.Write("no.ovg", "Hello\r\n");
    AnswerNext(QMessageBox::Ok);
    AnswerNext(QMessageBox::Ok);
    window_->OpenFile(path);
    EXPECT_EQ(Canvas().Graph().GraphObjects().size(), 1U);
    ASSERT_EQ(asked_.size(), 2);
    EXPECT_TRUE(asked_[1].contains(TextNr(Text::GraphFileForeign))) << asked_[1].toStdString();
}

TEST_F(GraphWindow, ADiagramWaitsForItsProject) {
    const std::string path =
        directory_.Write("w.ovg", "Version=1\r\nBEGIN:\r\nCodePath=modmain.main\r\nLeft=600\r\nTop=900\r\nEND:\r\n");
    ChooseNext(path);
    Command("OpenProject").trigger();
    Open();
    ASSERT_EQ(Canvas().Graph().GraphObjects().size(), 1U);
    EXPECT_EQ(Canvas().Graph().GraphObjects().front()->Left, 600);
}

TEST_F(OpenGraph, SymbolsOfObjectsThatHaveGoneComeBackByUndo) {
    Show("modmain.main");
    Show("modstore");
    const std::vector<SymbolPlace> before = Canvas().Graph().Places();
    const std::string text = TextOf("modMain.bas");
    const auto save = [this](const std::string& bytes) {
        Save("modMain.bas", bytes);
        Command("Refresh").trigger();
    };
    const int steps = Canvas().Undo().count();
    save(text + "Private Sub Added()\r\nEnd Sub\r\n");
    EXPECT_EQ(Canvas().Graph().Places(), before);
    EXPECT_EQ(Canvas().Undo().count(), steps) << "nothing to undo";
    save("Attribute VB_Name = \"modMain\"\r\n");
    EXPECT_EQ(Canvas().Graph().GraphObjects().size(), 1U);
    save(text);
    Command("UndoGraph").trigger();
    EXPECT_EQ(Canvas().Graph().Places(), before);
    EXPECT_FALSE(Canvas().grab().isNull());
}

TEST_F(OpenGraph, AChainAddsCalleesOfTheSelectedProcedures) {
    Show("modmain.main");
    ASSERT_TRUE(Command("CallsChain").isEnabled());
    Command("CallsChain").trigger();
    const std::size_t symbols = Canvas().Graph().GraphObjects().size();
    EXPECT_GT(symbols, 1U);
    Canvas().SelectAll();
    Command("AddAllCallees").trigger();
    EXPECT_GT(Canvas().Graph().GraphObjects().size(), symbols);
    Command("UndoGraph").trigger();
    EXPECT_EQ(Canvas().Graph().GraphObjects().size(), symbols);
    Command("UndoGraph").trigger();
    EXPECT_EQ(Canvas().Graph().GraphObjects().size(), 1U);
}

TEST_F(OpenGraph, AChainOfTheTreesProcedureBringsItsSymbolAlong) {
    window_->ActivateKey("modmain.main");
    window_->BaumProjekt().setFocus();
    Command("AddCallees").trigger();
    EXPECT_EQ(window_->TheWorkspace().ContentShown(), ContentMode::Graph);
    EXPECT_GT(Canvas().Graph().GraphObjects().size(), 1U);
    Command("UndoGraph").trigger();
    EXPECT_TRUE(Canvas().Graph().GraphObjects().empty()) << "one step";
}

// The buttons are "Show all", "First level only" and "Cancel".
TEST_F(OpenGraph, ALongChainIsAskedAboutWithItsNumber) {
    clsProzedur& start = static_cast<clsProzedur&>(*gProjekt->GetObjectFromCodePath("modmain.main"));
    const auto answer = [this](Text button) {
        OnNext<QMessageBox>([this, button](QMessageBox& box) {
            asked_.push_back(box.text());
            for (QAbstractButton* each : box.buttons())
                if (each->text().remove(QLatin1Char('&')) == TextNr(button))
                    each->click();
        });
    };
    const GraphPorts ports{
        .run = [](const std::string&, const std::function<void()>& operation) { return RunOperation(operation); },
        .showContent = {},
        .showNow = {},
        .message = [](const QString&) {}};
    GraphChains chains(Canvas(), ports, window_.get());
    chains.mostUnasked = 2;
    const auto symbolsAfter = [&](Text button) {
        answer(button);
        chains.Add({}, GraphChain::CallsAll, ChainObjectType::Procedure, {&start});
        const std::size_t symbols = Canvas().Graph().GraphObjects().size();
        Canvas().Change({}, [](XGraph& graph) { graph.Clear(); });
        return symbols;
    };
    EXPECT_EQ(symbolsAfter(Text::Cancel), 0U);
    const std::size_t first = symbolsAfter(Text::FirstLevelOnly);
    EXPECT_GT(first, 1U);
    EXPECT_GT(symbolsAfter(Text::ShowAllSymbols), first);
    ASSERT_EQ(asked_.size(), 3);
    EXPECT_TRUE(asked_[0].endsWith(QStringLiteral(" procedures. Show all?"))) << asked_[0].toStdString();
}

TEST_F(OpenGraph, ACallPathJoinsTwoSelectedProcedures) {
    Show("modmain.main");
    Command("AddAllCallees").trigger();
    const ctlGraphObj& last = *Canvas().Graph().GraphObjects().back();
    const std::string end = last.CodePath;
    Canvas().Change({}, [&](XGraph& graph) {
        graph.GraphSelectAll();
        graph.Select(graph.WithPath("modmain.main")->Index, false);
        graph.Select(graph.WithPath(end)->Index, false);
        graph.GraphDeleteSelected();
        graph.Select(graph.WithPath(end)->Index, true);
    });
    EXPECT_FALSE(Command("AddCallPath").isEnabled());
    Canvas().SelectAll();
    ASSERT_TRUE(Command("AddCallPath").isEnabled());
    QSignalSpy said(window_->findChild<GraphWiring*>(), &GraphWiring::Message);
    Command("AddCallPath").trigger();
    ASSERT_EQ(said.size(), 1);
    EXPECT_TRUE(said[0][0].toString().contains(QStringLiteral(", calls: "))) << said[0][0].toString().toStdString();
    EXPECT_EQ(Canvas().Graph().GraphSelected().size(), Canvas().Graph().GraphObjects().size());
}

// A program of that name in a folder of its own, in place of all others.
class Arranging : public OpenGraph {
protected:
    Arranging() : path_(qgetenv("PATH")) {
        Show("modmain.main");
        Show("modmain");
        before_ = Canvas().Graph().Places();
    }
    ~Arranging() override { qputenv("PATH", path_); }
    void Install(const std::string& script) {
        const std::string program = directory_.Write("dot", "#!/bin/sh\n" + script);
        std::filesystem::permissions(program, std::filesystem::perms::owner_all);
        qputenv("PATH", QByteArray::fromStdString(std::filesystem::path(program).parent_path()) + ":/bin:/usr/bin");
    }
    QByteArray path_;
    std::vector<SymbolPlace> before_;
};

TEST_F(Arranging, PlacesComeFromTheProgramAsOneStep) {
    Install("sleep 0.1; cat >/dev/null; echo node 0 1 9; echo node 1 1 2\n");
    Command("ArrangeTop").trigger();
    const auto& symbols = Canvas().Graph().GraphObjects();
    EXPECT_EQ(symbols[1]->Center().y - symbols[0]->Center().y, 7 * 1440);
    Command("UndoGraph").trigger();
    EXPECT_EQ(Canvas().Graph().Places(), before_);
    Install("exit 1\n");
    AnswerNext(QMessageBox::Ok);
    Command("ArrangeModules").trigger();
    EXPECT_EQ(Canvas().Graph().Places(), before_);
    qputenv("PATH", "/nowhere");
    Canvas().SelectAll();
    EXPECT_FALSE(Command("ArrangeTop").isEnabled());
    EXPECT_TRUE(Command("ArrangeTop").toolTip().contains(QStringLiteral("graphviz")));
}

TEST_F(Arranging, ACancelKillsTheProgram) {
    const std::string running = directory_.Path("running");
    Install("echo $$ >'" + running + "'\nexec sleep 1000\n");
    auto* timer = new QTimer(window_.get());
    QObject::connect(timer, &QTimer::timeout, timer, [&] {
        QWidget* const modal = QApplication::activeModalWidget();
        if (auto* box = qobject_cast<QMessageBox*>(modal))
            box->button(QMessageBox::Yes)->click();
        else if (modal && std::filesystem::exists(running))
            QMetaObject::invokeMethod(modal, &QWidget::close, Qt::QueuedConnection);  // waits for the answer
    });
    timer->start(5);
    Command("ArrangeLeft").trigger();
    timer->stop();
    EXPECT_EQ(Canvas().Graph().Places(), before_);
    std::string process;
    std::ifstream(running) >> process;
    EXPECT_FALSE(process.empty() || std::filesystem::exists("/proc/" + process));
}

}  // namespace
