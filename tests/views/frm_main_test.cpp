#include "views/frm_main.h"

#include "display/baum_walk.h"
#include "display/recent_projects.h"
#include "main_window_test.h"
#include "shell/operations.h"
#include "views/baum_view.h"
#include "views/code_view.h"
#include "views/commands.h"
#include "views/fold_splitter.h"
#include "views/frm_optionen.h"
#include "views/frm_progress.h"
#include "views/frm_reports.h"
#include "views/main_panes.h"
#include "views/overview_pane.h"
#include "views/overview_table.h"
#include "views/problems_list.h"
#include "views/properties_grid.h"
#include "views/references_list.h"
#include "views/search_bar.h"
#include "views/start_page.h"

using testing::HasSubstr;

namespace {

class MainWindow : public SampleWindow {
protected:
    MainWindow() : SampleWindow(WithoutCalls()) {}

    void ReadCalls() {
        AnswerNext(QMessageBox::Yes);
        Command("Calls").trigger();
    }
    static QString PlanOf(const frmReports& dialog) { return ChildOf<QLabel>(dialog, "plan").text(); }
    void ClickNode(const std::string& key, NodeKind kind = NodeKind::Object) {
        BaumView& view = window_->BaumProjekt();
        BaumNode* node = window_->TheWorkspace().Tree().Item(key, kind);
        ASSERT_TRUE(node) << key;
        window_->TheWorkspace().Tree().EnsureVisible(*node);
        QApplication::processEvents();
        const QRect place = view.visualRect(view.Model().IndexOf(node));
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, place.center());
    }
    [[nodiscard]] BaumView& ViewOf(const Baum& tree) const {
        for (BaumView* view : window_->findChildren<BaumView*>())
            if (&view->Tree() == &tree)
                return *view;
        throw std::logic_error("no view");
    }
    /// The key of the first node without children: a procedure or variable.
    [[nodiscard]] static std::string AnyObject(const Baum& tree) {
        std::string key;
        ForEachNode(tree, [&key](const BaumNode& node) {
            if (key.empty() && !node.Child())
                key = node.Key();
        });
        return key;
    }
    [[nodiscard]] QString Code() const { return window_->rtbCode().toPlainText(); }
};

class OpenWindow : public MainWindow {
protected:
    OpenWindow() { Open(); }
};

class WindowWithCalls : public OpenWindow {
protected:
    WindowWithCalls() { ReadCalls(); }
};

TEST_F(MainWindow, EmptyWindowInvitesAndLetsNothingElseBeDone) {
    for (const char* key : {"Calls", "Refresh", "Search", "SplitForCalls", "NavPrev", "ReportDeaths", "CollapseAll",
                            "CheckBoxOn", "Structure", "ContentChart", "ContentGraph"})
        EXPECT_FALSE(Command(key).isEnabled()) << key;
    for (const char* key : {"OpenProject", "Exit", "Options", "About", "Keys"})
        EXPECT_TRUE(Command(key).isEnabled()) << key;
    EXPECT_THAT(Command("Calls").toolTip().toStdString(), HasSubstr(TextNr(Text::OpenProjectFirst).toStdString()));
    EXPECT_FALSE(Command("CallsModule").isVisible());
    window_->MainActions(6);  // no question without a project
    EXPECT_TRUE(asked_.empty());
    EXPECT_TRUE(window_->close());
}

TEST_F(OpenWindow, OpeningShowsTheTreeAndCounts) {
    EXPECT_EQ(window_->TheSettings().OpenSaveDir, directory_.Path("samples/ToolHire"));
    EXPECT_EQ(RecentProjects(settings_), std::vector{Project()});
    QStringList shown;
    for (const QLabel* label : window_->statusBar()->findChildren<QLabel*>())
        shown.append(label->text());
    EXPECT_TRUE(shown.contains(QStringLiteral("Code lines: 2,096")));
    EXPECT_EQ(window_->focusWidget(), &window_->BaumProjekt());
}

