// Ways through the code: to an object, to its callers, and from place to place.
#include "views/baum_view.h"
#include "views/code_view.h"
#include "views/commands.h"
#include "views/frm_main.h"
#include "views/graph_wiring.h"
#include "views/lower_pane.h"
#include "views/main_panes.h"
#include "views/reach_list.h"
#include "views/references_list.h"
#include "views/search_bar.h"
#include "views/status_line.h"
#include "views/tree_panes.h"
#include "views/why_wiring.h"
#include "widgets/qt_text.h"

void frmMain::WireWhy() {
    why_ = new WhyWiring(*this, files_, *lower_, *graph_,
                         {.showPage =
                              [this] {
                                  panes_->ShowLower();
                                  lower_->setCurrentWidget(&lower_->Why());
                              },
                          .showWalk = [this](const std::optional<CodePane::Change>& change) { ShowWalk(change); },
                          .showNow = [this] { ShowNow(); }});
    why_->WireCommands();
    connect(why_, &WhyWiring::Message, this, [this](const QString& text) { status_->Message(text); });
}

void frmMain::WireWays() {
    Wire(Command::GoTo, [this](bool) { GoTo(KeyInFocus()); });
    Wire(Command::FindCallers, [this](bool) { FindCallersOf(KeyInFocus()); });
    Wire(Command::NextPlace, [this](bool) { StepPlace(+1); });
    Wire(Command::PreviousPlace, [this](bool) { StepPlace(-1); });
    rtbCode().SetWays({[this](Pos start, Pos length) { return workspace_.LeadsOn(start, length); },
                       [this](Pos position) { return workspace_.NameLeadsOn(position); }});
    connect(&rtbCode(), &CodeView::CommandAsked, this, [this](Command command) { RunOn(command, KeyInFocus()); });
    connect(&project_->Search(), &SearchBar::CommandAsked, this, &frmMain::RunOn);
    ReferencesList& list = lower_->References();
    list.SetSource([this] { return workspace_.References(); });
    connect(&list, &ReferencesList::RowChosen, this, &frmMain::ShowReference);
    connect(&list, &ReferencesList::CommandAsked, this, &frmMain::RunOn);
    connect(lower_, &LowerPane::currentChanged, this, [this] { ShowNow(); });
}

std::string frmMain::KeyInFocus() {
    const QWidget* const focus = focusWidget();
    if (focus == &rtbCode())
        return workspace_.KeyClicked(rtbCode().SelStart(), rtbCode().SelLength());
    if (focus == &lower_->References())
        return lower_->References().CurrentObject();
    if (focus == &lower_->Why())
        return lower_->Why().CurrentObject();
    const auto* const tree = qobject_cast<const BaumView*>(focus);
    return tree ? tree->CurrentObject() : std::string();
}

void frmMain::RunOn(Command command, const std::string& key) {
    switch (command) {
        case Command::GoTo:
            return GoTo(key);
        case Command::FindCallers:
            return FindCallersOf(key);
        case Command::ShowInGraph:
            return graph_->ShowInGraph(key);
        default:
            why_->Run(command, key);
    }
}

void frmMain::GoTo(const std::string& key) {
    if (key.empty() || !ActivateKey(key))
        status_->Remark(TextNr(Text::NothingToGoTo));
}

// Of the current object, if there is no key.
void frmMain::FindCallersOf(const std::string& key) {
    if (!key.empty() && !ActivateKey(key))
        return status_->Remark(TextNr(Text::NothingToGoTo));
    panes_->ShowLower();
    lower_->setCurrentWidget(&lower_->References());
    lower_->References().setFocus();
    workspace_.WalkReferences();
    ShowNow();
}

void frmMain::RenewReferences() {
    lower_->RenewReferences(workspace_.ReferenceCount(), TextNr(workspace_.WhyNoReferences()));
    if (workspace_.WalksReferences())
        lower_->References().SetCurrentRow(std::max(workspace_.Walk().At(), 0));
    why_->Renew();
}

// What was asked for last: references, the places of a neighbour, or those of the current object in its code. Without
// any, the references that can be seen.
void frmMain::StepPlace(int by) {
    if (why_->Step(by))
        return;
    ReferencesList& list = lower_->References();
    if (workspace_.Walk().Count() == 0) {
        if (rtbCode().PlaceCount() > 0 || !list.isVisible())
            return by > 0 ? rtbCode().NextPlace() : rtbCode().PreviousPlace();
        workspace_.WalkReferences();
    }
    // A row that the user went to in the list is the next place, or the one after the previous.
    const int row = list.CurrentRow();
    const bool hasMoved = workspace_.WalksReferences() && row >= 0 && row != workspace_.Walk().At();
    if (hasMoved && by > 0)
        return ShowWalk(workspace_.WalkTo(row));
    ShowWalk(hasMoved ? workspace_.StepFrom(row, by) : workspace_.StepOn(by));
}

void frmMain::ShowReference(int row, bool stays) {
    if (!workspace_.WalksReferences())
        workspace_.WalkReferences();
    ShowWalk(workspace_.WalkTo(row));
    if (!stays)
        rtbCode().setFocus();
}

void frmMain::ShowWalk(const std::optional<CodePane::Change>& change) {
    if (!change)
        return;
    ShowOverview(false);
    ShowCode(*change);
    if (workspace_.WalksReferences())
        lower_->References().SetCurrentRow(workspace_.Walk().At());
    if (workspace_.WalksWhy())
        why_->ShowPlace(workspace_.Walk().At());
    status_->ShowPlace(workspace_.Walk().At() + 1, workspace_.Walk().Count());
    Activate_Commands();
}
