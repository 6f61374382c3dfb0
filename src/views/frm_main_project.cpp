// Opening, analysing and closing a project, and what is told of it: the commands of the window.
#include "views/frm_main.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QStackedWidget>
#include <QToolButton>
#include <algorithm>

#include "calls/driver.h"
#include "display/baum_walk.h"
#include "display/diagnosis.h"
#include "display/project_tree.h"
#include "display/recent_projects.h"
#include "display/tree_checks.h"
#include "display/tree_marks.h"
#include "findings/calls_report.h"
#include "findings/dead_objects.h"
#include "findings/deaths_report.h"
#include "findings/structure_report.h"
#include "model/clsProjekt.h"
#include "platform/code_page.h"
#include "platform/files.h"
#include "project/project_file.h"
#include "project/start.h"
#include "shell/clsText.h"
#include "shell/operations.h"
#include "shell/program.h"
#include "shell/timing.h"
#include "shell/words.h"
#include "views/baum_view.h"
#include "views/code_view.h"
#include "views/commands.h"
#include "views/deployment.h"
#include "views/dialogs.h"
#include "views/elided_label.h"
#include "views/frm_error.h"
#include "views/frm_optionen.h"
#include "views/frm_progress.h"
#include "views/main_panes.h"
#include "views/path_line.h"
#include "views/properties_grid.h"
#include "views/qt_text.h"
#include "views/questions.h"
#include "views/search_bar.h"
#include "views/status_fields.h"
#include "views/tree_panes.h"

namespace {

// The status bar's texts with their values.
QString WithValue(Text text, const QString& value) {
    return TextNr(text) + QStringLiteral(": ") + value;
}

// The keys of all nodes with this property, to be found again in a tree that is filled anew.
std::vector<std::string> KeysWhere(const Baum& tree, bool (BaumNode::*property)() const) {
    std::vector<std::string> keys;
    ForEachNode(tree, [&](const BaumNode& node) {
        if ((node.*property)())
            keys.push_back(node.Key());
    });
    return keys;
}

void Expand(Baum& tree, const std::vector<std::string>& keys) {
    for (const std::string& key : keys)
        if (BaumNode* node = tree.Item(key))
            tree.SetExpanded(*node, true);
}

bool HasFileChanged(const Files& files, const clsModul& modul) {
    return modul.DateLastModified != 0 && files.DateLastModified(modul.FullPath) != modul.DateLastModified;
}

}  // namespace

void frmMain::MainActions(int nr) {
    if (nr == 0) {
        close();
        return;
    }
    if (nr != 1 && !gProjekt) {
        Activate_Checked();
        return;
    }
    gAbort = false;
    switch (nr) {
        case 1:
            Projekt_Oeffnen();
            break;
        case 5:
            if (AskQuestion(this,
                            QStringLiteral("Soll die Verwendung aller benutzerdefinierten Typen ermittelt werden?")))
                progress_->Run("Who_Use_Who", [] {});
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
        case 11:
            Files_Check();
            break;
        case 13:
            settings_.Content = ContentMode::Code;
            break;
        default:
            break;
    }
    if (!gAbort)
        Activate_Commands();
}

void frmMain::Projekt_Oeffnen() {
    QFileDialog dialog(this, TextNr(Text::OpenProject).remove(QChar(0x2026)));
    dialog.setFileMode(QFileDialog::ExistingFile);
    // Both spellings: checkouts of old projects have suffixes in capitals.
    dialog.setNameFilter(TextNr(Text::VbProjects) + QStringLiteral(" (*.vbp *.VBP *.Vbp)"));
    dialog.setDefaultSuffix(QStringLiteral("vbp"));
    if (settings_.OpenSaveDir.size() > 1)
        dialog.setDirectory(ToPath(settings_.OpenSaveDir));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    OpenProject(FromPath(dialog.selectedFiles().front()));
}