TEST_F(OpenWindow, ReadCallsAsksAndRightClickInTheCodeJumps) {
    AnswerNext(QMessageBox::No);
    Command("Calls").trigger();
    ASSERT_EQ(asked_, QStringList{TextNr(Text::AskReadCalls)});
    EXPECT_EQ(gProjekt->calls.Count(), 0U);
    ReadCalls();
    EXPECT_GT(gProjekt->calls.Count(), 900U);
    window_->ActivateKey("modmain.main");
    const clsProzedur& procedure = *window_->TheWorkspace().Current().CurProc;
    const clsCall* call = *procedure.CallsAll().begin();
    const std::string target = call->Parent->CodePath();
    CodeView& code = window_->rtbCode();
    code.Select({call->CallPos - procedure.DeclareStart, 0});
    const QRect place = code.cursorRect();
    QTest::mouseClick(code.viewport(), Qt::RightButton, {}, place.center() + QPoint(2, 0));
    EXPECT_EQ(window_->TheWorkspace().Current().CurObject->CodePath(), target);
}

TEST_F(OpenWindow, ReferencesAreListedAndWalkedThrough) {
    ReferencesList& list = Find<ReferencesList>();
    window_->ActivateKey("texttools.isblank");
    Command("FindCallers").trigger();
    EXPECT_EQ(list.Count(), 0) << "the calls are not read";
    ReadCalls();
    window_->Split_For_Calls();
    EXPECT_EQ(list.model()->rowCount(), 5);
    EXPECT_TRUE(list.isVisible());
    bool named = false;
    for (const QLabel* label : window_->findChildren<QLabel*>())
        named |= label->text() == QStringLiteral("Called by (5)");
    EXPECT_TRUE(named) << "as many as in the list: all are certain";
    EXPECT_TRUE(Command("NextPlace").isEnabled()) << "the list can be seen";
    for (const char* status : {"1 of 5", "2 of 5", "3 of 5"}) {
        Command("NextPlace").trigger();
        EXPECT_EQ(StatusText(), QString::fromLatin1(status));
    }
    EXPECT_EQ(list.CurrentRow(), 2);
    EXPECT_EQ(window_->TheWorkspace().Current().CurObject->CodePath(), "texttools.isblank");
    // From a row that was gone to in the list.
    list.setCurrentIndex(list.model()->index(4, 0));
    Command("NextPlace").trigger();
    EXPECT_EQ(StatusText(), QStringLiteral("5 of 5"));
    Command("PreviousPlace").trigger();
    EXPECT_EQ(StatusText(), QStringLiteral("4 of 5"));
    // A neighbour is the last thing asked for now; then references again, after options too.
    Q_EMIT ViewOf(window_->TheWorkspace().CalledBy()).NodeActivated("modstore.loadbook");
    EXPECT_EQ(window_->rtbCode().PlaceCount(), 1);
    window_->BaumProjekt().setFocus();
    Command("FindCallers").trigger();
    window_->TheSettings().CodeFont.size = 14;
    Q_EMIT Find<frmOptionen>().Applied();
    Command("PreviousPlace").trigger();
    EXPECT_EQ(StatusText(), QStringLiteral("5 of 5"));
    // F12 in the code goes to what is named there, in the list to the caller.
    list.SetCurrentRow(0);
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(window_->focusWidget(), &window_->rtbCode());
    window_->ActivateKey("modmain");
    window_->rtbCode().setFocus();
    window_->rtbCode().Select({0, 0});
    Command("GoTo").trigger();
    EXPECT_EQ(StatusText(), TextNr(Text::NothingToGoTo));
    window_->ActivateKey("texttools.isblank");
    list.setFocus();
    const std::string caller = list.CurrentObject();
    Command("GoTo").trigger();
    EXPECT_EQ(window_->TheWorkspace().Current().CurObject->CodePath(), caller);
    // Of what the code names at the cursor.
    window_->rtbCode().setFocus();
    window_->rtbCode().Select({static_cast<Pos>(window_->TheWorkspace().Code().Text().text.find("IsBlank")), 0});
    Command("FindCallers").trigger();
    EXPECT_EQ(window_->TheWorkspace().Current().CurObject->CodePath(), "texttools.isblank");
    window_->CloseTheProject();
    EXPECT_EQ(list.Count(), 0);
}

