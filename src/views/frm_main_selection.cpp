// Shows the workspace's answers in the panes.
#include <QFileInfo>

#include "model/clsProjekt.h"
#include "project/start.h"
#include "shell/program.h"
#include "views/baum_view.h"
#include "views/code_view.h"
#include "views/commands.h"
#include "views/content_stack.h"
#include "views/dialogs.h"
#include "views/frm_main.h"
#include "views/frm_progress.h"
#include "views/graph_wiring.h"
#include "views/lower_pane.h"
#include "views/overview_pane.h"
#include "views/path_line.h"
#include "views/properties_grid.h"
#include "views/references_list.h"
#include "views/search_bar.h"
#include "views/status_line.h"
#include "views/tree_panes.h"
#include "views/why_wiring.h"
#include "widgets/icons.h"
#include "widgets/qt_text.h"

// Objects become invalid now: clears every pane that shows one.
void frmMain::GenerationEnds() {
    project_->Search().ProjectChanges();
    content_->Clear();
    rtbCodePath_->Show({});
    lower_->Properties().Clear();
    RenewReferences();
    why_->GenerationEnds();
    ShowNow();
}

bool frmMain::ActivateKey(const NodeId& node) {
    // A pane that answers the new content with a selection of its own must not start another activation.
    if (activating_)
        return false;
    activating_ = true;
    const std::optional<Workspace::Shown> shown = workspace_.Activate(node);
    if (shown)
        Show(*shown);
    activating_ = false;
    return shown.has_value();
}

void frmMain::ActivateLine(const std::string& modulKey, int line) {
    ShowOverview(false);
    if (const std::optional<Workspace::Shown> shown = workspace_.ActivateLine(modulKey, line))
        Show(*shown);
}

// Shows the current object again in every pane; without one the properties are those of the project.
void frmMain::ShowAgain() {
    if (const std::optional<Workspace::Shown> shown = workspace_.ShowAgain())
        Show(*shown);
    else if (gProjekt)
        lower_->Properties().Show(Anzeigen_Eigenschaften(*gProjekt));
    why_->ProjectChanged();
}

void frmMain::Show(const Workspace::Shown& shown) {
    status_->ShowPlace(0, 0);
    ShowCode(shown.code);
    if (shown.properties)
        lower_->Properties().Show(*shown.properties);
    RenewReferences();
    rtbCodePath_->Show(shown.path, IconFor(shown.image));
    graph_->ObjectChosen();
    commands_->SetImage(Command::CallsModule, workspace_.CallsRead() ? "CallsRead" : "CallsReadNot");
    ShowContent();
    Activate_Commands();
}

// Brings up the pane that shows the current object, or the overview with numbers as they are now.
void frmMain::ShowContent() {
    const ContentMode shown = workspace_.ContentShown();
    if (shown == ContentMode::Overview && gProjekt)
        overview_->Show(OverviewOf(*gProjekt));
    FillChart();
    content_->Show(shown);
}

void frmMain::ShowWholeModule(bool whole, bool withHeader) {
    workspace_.ShowOverview(false);
    if (const auto shown = workspace_.ShowWholeModule(whole, withHeader))
        Show(*shown);
    if (withHeader)
        rtbCode().Select({});
}

void frmMain::ShowOverview(bool shown) {
    if (shown && workspace_.ContentShown() == ContentMode::Overview)
        overview_->ShowPage();
    settings_.Content = ContentMode::Code;
    workspace_.ShowOverview(shown);
    ShowContent();
    if (shown)
        overview_->Focus();
    Activate_Commands();
}

void frmMain::ShowCode(const CodePane::Change& change) {
    if (change.newText) {
        rtbCode().Show(workspace_.Code().Text());
        code_->ShowHeaderLine(workspace_.HeaderLines(), workspace_.Code().HasHeader());
    }
    rtbCode().MarkPlaces(change.places, change.currentPlace);
    if (change.select)
        rtbCode().Select(*change.select);
}

// After a click on a neighbour, shows the places of its calls in the caller's text.
void frmMain::SelectCallsOfObject(const std::string& key, bool isCaller) {
    const BaumNode* node = (isCaller ? workspace_.CalledBy() : workspace_.Calls()).Item(key);
    if (!node)
        return;
    const std::optional<CodePane::Change> change = workspace_.SelectCallsOfObject(*node, isCaller);
    if (workspace_.Walk().Count() > 0) {
        ShowWalk(change);
    } else if (change) {
        ShowContent();
        ShowCode(*change);
    }
}

void frmMain::GoBackOrOn(bool back) {
    if (back && workspace_.ContentShown() == ContentMode::Overview && workspace_.Current().CurObject) {
        ShowOverview(false);
        return;
    }
    NavigationList& list = workspace_.Navigation();
    list.NoteSelection(rtbCode().SelStart(), rtbCode().SelLength());
    const auto step = [&list](bool toPrevious) { return toPrevious ? list.NavCodeKey_Prev() : list.NavCodeKey_Next(); };
    // A place can have no node any more, such as a local in a tree that leaves locals out: it is passed over.
    int steps = 0;
    bool isShown = false;
    for (const NavigationList::Record* found = step(back); found; found = isShown ? nullptr : step(back)) {
        // A copy: ActivateKey changes the list that holds the record.
        const NavigationList::Record record = *found;
        ++steps;
        isShown = ActivateKey(record.node);
        if (isShown && (record.SelStart != 0 || record.SelLength != 0))
            rtbCode().Select({record.SelStart, record.SelLength});
    }
    for (; !isShown && steps > 0; --steps)
        step(!back);
    ShowNow();
}