void frmMain::OpenProject(const std::string& path) {
    if (progress_->IsRunning())
        return;
    if (!files_.FileExists(path)) {
        Message(TextNr(Text::ProjectGone, ToPath(path)));
        ShowStartPage();
        return;
    }
    EmptyViews();
    CloseProject();
    ClearProblems();
    error_->ForgetIgnored();
    missingFiles_->Forget();
    SetActiveCodePage(CodePage(settings_.CodePage));
    gAbort = false;
    gProjekt = std::make_unique<clsProjekt>(files_);
    gProjekt->FullPath = path;
    settings_.OpenSaveDir = QFileInfo(ToPath(path)).absolutePath().toStdString();
    Save_OpenDir(file_, settings_);
    LoadProject();
    if (gAbort) {
        CloseTheProject();
        Message(TextNr(Text::LoadingCancelled));
        return;
    }
    AddRecentProject(file_, QFileInfo(ToPath(path)).absoluteFilePath().toStdString());
    ShowLoadedProject();
    Message(TextNr(Text::ModulesRead, NumberText(gProjekt->CountAllModules())));
}

void frmMain::LoadProject() {
    Timer_Reset(gTimerProjektOeffnen);
    Timer_Start(gTimerProjektOeffnen);
    progress_->Run("Projekt_Laden", [] { Projekt_Laden(*gProjekt); });
    Timer_Stop(gTimerProjektOeffnen);
    Timer_String(gTimerProjektOeffnen);
}

void frmMain::ShowLoadedProject() {
    callsRead_ = false;
    commands_->SetImage(Command::Calls, "CallsReadNot");
    commands_->SetImage(Command::CallsModule, "CallsReadNot");
    FillTree();
    Tote_Untote_Kennzeichnen(*gProjekt);
    Tote_Objekte_Markieren(*gProjekt, tree_);
    const QString file = QFileInfo(ToPath(gProjekt->FullPath)).fileName();
    setWindowTitle(QStringLiteral("%1:   %2 (%3)").arg(ToQString(gProjekt->MyName), ToQString(kProgramTitle), file));
    ShowCounts();
    ShowProblemCount();
    pages_->setCurrentWidget(panes_);
    // Something to begin with: the modules lie open.
    for (BaumNode* root : tree_.Roots())
        tree_.SetExpanded(*root, true);
    properties_->Show(Anzeigen_Eigenschaften(*gProjekt));
    Activate_Commands();
    BaumProjekt().setFocus();
}

// Nothing of the project is on the screen any more, and nothing here knows its objects.
void frmMain::EmptyViews() {
    project_->Search().ProjectChanges();
    CheckedObjects_Reset();
    selection_ = {};
    last_ = {};
    code_.Clear();
    navigation_.Clear();
    for (Baum* tree : {&tree_, &calledBy_, &calls_, &dll_})
        tree->Clear();
    rtbCode_->Clear();
    rtbCodePath_->Show({});
    properties_->Clear();
    callsRead_ = false;
    commands_->Activate(Now());
}

void frmMain::CloseTheProject() {
    EmptyViews();
    CloseProject();
    ClearProblems();
    setWindowTitle(ToQString(kProgramTitle));
    ShowCounts();
    ShowProblemCount();
    ShowStartPage();
    Activate_Commands();
    Message({});
}

void frmMain::Projekt_Analyse() {
    if (!AskQuestion(this, TextNr(Text::AskReadCalls)))
        return;
    RunCalls();
    if (gAbort)
        Message(TextNr(Text::ReadingCallsCancelled));
}

void frmMain::RunCalls() {
    progress_->SetCancelVisible(false);
    progress_->Run("Remove_All_Calls", [] { Remove_All_Calls(*gProjekt); });
    progress_->Run("Who_Calls_Who", [] { Who_Calls_Who(*gProjekt); });
    if (!gAbort) {
        callsRead_ = true;
        commands_->SetImage(Command::Calls, "CallsRead");
        Tote_Untote_Kennzeichnen(*gProjekt);
        Tote_Objekte_Markieren(*gProjekt, tree_);
        int really = 0, mayBe = 0;
        gProjekt->calls.ForEach([&](const clsCall& call) { ++(call.Type() == CallType::MayBe ? mayBe : really); });
        Message(TextNr(Text::CallsRead, NumberText(really), NumberText(mayBe)));
    }
    // Every pane shows the node anew, though it is the same.
    code_.Forget();
    last_ = {};
    if (BaumNode* node = tree_.Selected())
        Activate_BaumProjekt_Node(node);
    if (gCheckedObjects.Count() > 0)
        Show_Dependencies_Group();
    ShowCounts();
    ShowProblemCount();
}