// A click on a callee marks the places of its calls in the code, and the user can step through them.
TEST_F(WindowWithCalls, NeighboursLeadToTheirPlacesAndByARightClickToThemselves) {
    window_->Split_For_Calls();
    window_->ActivateKey("clshire.customer [set]");
    Q_EMIT ViewOf(window_->TheWorkspace().Calls()).NodeActivated("clscustomer.hirecount");
    EXPECT_EQ(window_->rtbCode().PlaceCount(), 4);
    EXPECT_EQ(StatusText(), QStringLiteral("1 of 4"));
    for (const auto& [command, place] : {std::pair{"NextPlace", "2 of 4"}, {"PreviousPlace", "1 of 4"}}) {
        Command(command).trigger();
        EXPECT_EQ(StatusText().toStdString(), place);
    }
    window_->ActivateKey("modstore");
    EXPECT_EQ(StatusText(), QString());
    const std::string caller = AnyObject(window_->TheWorkspace().CalledBy());
    Q_EMIT ViewOf(window_->TheWorkspace().CalledBy()).CommandAsked(Command::GoTo, caller);
    EXPECT_EQ(window_->TheWorkspace().Current().CurObject->CodePath(), caller);
    Command("NavPrev").trigger();
    EXPECT_EQ(window_->TheWorkspace().Current().CurObject->CodePath(), "modstore");
}

TEST_F(OpenWindow, WhatIsSaidAboutAPlaceGoesWithIt) {
    window_->ActivateKey("modstore");
    window_->RunOn(::Command::GoTo, "");
    EXPECT_EQ(StatusText(), TextNr(Text::NothingToGoTo));
    window_->ActivateKey("modmain");
    EXPECT_EQ(StatusText(), QString());
    const auto searches = window_->findChildren<SearchBar*>();
    const auto search = std::ranges::find_if(searches, [&](SearchBar* one) { return one->window() == window_.get(); });
    auto* const field = (*search)->findChild<QLineEdit*>();
    field->setText(QStringLiteral("LoadBook"));
    window_->CloseTheProject();
    EXPECT_EQ(field->text(), QString()) << "another project has other objects";
}

TEST_F(WindowWithCalls, BothPanesOfAGroupOfferAWayOut) {
    window_->Split_For_Calls();
    Command("CheckBoxOn").trigger();
    BaumNode& node = *window_->TheWorkspace().Tree().Item("modstore");
    window_->TheWorkspace().Tree().SetChecked(node, true);
    Q_EMIT window_->BaumProjekt().NodeChecked(node);
    const auto buttons = window_->findChildren<QToolButton*>(QStringLiteral("ShowAll"));
    ASSERT_EQ(buttons.size(), 2);
    for (const bool seen : {true, false, true}) {
        EXPECT_TRUE(buttons[0]->isVisible() == seen && buttons[1]->isVisible() == seen);
        Command("CheckBoxOn").trigger();
    }
    Command("CheckBoxOn").trigger();
    QTest::mouseClick(buttons[0], Qt::LeftButton);
    EXPECT_FALSE(buttons[0]->isVisible() || buttons[1]->isVisible());
    EXPECT_FALSE(node.Checked());
}

TEST_F(OpenWindow, OptionsKeepFoldsChecksAndTheSelectedNode) {
    window_->ActivateKey("modmain.main");
    const Baum& tree = window_->TheWorkspace().Tree();
    BaumNode& modul = *tree.Item("modstore");
    window_->TheWorkspace().Tree().SetChecked(modul, true);
    auto& options = *window_->findChild<frmOptionen*>();
    Q_EMIT options.Applied();
    EXPECT_EQ(tree.Item("modstore"), &modul);  // colours and fonts do not rebuild the tree
    const int withLocals = tree.Count();
    window_->TheSettings().ProcVars = 0;
    Q_EMIT options.Applied();
    EXPECT_LT(tree.Count(), withLocals);
    EXPECT_TRUE(tree.Item("modstore")->Checked() && tree.Item("modmain")->Expanded());
    ASSERT_TRUE(tree.Selected());
    EXPECT_EQ(tree.Selected()->Key(), "modmain.main");
    EXPECT_THAT(Code().toStdString(), HasSubstr("Sub Main()"));
}

