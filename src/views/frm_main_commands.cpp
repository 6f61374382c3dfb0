// What the commands of the window do.
#include <QApplication>
#include <QFileInfo>
#include <QPointer>

#include "display/diagnosis.h"
#include "model/clsProjekt.h"
#include "platform/files.h"
#include "project/project_page.h"
#include "project/start.h"
#include "shell/errors.h"
#include "shell/operations.h"
#include "shell/program.h"
#include "views/baum_view.h"
#include "views/code_view.h"
#include "views/commands.h"
#include "views/content_stack.h"
#include "views/deleted_list.h"
#include "views/deployment.h"
#include "views/dialogs.h"
#include "views/fold_splitter.h"
#include "views/frm_about.h"
#include "views/frm_error.h"
#include "views/frm_keys.h"
#include "views/frm_main.h"
#include "views/frm_optionen.h"
#include "views/frm_progress.h"
#include "views/frm_reports.h"
#include "views/graph_wiring.h"
#include "views/lower_pane.h"
#include "views/main_menus.h"
#include "views/main_panes.h"
#include "views/open_document.h"
#include "views/problems_list.h"
#include "views/properties_grid.h"
#include "views/questions.h"
#include "views/refresh_notice.h"
#include "views/search_bar.h"
#include "views/status_line.h"
#include "views/tree_panes.h"
#include "widgets/qt_text.h"

void frmMain::Wire(Command command, std::function<void(bool)> function) {
    connect(&(*commands_)[command], &QAction::triggered, this, std::move(function));
}

void frmMain::WireCommands() {
    for (const auto& [command, nr] : {std::pair{Command::Exit, 0},
                                      {Command::OpenProject, 1},
                                      {Command::Structure, 2},
                                      {Command::CallsModule, 3},
                                      {Command::Uses, 5},
                                      {Command::Calls, 6},
                                      {Command::SplitForContent, 7},
                                      {Command::UsesShow, 8},
                                      {Command::SplitForCalls, 9},
                                      {Command::ContentChart, 10},
                                      {Command::Refresh, 11},
                                      {Command::ContentGraph, 12},
                                      {Command::ContentCode, 13}})
        Wire(command, [this, number = nr](bool) { MainActions(number); });
    // Calls are always read for the whole project; for one module its dependencies are shown again.
    Wire(Command::CallsOfModule, [this](bool) {
        workspace_.ShowDependencies();
        ShowNow();
    });
    Wire(Command::CloseProject, [this](bool) {
        if (MayLeave())
            CloseTheProject();
    });
    Wire(Command::ReportStructure, [this](bool) { WriteReports("AnalyseErgebnisStructure"); });
    Wire(Command::ReportCalls, [this](bool) { WriteReports("AnalyseErgebnisCalls"); });
    Wire(Command::ReportDeaths, [this](bool) { WriteReports("AnalyseErgebnisDeaths"); });
    Wire(Command::WholeModule, [this](bool on) { ShowWholeModule(on, false); });
    Wire(Command::Overview, [this](bool) { ShowOverview(true); });
    Wire(Command::SplitX, [this](bool shown) { panes_->picSplitX().SetFolded(!shown); });
    Wire(Command::SplitY, [this](bool shown) { panes_->picSplitY().SetFolded(!shown); });
    connect(panes_, &MainPanes::FoldsChanged, this, [this] {
        project_->Search().Close();  // its list would stay where the field was
        (*commands_)[Command::SplitX].setChecked(!panes_->picSplitX().Folded());
        (*commands_)[Command::SplitY].setChecked(!panes_->picSplitY().Folded());
    });
    Wire(Command::CollapseAll, [this](bool) { workspace_.Tree().CollapseAll(); });
    Wire(Command::CheckBoxOn, [this](bool on) { ToggleCheckBoxes(on); });
    for (const bool on : {true, false})
        Wire(on ? Command::CheckBoxAll : Command::CheckBoxNone, [this, on](bool) {
            if (BaumProjekt().Model().CheckBoxes())
                CheckAll(on);
        });
    Wire(Command::Search, [this](bool) {
        panes_->ShowTree();  // the search field is above the tree
        project_->Search().Focus();
    });
    Wire(Command::NavPrev, [this](bool) { GoBackOrOn(true); });
    Wire(Command::NavNext, [this](bool) { GoBackOrOn(false); });
    Wire(Command::ZoomPlus, [this](bool) { content_->Zoom(1); });
    Wire(Command::ZoomMinus, [this](bool) { content_->Zoom(-1); });
    Wire(Command::ZoomNo, [this](bool) { content_->Zoom(0); });
    Wire(Command::CalledByReally, [this](bool) { SetMayBe(false, false); });
    Wire(Command::CalledByMaybe, [this](bool) { SetMayBe(false, true); });
    Wire(Command::CallsReally, [this](bool) { SetMayBe(true, false); });
    Wire(Command::CallsMaybe, [this](bool) { SetMayBe(true, true); });
    Wire(Command::Problems, [this](bool) { dialogs_.problems->Present(); });
    Wire(Command::Options, [this](bool) { dialogs_.options->exec(); });
    Wire(Command::WebPage, [](bool) { OpenDocument(ToQString(kProductPage)); });
    Wire(Command::CopyName, [this](bool) { TreeInUse().CopyName(); });
    Wire(Command::CopyCodePath, [this](bool) { TreeInUse().CopyCodePath(); });
    Wire(Command::CopyAsText, [this](bool) { TreeInUse().CopyAsText(); });
    Wire(Command::Keys, [this](bool) { ShowKeys(); });
    Wire(Command::Diagnosis, [this](bool) { Diagnosis(); });
    Wire(Command::About, [this](bool) { dialogs_.about->exec(); });
}