// Reads the project again when a file of it has changed, and comes back to the same place.
void frmMain::Files_Check() {
    int changed = 0;
    for (const auto& modul : gProjekt->OwnedModules())
        changed += HasFileChanged(files_, *modul);
    if (changed == 0) {
        Message(TextNr(Text::NoFileChanged));
        return;
    }
    const std::string path = gProjekt->FullPath;
    const std::string key = tree_.Selected() ? tree_.Selected()->Key() : std::string();
    const bool readCalls = callsRead_;
    const std::vector<std::string> expanded = KeysWhere(tree_, &BaumNode::Expanded);
    OpenProject(path);
    if (!gProjekt)
        return;
    if (readCalls)
        RunCalls();
    Expand(tree_, expanded);
    ActivateKey(key);
    Message(TextNr(Text::FilesChanged, QString::number(changed)));
}

// The same objects in a tree that shows locals or not: folds, check marks and the selected node come back.
void frmMain::RefillTree() {
    const std::string key = tree_.Selected() ? tree_.Selected()->Key() : std::string();
    const std::vector<std::string> expanded = KeysWhere(tree_, &BaumNode::Expanded);
    const std::vector<std::string> checked = KeysWhere(tree_, &BaumNode::Checked);
    {
        const Baum::Filling filling(tree_);
        tree_.Clear();
        FillTree();
        Tote_Objekte_Markieren(*gProjekt, tree_);
        for (const std::string& node : checked)
            if (BaumNode* found = tree_.Item(node))
                tree_.SetChecked(*found, true);
    }
    Expand(tree_, expanded);
    if (BaumNode* node = tree_.Item(key))
        tree_.Select(node);
}

void frmMain::FillTree() {
    localsShown_ = settings_.ProcVars != 0;
    progress_->SetCancelVisible(false);
    progress_->Run("ProjektStruktur_Anzeigen", [this] {
        gProgress().Label(gText.TextNr(Text::BuildingTree));
        ProjektStruktur_Anzeigen(*gProjekt, tree_, localsShown_);
    });
}

void frmMain::WriteReports(const std::string& operation) {
    if (!gProjekt)
        return;
    const std::size_t problemsBefore = Problems().size();
    progress_->SetCancelVisible(false);
    progress_->Run(operation, [&operation] {
        if (operation == "AnalyseErgebnisStructure")
            AnalyseErgebnisStructure(*gProjekt);
        else if (operation == "AnalyseErgebnisCalls")
            AnalyseErgebnisCalls(*gProjekt);
        else
            AnalyseErgebnisDeaths(*gProjekt, DeathsReportPath(*gProjekt));
    });
    ShowProblemCount();
    const QString where = operation == "AnalyseErgebnisDeaths"
                              ? ToPath(files_.SystemPath(DeathsReportPath(*gProjekt)))
                              : QFileInfo(ToPath(files_.SystemPath(gProjekt->FullPath))).absolutePath();
    const QString text = Problems().size() > problemsBefore ? TextNr(Text::ReportsIncomplete, where)
                                                            : TextNr(Text::ReportsWritten, where);
    Message(text);
    options_->ShowReportResult(text);
}

void frmMain::ShowCounts() {
    const bool open = gProjekt != nullptr;
    QStringList texts;
    if (open) {
        const QString none(QChar(0x2013));
        texts = {WithValue(Text::TimeForStructure, ToQString(gProjekt->TimeForStructure)),
                 WithValue(Text::TimeForCalls, callsRead_ ? ToQString(gProjekt->TimeForCalls) : none),
                 WithValue(Text::Modules, NumberText(gProjekt->CountAllModules())),
                 WithValue(Text::CodeLines, NumberText(gProjekt->AnzCodeZeilen)),
                 WithValue(Text::CommentLines, NumberText(gProjekt->AnzCommentZeilen)),
                 WithValue(Text::BlankLines, NumberText(gProjekt->AnzBlankZeilen))};
    }
    counts_->Show(texts);
}