TEST_F(OpenWindow, NodesAreCollectedByDraggingOrByKeys) {
    BaumView* collected = nullptr;
    for (BaumView* view : window_->findChildren<BaumView*>())
        if (view->acceptDrops())
            collected = view;
    ASSERT_TRUE(collected);
    ClickNode("modmain.main");
    QTest::keyClick(&window_->BaumProjekt(), Qt::Key_C, Qt::ControlModifier);
    QTest::keyClick(collected, Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(collected->Tree().Exist("modmain"));
    window_->CloseTheProject();
    EXPECT_EQ(collected->Tree().Count(), 0);
}

TEST_F(OpenWindow, PlacesOfBarsAndTheWindowAreStored) {
    Find<MainPanes>().picSplitX().SetPlace(333);
    EXPECT_TRUE(window_->close());
    EXPECT_FALSE(gProjekt);
    const WindowSize stored = SizeSave_Read(settings_);
    EXPECT_NEAR(std::stoi(stored.SplitX_Content), 333 * 15, 30);
    EXPECT_EQ(stored.SplitX_Content_Hide, "0");
    EXPECT_NEAR(std::stoi(stored.Width), 1200 * 15, 30);
}

TEST_F(WindowWithCalls, NamesOfTabsDoNotMoveTheBarBesideTheTree) {
    FoldSplitter& bar = Find<MainPanes>().picSplitX();
    bar.SetPlace(200);
    EXPECT_NEAR(bar.sizes().front(), 200, 2);
    window_->ActivateKey("texttools.isblank");
    QApplication::processEvents();
    EXPECT_NEAR(bar.sizes().front(), 200, 2) << "the tab of the references has a number now";
}

TEST_F(OpenWindow, FocusStaysInItsPaneWhenTheArrangementChanges) {
    for (QWidget* widget : {static_cast<QWidget*>(&window_->BaumProjekt()), static_cast<QWidget*>(&window_->rtbCode())})
        for (const char* arrangement : {"SplitForCalls", "SplitForContent"}) {
            window_->ActivateKey("modmain.main");
            widget->setFocus();
            Command(arrangement).trigger();
            EXPECT_EQ(window_->focusWidget(), widget) << arrangement;
        }
    Command("SplitForCalls").trigger();
    auto& neighbours = *Find<MainPanes>().picSplitX().widget(0)->findChild<BaumView*>();
    neighbours.setFocus();
    Command("SplitForContent").trigger();
    EXPECT_EQ(window_->focusWidget(), &window_->BaumProjekt()) << "its own pane is hidden";
}

TEST_F(OpenWindow, SearchOpensThePanesThatHideItsField) {
    for (const char* arrangement : {"SplitForContent", "SplitForCalls"}) {
        SCOPED_TRACE(arrangement);
        Command(arrangement).trigger();
        for (const char* bar : {"SplitX", "SplitY"})
            Command(bar).trigger();
        Command("Search").trigger();
        QApplication::processEvents();
        const QWidget& field = *window_->findChild<QWidget*>(QStringLiteral("searchField"));
        EXPECT_EQ(window_->focusWidget(), &field);
        EXPECT_FALSE(field.visibleRegion().isEmpty());
    }
}

TEST_F(OpenWindow, ShiftF10OpensTheMenuOfWhatHasTheFocus) {
    window_->ActivateKey("modmain.main");
    for (QWidget* widget :
         {static_cast<QWidget*>(&window_->BaumProjekt()), static_cast<QWidget*>(&window_->rtbCode())}) {
        widget->setFocus();
        QTest::keyClick(widget, Qt::Key_F10, Qt::ShiftModifier);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_TRUE(menu) << widget->metaObject()->className();
        EXPECT_EQ(menu->parent(), widget);
        menu->close();
    }
}

TEST_F(MainWindow, ClosingAsksWhomWantsItAndNoKeepsEverything) {
    window_->TheSettings().AskAtClosing = 1;
    Open();
    AnswerNext(QMessageBox::No);
    EXPECT_FALSE(window_->close());
    ASSERT_EQ(asked_, QStringList{TextNr(Text::AskExit)});
    EXPECT_TRUE(window_->isVisible());
    EXPECT_TRUE(gProjekt);
}

TEST_F(MainWindow, WindowOfAScreenThatIsGoneComesBackVisible) {
    WindowSize size;
    size.Left = "900000";
    size.Top = "-900000";
    size.Width = "9000000";
    size.Height = "15000";
    SizeSave_Write(settings_, size);
    const frmMain second(files_, settings_, Settings(), ProgramDirectory());
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_TRUE(screen.contains(second.geometry().topLeft() + QPoint(1, 1)));
    EXPECT_LE(second.width(), std::max(screen.width(), second.minimumWidth()));
}

TEST_F(MainWindow, CancelledLoadLeavesAnEmptyWindow) {
    Remove("modStore.bas");
    AnswerNext(QMessageBox::Yes);  // stop loading
    window_->OpenProject(Project());
    EXPECT_FALSE(gProjekt);
    EXPECT_TRUE(Find<StartPage>().isVisible());
    EXPECT_EQ(StatusText(), TextNr(Text::LoadingCancelled));
}

TEST_F(MainWindow, MissingModuleIsCountedAmongTheProblems) {
    Remove("modStore.bas");
    AnswerNext(QMessageBox::No);
    window_->TheSettings().LoadLibs = 0;
    Open();
    auto* count = window_->statusBar()->findChild<QToolButton*>();
    EXPECT_TRUE(count->isVisible());
    EXPECT_EQ(count->text(), TextNr(Text::OneProblem));
    window_->CloseTheProject();
    EXPECT_FALSE(count->isVisible());
}

TEST_F(MainWindow, MissingLibrariesAreAmongTheProblems) {
    const std::filesystem::path corpus = OSTRIVANE_SOURCE_DIR "/fuzz/corpus";
    std::filesystem::create_directory(directory_.Path("libs"));
    std::filesystem::copy(corpus / "pe_resources/program32.dll", directory_.Path("libs/mscomctl.ocx"));
    std::string lines = TextOf("ToolHire.vbp");
    const std::string component = "{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0";
    lines.replace(lines.find(component), component.size(), "{a0000000-0000-0000-0000-000000000001}#1.2");
    Save("ToolHire.vbp", lines);
    window_->TheSettings().WinePrefix = "none";
    Open();
    auto* count = window_->statusBar()->findChild<QToolButton*>();
    EXPECT_EQ(count->text(), TextNr(Text::ProblemCount, NumberText(3)));
    window_->TheSettings().LibraryFolders = {directory_.Path("libs")};
    Open();
    EXPECT_EQ(count->text(), TextNr(Text::ProblemCount, NumberText(2)));
}

TEST_F(OpenWindow, ReportsAskBeforeTheyAreWrittenAndSayWhere) {
    const auto files = [this] {
        return std::distance(std::filesystem::recursive_directory_iterator(directory_.Path("samples")), {});
    };
    const auto before = files();
    OnNext<frmReports>([&](frmReports& dialog) {
        EXPECT_EQ(PlanOf(dialog), TextNr(Text::FilesGoToFolders, QStringLiteral("14"), QStringLiteral("2")));
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);  // the safe button is the default
    });
    Command("ReportStructure").trigger();
    EXPECT_EQ(files(), before);
    OnNext<frmReports>([&](frmReports& dialog) { ChildOf<QPushButton>(dialog, "cmdWrite").click(); });
    Command("ReportDeaths").trigger();
    EXPECT_EQ(StatusText(), TextNr(Text::ReportsWritten, ToPath(Project() + " Deaths.txt")));
    EXPECT_EQ(files(), before + 1);
    EXPECT_TRUE(window_->TheWorkspace().CallsRead()) << "without its calls every object would look dead";

    const QString folder = ToPath(directory_.Path("samples/new/reports"));
    OnNext<frmReports>([&](frmReports& dialog) {
        ChildOf<QRadioButton>(dialog, "inFolder").click();
        auto& field = ChildOf<QLineEdit>(dialog, "folder");
        field.clear();
        EXPECT_FALSE(ChildOf<QPushButton>(dialog, "cmdWrite").isEnabled());
        QTest::keyClicks(&field, folder);
        EXPECT_EQ(PlanOf(dialog), TextNr(Text::FilesGoTo, QStringLiteral("14"), folder));
        QTest::keyClick(&field, Qt::Key_Return);
    });
    Command("ReportStructure").trigger();
    EXPECT_EQ(files(), before + 1 + 2 + 14);
    EXPECT_EQ(StatusText(), TextNr(Text::ReportsWritten, folder));
    OnNext<frmReports>([&](frmReports& dialog) {  // as it was left
        EXPECT_TRUE(ChildOf<QRadioButton>(dialog, "inFolder").isChecked());
        EXPECT_EQ(ChildOf<QLineEdit>(dialog, "folder").text(), folder);
        EXPECT_TRUE(dialog.findChildren<QLabel*>().last()->text().contains(QStringLiteral("14")));
        dialog.reject();
    });
    Command("ReportStructure").trigger();
}