void frmMain::MainActions(int nr) {
    if (nr == 0) {
        close();
        return;
    }
    if (nr != 1 && !gProjekt) {
        Activate_Checked();
        return;
    }
    switch (nr) {
        case 1:
            Projekt_Oeffnen();
            break;
        case 5:
            if (AskQuestion(this, TextNr(Text::AskUses)))
                dialogs_.progress->Run("Who_Use_Who", [] {});
            break;
        case 6:
            Projekt_Analyse();
            break;
        case 7:
            Split_For_Content();
            break;
        case 9:
            Split_For_Calls();
            break;
        case 10:
            ShowChart();
            break;
        case 11:
            refresh_->Refresh();
            break;
        case 12:
            graph_->ShowGraph();
            break;
        case 13:
            ShowOverview(false);
            break;
        default:
            break;
    }
    Activate_Commands();
}

void frmMain::Arrange(SplitMode mode) {
    settings_.Split = mode;
    // What is hidden while it moves to another splitter loses the focus.
    const QPointer<QWidget> focused = focusWidget();
    const bool isInPanes = focused && panes_->isAncestorOf(focused);
    panes_->Arrange(mode);
    if (isInPanes)
        (focused->isVisibleTo(panes_) ? focused.data() : &BaumProjekt())->setFocus();
    Activate_Checked();
    // The tree has another height now, so its selected node may be out of sight.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (BaumNode* node = workspace_.Tree().Selected())
                workspace_.Tree().EnsureVisible(*node);
        },
        Qt::QueuedConnection);
}

void frmMain::ShowProblems() {
    status_->ShowProblemCount();
    dialogs_.problems->Refresh();
}

void frmMain::ShowProjectCounts() {
    status_->ShowCounts(gProjekt.get(), workspace_.CallsRead());
    ShowProblems();
}

void frmMain::Projekt_Analyse() {
    if (AskQuestion(this, TextNr(Text::AskReadCalls)))
        status_->Message(RunCalls());
}

// Returns what is to be said about it.
QString frmMain::RunCalls() {
    const auto counts = workspace_.ReadCalls();
    graph_->ModelChanged();
    commands_->SetImage(Command::Calls, workspace_.CallsRead() ? "CallsRead" : "CallsReadNot");
    ShowAgain();
    ShowContent();
    ShowProjectCounts();
    ShowNow();
    return counts ? TextNr(Text::CallsRead, NumberText(counts->really), NumberText(counts->mayBe),
                           NumberText(counts->uses))
                  : TextNr(Text::ReadingCallsCancelled);
}

void frmMain::WriteReports(const std::string& operation) {
    if (!gProjekt)
        return;
    // What nobody calls, and who calls whom, is only known then.
    if (operation != "AnalyseErgebnisStructure" && !workspace_.CallsRead()) {
        status_->Message(RunCalls());
        if (!workspace_.CallsRead()) {
            status_->Message(TextNr(Text::ReportNeedsCalls));
            dialogs_.options->ShowReportResult(TextNr(Text::ReportNeedsCalls));
            return;
        }
    }
    const ReportKind kind = operation == "AnalyseErgebnisStructure" ? ReportKind::Structure
                            : operation == "AnalyseErgebnisCalls"   ? ReportKind::Calls
                                                                    : ReportKind::Deaths;
    const std::optional<std::string> folder = frmReports(file_, DialogParent(this)).Ask(*gProjekt, kind);
    if (!folder)
        return;
    if (!folder->empty())
        if (const FileError error = files_.MakeDirectory(*folder); error != FileError::None) {
            ShowError("modMain: " + operation, 75, std::string(Describe(error)) + " (" + *folder + ")");
            return;
        }
    dialogs_.progress->SetCancelVisible(false);
    bool isWhole = false;
    dialogs_.progress->Run(operation, [&] { isWhole = WriteReportFiles(*gProjekt, kind, *folder); });
    ShowContent();
    ShowProblems();
    // One file is named itself, several are in its folder or around it.
    const QFileInfo first(ToPath(files_.SystemPath(ReportFiles(*gProjekt, kind, *folder).front())));
    const QString where = kind == ReportKind::Deaths ? first.filePath()
                          : folder->empty() ? QFileInfo(ToPath(files_.SystemPath(gProjekt->FullPath))).absolutePath()
                                            : first.absolutePath();
    const QString text = TextNr(isWhole ? Text::ReportsWritten : Text::ReportsIncomplete, where);
    status_->Message(text);
    dialogs_.options->ShowReportResult(text);
}