void frmMain::SetMayBe(bool calls, bool mayBe) {
    workspace_.SetMayBe(calls, mayBe);
    ShowNow();
    if (workspace_.Current().CurObject)
        // The button takes the focus, but arrow keys should go on in the tree.
        BaumProjekt().setFocus();
}

void frmMain::ShowMayBe(bool calls) {
    const bool mayBe = workspace_.MayBe(calls);
    Commands& command = *commands_;
    command[calls ? Command::CallsReally : Command::CalledByReally].setChecked(!mayBe);
    command[calls ? Command::CallsMaybe : Command::CalledByMaybe].setChecked(mayBe);
    (calls ? callsPane_ : calledByPane_)
        ->ShowCaption(WithCount(TextNr(calls ? Text::Calls : Text::CalledBy), workspace_.EdgesShown(calls)), mayBe);
}

void frmMain::ToggleCheckBoxes(bool on) {
    BaumProjekt().SetCheckBoxes(on);
    workspace_.SetCheckBoxes(on);
    commands_->SetImage(Command::CheckBoxOn, on ? "CheckBoxOn" : "CheckBoxOff");
    FillChart();
    Activate_Commands();
}

void frmMain::CheckAll(bool checked) {
    workspace_.CheckAll(checked);
    FillChart();
    ShowNow();
}

// What the dependency trees leave out, and why one of them is empty.
void frmMain::ShowAboutNeighbours() {
    const Text filter = workspace_.FilterText();
    const QString text = filter == Text::None
                             ? QString()
                             : TextNr(filter, NumberText(static_cast<qlonglong>(workspace_.CheckedCount())));
    for (const bool calls : {false, true}) {
        DependencyPane& pane = calls ? *callsPane_ : *calledByPane_;
        pane.ShowFilter(text);
        pane.ShowWhyEmpty(workspace_.WhyEmpty(calls));
        ShowMayBe(calls);
    }
}

void frmMain::ShowNow() {
    ShowAboutNeighbours();
    project_->ShowPreliminary(gProjekt && !workspace_.CallsRead());
    commands_->Activate(Now());
}

Situation frmMain::Now() const {
    const bool hasReferences = lower_->References().isVisible() && lower_->References().Count() > 0;
    Situation now = workspace_.Now(rtbCode().PlaceCount() > 0 || workspace_.Walk().Count() > 0 || hasReferences ||
                                   why_->HasPlaces());
    now.graph = graph_->Now();
    return now;
}

// The project first, then the diagram; what is not saved has a mark after its name.
void frmMain::ShowTitle() {
    QString title = ToQString(kProgramTitle);
    const bool isEdited = gProjekt && workspace_.Deleted().HasUnsaved();
    if (gProjekt) {
        const auto mark = [](bool isUnsaved) { return isUnsaved ? QStringLiteral("[*]") : QString(); };
        const QString graph = graph_->TitlePart();
        title = QStringLiteral("%1:   %2 (%3)%4")
                    .arg(ToQString(gProjekt->MyName), title, QFileInfo(ToPath(gProjekt->FullPath)).fileName(),
                         mark(isEdited));
        if (!graph.isEmpty())
            title += QStringLiteral("  \u2013  ") + graph + mark(graph_->IsUnsaved());
    }
    setWindowTitle(title);
    setWindowModified(isEdited || graph_->IsUnsaved());
}

void frmMain::OpenFile(const std::string& path) {
    // A drop or a start with a file can arrive while an operation runs.
    if (dialogs_.progress->IsRunning())
        return;
    if (QFileInfo(ToPath(path)).suffix().compare(QStringLiteral("ovg"), Qt::CaseInsensitive) == 0)
        graph_->Open(path);
    else
        OpenProject(path);
}

// Qt toggles a checkable action on every click, also if the command changed nothing: set it to the actual state.
void frmMain::Activate_Checked() {
    Commands& command = *commands_;
    const ContentMode shown = workspace_.ContentShown();
    command[Command::ContentCode].setChecked(shown == ContentMode::Code);
    command[Command::WholeModule].setChecked(workspace_.Code().IsWhole());
    command[Command::Overview].setChecked(shown == ContentMode::Overview);
    command[Command::ContentGraph].setChecked(shown == ContentMode::Graph);
    command[Command::ContentChart].setChecked(shown == ContentMode::Chart);
    command[Command::SplitForContent].setChecked(settings_.Split == SplitMode::Content);
    command[Command::SplitForCalls].setChecked(settings_.Split == SplitMode::Calls);
}