TEST_F(WindowWithCalls, FixedTextsFollowTheLanguage) {
    EXPECT_EQ(StatusText(), QStringLiteral("Calls read: 827 Really, 25 May be, 92 uses."));
    window_->ActivateKey("modmain.main");
    const auto firstLabel = [&] {
        Find<PropertiesGrid>().Show(*window_->TheWorkspace().PropertiesAt(0, 0));
        return Find<PropertiesGrid>().AsText();
    };
    EXPECT_TRUE(firstLabel().contains(QStringLiteral("\nLine\t")));
    EXPECT_EQ(Command("DeleteObject").text().remove(QLatin1Char('&')), QStringLiteral("Delete Main\u2026"));
    Speak("german");
    window_->frmMainTexte();
    EXPECT_TRUE(firstLabel().contains(QStringLiteral("\nZeile\t")));
    EXPECT_EQ(Command("DeleteObject").text().remove(QLatin1Char('&')), QStringLiteral("Main l\u00f6schen\u2026"));
}

TEST_F(MainWindow, TakesADroppedProjectAndNothingElse) {
    for (const bool isProject : {false, true}) {
        QMimeData data;
        data.setUrls(
            {QUrl::fromLocalFile(ToPath(isProject ? Project() : directory_.Path("samples/ToolHire/modMain.bas")))});
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window_.get(), &enter);
        EXPECT_EQ(enter.isAccepted(), isProject);
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        if (isProject)
            QApplication::sendEvent(window_.get(), &drop);
        QApplication::processEvents();
        EXPECT_EQ(gProjekt != nullptr, isProject);
    }
}