void frmMain::OptionsApplied() {
    ApplyFonts();
    workspace_.OptionsApplied();
    // Whoever sets one page for all projects has no use for the page of this one.
    if (gProjekt && settings_.CodePage != "auto")
        ForgetCodePage(file_, gProjekt->FullPath);
    ShowAgain();
}

void frmMain::Diagnosis() {
    ShowMessage(this, QString::fromStdString(DiagnosticSummary(gProjekt.get())));
}

// After the commands, the keys that belong to no command: those of trees, code and bars.
void frmMain::ShowKeys() {
    const auto key = [](QKeySequence::StandardKey standard) {
        return QKeySequence(standard).toString(QKeySequence::NativeText);
    };
    const auto arrow = [](Qt::KeyboardModifiers modifiers) {
        return QKeySequence(QKeyCombination(modifiers, Qt::Key_Left)).toString(QKeySequence::NativeText);
    };
    dialogs_.keys->Fill(
        commands_->InUse(),
        {{TextNr(Text::GoToObject), QKeySequence(Qt::Key_Return).toString(QKeySequence::NativeText)},
         {TextNr(Text::Copy), key(QKeySequence::Copy)},
         {TextNr(Text::SelectAll), key(QKeySequence::SelectAll)},
         {TextNr(Text::PasteCollected), key(QKeySequence::Paste)},
         {TextNr(Text::DeleteSelected), key(QKeySequence::Delete)},
         {TextNr(Text::KeysOfGraph),
          QStringLiteral("%1; %2; %3").arg(arrow({}), arrow(Qt::AltModifier), arrow(Qt::ShiftModifier))},
         {TextNr(Text::ContextMenu), QKeySequence(Qt::SHIFT | Qt::Key_F10).toString(QKeySequence::NativeText)}});
    dialogs_.keys->exec();
}

// The tree that has the focus, or had it before a menu took it.
BaumView& frmMain::TreeInUse() const {
    auto* tree = qobject_cast<BaumView*>(focusWidget());
    return tree ? *tree : BaumProjekt();
}

void frmMain::Activate_Commands() {
    Commands& command = *commands_;
    menus_->SetProjectOpen(gProjekt != nullptr);
    command[Command::CallsModule].setVisible(false);
    const bool checkBoxes = command[Command::CheckBoxOn].isChecked();
    command[Command::CheckBoxAll].setVisible(checkBoxes);
    command[Command::CheckBoxNone].setVisible(checkBoxes);
    NameCommands();
    menus_->AssignLetters();
    Activate_Checked();
    ShowNow();
}

// Texts that name the current object.
void frmMain::NameCommands() {
    Commands& command = *commands_;
    const clsModul* modul = workspace_.Current().CurModule;
    const QString name = modul ? ToQString(modul->myNameOrg()) : QString();
    const QString forModule =
        modul ? TextNr(Text::ForModule, name, ToQString(TextOf(modul->ModulTyp))) : TextNr(Text::ForCurrentModule);
    const QString read = TextNr(Text::ReadCalls);
    Commands::SetTexts(
        command[Command::CallsModule], forModule,
        modul ? read + QStringLiteral(": ") + name : read + QLatin1Char(' ') + TextNr(Text::ForCurrentModule));
    Commands::SetTexts(command[Command::CallsOfModule], forModule, forModule);
    const CodeObject* object = workspace_.Current().CurObject;
    const QString deleteText = object && CanBeDeleted(*object)
                                   ? TextNr(Text::DeleteNamed, ToQString(object->myNameOrg()))
                                   : TextNr(Text::DeleteObject);
    Commands::SetTexts(command[Command::DeleteObject], deleteText + QChar(0x2026), deleteText);
}