void frmMain::ShowProblemCount() {
    const std::size_t count = Problems().size();
    problemCount_->setVisible(count > 0);
    const QString text =
        count == 1 ? TextNr(Text::OneProblem) : TextNr(Text::ProblemCount, NumberText(static_cast<qlonglong>(count)));
    problemCount_->setText(text);
    problemCount_->setToolTip(TextNr(Text::ProblemCountTip));
    problemCount_->setAccessibleName(text);
}

void frmMain::Message(const QString& text) {
    message_->SetText(text);
    FitMessage();
}

void frmMain::Diagnosis() {
    ShowMessage(this, QString::fromStdString(DiagnosticSummary(gProjekt.get())));
}

void frmMain::Activate_Commands() {
    Commands& command = *commands_;
    const bool open = gProjekt != nullptr;
    mnuReports_->setEnabled(open);
    mnuCopy_->setEnabled(open);
    command[Command::CallsModule].setVisible(false);
    const bool checkBoxes = command[Command::CheckBoxOn].isChecked();
    command[Command::CheckBoxAll].setVisible(checkBoxes);
    command[Command::CheckBoxNone].setVisible(checkBoxes);

    const clsModul* modul = selection_.CurModule;
    const QString forModule =
        modul ? QStringLiteral("for %1 (%2)").arg(ToQString(modul->myNameOrg()), ToQString(TextOf(modul->ModulTyp)))
              : TextNr(Text::ForCurrentModule);
    Commands::SetTexts(command[Command::CallsModule], forModule,
                       modul ? TextNr(Text::ReadCalls) + QStringLiteral(": ") + ToQString(modul->myNameOrg())
                             : TextNr(Text::ReadCalls) + QLatin1Char(' ') + TextNr(Text::ForCurrentModule));
    Commands::SetTexts(command[Command::CallsOfModule], forModule, forModule);
    const bool deletable = selection_.CurObject && (selection_.CurObject->Class() == ObjectClass::Prozedur ||
                                                    selection_.CurObject->Class() == ObjectClass::Variable ||
                                                    selection_.CurObject->Class() == ObjectClass::Type);
    const QString object = deletable ? ToQString(selection_.CurObject->myNameOrg()) : QStringLiteral("Objekt");
    const QString deleteText = object + QStringLiteral(" l\u00f6schen");
    Commands::SetTexts(command[Command::DeleteObject], deleteText, deleteText);
    AssignMenuMnemonics();
    Activate_Checked();
    commands_->Activate(Now());
}

Situation frmMain::Now() const {
    const bool open = gProjekt != nullptr;
    return {.hasProject = open,
            .hasObject = selection_.CurObject != nullptr,
            .hasModule = selection_.CurModule != nullptr,
            .callsRead = callsRead_,
            .neighbours = open ? Activate_Dependencies(*gProjekt, selection_.CurObject) : DependencyButtons(),
            .hasPlaces = rtbCode_->PlaceCount() > 0,
            .hasPrevious = open && navigation_.NavPrevEnabled(),
            .hasNext = open && navigation_.NavNextEnabled()};
}

// What can be checked shows the state at hand, also after a command that changed nothing.
void frmMain::Activate_Checked() {
    Commands& command = *commands_;
    command[Command::ContentCode].setChecked(settings_.Content == ContentMode::Code);
    command[Command::ContentGraph].setChecked(settings_.Content == ContentMode::Graph);
    command[Command::ContentChart].setChecked(settings_.Content == ContentMode::Chart);
    command[Command::SplitForContent].setChecked(settings_.Split == SplitMode::Content);
    command[Command::SplitForCalls].setChecked(settings_.Split == SplitMode::Calls);
}