TEST_F(OpenWindow, NothingOfTheOldProjectIsShownWhileTheNextOneIsRead) {
    Remove("modStore.bas");
    QString title, counts;
    bool asked = false;
    SetMissingFilePort([&](std::string_view, int) {
        asked = true;
        title = window_->windowTitle();
        for (const QLabel* label : window_->statusBar()->findChildren<QLabel*>())
            counts += label->isVisible() ? label->text() : QString();
        return false;
    });
    Open();
    EXPECT_TRUE(asked);
    EXPECT_EQ(title, QStringLiteral("Ostrivane"));
    EXPECT_EQ(counts, QString());
}

TEST_F(MainWindow, ProjectComesBackAsItWasLeft) {
    const auto isOpen = [this](const char* key) { return window_->TheWorkspace().Tree().Item(key)->Expanded(); };
    const auto fontSize = [this] { return window_->rtbCode().font().pointSizeF(); };
    directory_.Write("One.vbp", "Type=Exe\r\nModule=One; One.bas\r\nName=\"One\"\r\n");
    directory_.Write("One.bas", "Attribute VB_Name = \"One\"\r\nSub Main()\r\nEnd Sub\r\n");
    Open();
    const double ordinary = fontSize();
    window_->ActivateKey("modmain.main");
    window_->ActivateKey("modstore");
    Command("SplitForCalls").trigger();
    Command("ZoomPlus").trigger();
    Command("ZoomPlus").trigger();
    window_->OpenProject(directory_.Path("One.vbp"));
    Command("SplitForContent").trigger();
    Command("ZoomNo").trigger();
    Open();
    EXPECT_EQ(window_->TheSettings().Split, SplitMode::Calls);
    EXPECT_DOUBLE_EQ(fontSize(), ordinary + 2);
    EXPECT_TRUE(isOpen("modmain"));
    EXPECT_FALSE(isOpen("modstore"));
    ASSERT_TRUE(window_->TheWorkspace().Current().CurObject);
    EXPECT_EQ(window_->TheWorkspace().Current().CurObject->CodePath(), "modstore");
    EXPECT_EQ(window_->BaumProjekt().currentIndex().data().toString(), QStringLiteral("modStore"));
    EXPECT_FALSE(Command("NavPrev").isEnabled());

    // In another process; what does not exist any more is left out.
    EXPECT_TRUE(window_->close());
    Remove("modStore.bas");
    SettingsFile stored(files_, settings_.Path());
    window_ = std::make_unique<frmMain>(files_, stored, WithoutCalls(), ProgramDirectory());
    window_->show();
    Open();
    EXPECT_EQ(window_->TheSettings().Split, SplitMode::Calls);
    EXPECT_TRUE(isOpen("modmain"));
    EXPECT_FALSE(window_->TheWorkspace().Current().CurObject);
    window_->OpenProject(directory_.Path("One.vbp"));
    EXPECT_EQ(window_->TheSettings().Split, SplitMode::Content);
    window_.reset();
}

TEST_F(OpenWindow, ForeignProjectIsRefusedAndTheOpenOneStays) {
    const QString title = window_->windowTitle();
    for (const char* bytes : {"", "MZ\1\2", "<html>\n", "gone"}) {
        const std::string path = directory_.Write("foreign.vbp", bytes);
        if (bytes == std::string("gone"))
            std::filesystem::remove(path);
        AnswerNext(QMessageBox::Ok);
        window_->OpenProject(path);
        EXPECT_THAT(asked_.back().toStdString(), testing::StartsWith(path));
        EXPECT_EQ(window_->windowTitle(), title);
        ASSERT_TRUE(gProjekt);
        EXPECT_THAT(RecentProjects(settings_), testing::ElementsAre(Project()));
    }
}

TEST_F(MainWindow, FailedConditionsGoToTheListOfProblemsFromWhichTheCodeIsReached) {
    Append("modStore.bas", "\r\nSub JustAdded()\r\n#If x( Then\r\n#End If\r\nEnd Sub\r\n");
    Open();  // a question or error window would wait for ever
    Command("Problems").trigger();
    auto& list = Find<ProblemsList>();
    EXPECT_TRUE(list.isVisible());
    EXPECT_FALSE(QApplication::activeModalWidget());
    QTest::mouseClick(list.findChild<QPushButton*>(QStringLiteral("cmdGoTo")), Qt::LeftButton);
    EXPECT_EQ(window_->TheWorkspace().Current().CurObject->CodePath(), "modstore.justadded");
    EXPECT_EQ(window_->rtbCode().textCursor().selectedText(), QStringLiteral("#If x( Then"));
    window_->CloseTheProject();
    EXPECT_EQ(list.findChild<QTableView*>()->model()->rowCount(), 0);
}

TEST_F(MainWindow, CallsAreReadAtOpeningUnlessAnOptionSaysNo) {
    const auto dead = [this] { return window_->TheWorkspace().Tree().Item("modmain.traceline")->ForeColor(); };
    Open();
    auto& remark = *window_->findChild<QToolButton*>(QStringLiteral("ReadAllCalls"));
    EXPECT_TRUE(remark.isVisible());
    EXPECT_EQ(dead(), NodeColour::Faint);
    AnswerNext(QMessageBox::Yes);
    QTest::mouseClick(&remark, Qt::LeftButton);
    EXPECT_FALSE(remark.isVisible());
    EXPECT_EQ(dead(), NodeColour::Grey);

    window_->TheSettings().ReadCalls = 1;
    asked_.clear();
    Open();
    EXPECT_TRUE(window_->TheWorkspace().CallsRead());
    EXPECT_FALSE(remark.isVisible());
    EXPECT_EQ(dead(), NodeColour::Grey);
    EXPECT_TRUE(asked_.empty());
    EXPECT_THAT(StatusText().toStdString(), testing::ContainsRegex("^14 .*827"));
}

TEST_F(OpenWindow, OverviewStandsWhereNothingIsSelected) {
    auto& overview = Find<OverviewPane>();
    EXPECT_TRUE(overview.isVisible());
    const auto row = [&](const char* label) -> OverviewRow& {
        for (OverviewRow* candidate : overview.findChildren<OverviewRow*>())
            if (candidate->accessibleName().startsWith(QString::fromLatin1(label)))
                return *candidate;
        throw std::logic_error(label);
    };
    EXPECT_EQ(row("Code lines").accessibleName(), QStringLiteral("Code lines: 2,096, 86.0%"));
    // The marks of a project just opened come from its structure alone and are no answer.
    EXPECT_FALSE(row("Dead objects").isEnabled());
    AnswerNext(QMessageBox::Yes);
    QTest::mouseClick(&ChildOf<QPushButton>(overview, "readCalls"), Qt::LeftButton);
    EXPECT_EQ(row("Dead objects").accessibleName(), QStringLiteral("Dead objects: 22, 6.9%"));

    row("Dead objects").setFocus();
    QTest::keyClick(&row("Dead objects"), Qt::Key_Space);
    auto& table = ChildOf<OverviewTable>(overview);
    ASSERT_TRUE(table.isVisible());
    EXPECT_EQ(table.model()->rowCount(), 22);
    EXPECT_EQ(window_->focusWidget(), &table);
    const QString name = table.model()->index(1, OverviewModel::Name).data().toString();
    QTest::keyClick(&table, Qt::Key_Down);
    QTest::keyClick(&table, Qt::Key_Return);
    ASSERT_TRUE(window_->TheWorkspace().Current().CurObject);
    EXPECT_TRUE(name.endsWith(ToQString(window_->TheWorkspace().Current().CurObject->myNameOrg())));
    EXPECT_TRUE(window_->rtbCode().isVisible());

    Command("Overview").trigger();
    EXPECT_TRUE(table.isVisible() && Command("Overview").isChecked());  // where it was left
    QTest::keyClick(&table, Qt::Key_Escape);
    QApplication::processEvents();
    EXPECT_TRUE(row("Dead objects").isVisible());
}

TEST_F(MainWindow, ListedNamesTakeTheRoomThatPlacesLeave) {
    OverviewTable table;
    table.resize(600, 200);
    table.show();
    const auto widths = [&](int name, int place) {
        table.Show({{"", std::string(static_cast<std::size_t>(name), 'm'), "sub",
                     std::string(static_cast<std::size_t>(place), 'm'), 1}});
        return std::pair(table.columnWidth(OverviewModel::Name), table.columnWidth(OverviewModel::Where));
    };
    const auto needed = [&](int characters) {
        return table.fontMetrics().horizontalAdvance(QString(characters, QLatin1Char('m')));
    };
    const int fits = 300 / needed(1);
    EXPECT_GT(widths(fits, 1).first, needed(fits));
    EXPECT_GT(widths(1, fits).second, needed(fits));
    const auto [name, place] = widths(200, 200);
    EXPECT_NEAR(name, 2 * place, 3);
    table.resize(900, 200);
    EXPECT_GT(table.columnWidth(OverviewModel::Name), name);
}

TEST_F(OpenWindow, WholeModuleFoldsTheHeaderOfItsFile) {
    EXPECT_FALSE(Command("WholeModule").isEnabled());
    window_->ActivateKey("clstool.init");
    auto& header = ChildOf<QPushButton>(*window_, "header");
    EXPECT_FALSE(header.isVisible());
    Command("WholeModule").trigger();
    const QString whole = Code();
    EXPECT_TRUE(whole.startsWith(QStringLiteral("Option Explicit")));
    EXPECT_EQ(window_->rtbCode().textCursor().selectedText(), QStringLiteral("Init"));
    EXPECT_TRUE(header.isVisible());
    EXPECT_EQ(header.accessibleName(), QStringLiteral("Header of the file: 13 lines"));
    QTest::mouseClick(&header, Qt::LeftButton);
    EXPECT_TRUE(Code().startsWith(QStringLiteral("VERSION 1.0 CLASS")) && Code().endsWith(whole));
    QTest::mouseClick(&header, Qt::LeftButton);
    EXPECT_EQ(Code(), whole);
    window_->ActivateKey("modmain.main");  // it holds for every module
    EXPECT_EQ(header.accessibleName(), QStringLiteral("Header of the file: 1 line"));
    Command("WholeModule").trigger();
    EXPECT_FALSE(header.isVisible());
}

}  // namespace
