// From a selected node to what every pane shows, and from a place in the code back to a node.
#include "views/frm_main.h"

#include "display/dependency_trees.h"
#include "display/object_text.h"
#include "display/tree_checks.h"
#include "display/tree_marks.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"
#include "model/group_keys.h"
#include "views/baum_view.h"
#include "views/code_view.h"
#include "views/commands.h"
#include "views/icons.h"
#include "views/object_tip.h"
#include "views/path_line.h"
#include "views/properties_grid.h"
#include "views/qt_text.h"
#include "views/tree_panes.h"

namespace {

// The keys of kinds in the trees that have no "[]" behind them.
bool IsKindKey(std::string_view key) {
    for (const std::string_view kind : {"module", "class", "form", "object", "reference", "usercontrol"})
        if (key == kind)
            return true;
    return false;
}

}  // namespace

void frmMain::BaumProjekt_NodeClick(const std::string& key) {
    if (IsKindKey(key) || IsGroupKey(key))
        return;
    Activate_BaumProjekt_Node(tree_.Item(key));
}

bool frmMain::ActivateKey(std::string_view key) {
    BaumNode* node = tree_.Item(key);
    Activate_BaumProjekt_Node(node);
    return node != nullptr;
}

void frmMain::Activate_BaumProjekt_Node(BaumNode* node) {
    if (activating_ || !node || !gProjekt)
        return;
    activating_ = true;
    tree_.EnsureVisible(*node);
    tree_.Select(node);
    Set_GlobalObjects_fromNode(selection_, node->Key());
    ShowCode(code_.Show_Structure(*gProjekt, selection_));
    Activate_Dependencies_ColorPoints();
    if (!selection_.CurObject) {
        calledBy_.Clear();
        calls_.Clear();
    } else if (NeedsDependencies(selection_, last_)) {
        Show_Dependencies();
    }
    rtbCodePath_->Show(CodePath_Anzeigen(selection_), IconFor(node->Image()));
    commands_->SetImage(Command::CallsModule, callsRead_ ? "CallsRead" : "CallsReadNot");
    Activate_Commands();
    last_ = Set_LastObjects(selection_);
    navigation_.AddNavCodeKey(node->Key());
    ShowNavigation();
    activating_ = false;
}

void frmMain::ShowCode(const CodePane::Change& change) {
    if (change.newText) {
        rtbCode_->Show(code_.Text());
        if (code_.Text().localsChecked && selection_.CurProc)
            Tote_Objekte_Markieren(*selection_.CurProc, tree_);
    }
    rtbCode_->MarkPlaces(change.places);
    if (change.select)
        rtbCode_->Select(*change.select);
}

void frmMain::Activate_Dependencies_ColorPoints() {
    if (!selection_.CurObject)
        return;
    ShowProperties(false);
}

// The facts of the object, and behind them, while somebody reads the code, where the cursor stands.
void frmMain::ShowProperties(bool withPosition) {
    if (!gProjekt || !selection_.CurObject)
        return;
    auto rows = Anzeigen_Eigenschaften(*selection_.CurObject);
    if (!rows)
        return;
    if (withPosition)
        for (PropertyRow& row : Anzeigen_TextPos(code_.Text(), rtbCode_->SelStart(), rtbCode_->SelLength()))
            rows->push_back(std::move(row));
    properties_->Show(std::move(*rows));
}

void frmMain::Collect(const std::string& key) {
    if (!gProjekt)
        return;
    if (BaumNode* node = Drop_Module(*gProjekt, dll_, key))
        dll_.Select(node);
}

void frmMain::Show_Dependencies() {
    if (!gProjekt)
        return;
    Show_Dependencies_AllCalledBy(*gProjekt, selection_.CurObject, calledBy_, MayBeCalledBy, true);
    Show_Dependencies_AllCalls(*gProjekt, selection_.CurObject, calls_, MayBeCalls, true);
}

void frmMain::Show_Dependencies_Group() {
    if (gProjekt)
        ::Show_Dependencies_Group(*gProjekt, calledBy_, calls_, MayBeCalledBy, MayBeCalls);
}

void frmMain::SetMayBe(bool calls, bool mayBe) {
    (calls ? MayBeCalls : MayBeCalledBy) = mayBe;
    Commands& command = *commands_;
    command[calls ? Command::CallsReally : Command::CalledByReally].setChecked(!mayBe);
    command[calls ? Command::CallsMaybe : Command::CalledByMaybe].setChecked(mayBe);
    DependencyPane* pane = calls ? callsPane_ : calledByPane_;
    pane->ShowCaption(TextNr(calls ? Text::Calls : Text::CalledBy), mayBe);
    if (!gProjekt || !selection_.CurObject)
        return;
    if (calls)
        Show_Dependencies_AllCalls(*gProjekt, selection_.CurObject, calls_, mayBe, true);
    else
        Show_Dependencies_AllCalledBy(*gProjekt, selection_.CurObject, calledBy_, mayBe, true);
    BaumProjekt().setFocus();
}

// A neighbour was clicked: the places of its call come up, in the caller's text.
void frmMain::SelectCallsOfObject(const std::string& key, bool isCaller) {
    if (!gProjekt || IsKindKey(key) || IsGroupKey(key) || !selection_.CurObject)
        return;
    SetCalledObject(selection_, key);
    CodeObject* clicked = selection_.CalledObject;
    if (!clicked)
        return;
    const CallType type = (isCaller ? MayBeCalledBy : MayBeCalls) ? CallType::MayBe : CallType::Really;
    CodeObject* own = selection_.CurProc ? static_cast<CodeObject*>(selection_.CurProc) : selection_.CurObject;
    if (isCaller)
        ShowCode(code_.SelectCallsOfObject(*gProjekt, *own, *clicked, type));
    else if (CodeObject* caller =
                 selection_.CurProc ? static_cast<CodeObject*>(selection_.CurProc) : selection_.CurModule)
        ShowCode(code_.SelectCallsOfObject(*gProjekt, *clicked, *caller, type));
}

void frmMain::DependencyContext(const std::string& key) {
    if (tree_.Exist(key))
        BaumProjekt_NodeClick(key);
}

void frmMain::CodeClicked(int selStart, int selLength) {
    navigation_.NoteSelection(selStart, selLength);
    if (const CodeObject* object = code_.ObjectClicked(selection_, selStart, selLength))
        ActivateKey(object->CodePath());
    rtbCode_->setFocus();
}

void frmMain::NavCodeKey_Prev() {
    navigation_.NoteSelection(rtbCode_->SelStart(), rtbCode_->SelLength());
    if (const NavigationList::Record* record = navigation_.NavCodeKey_Prev())
        ShowRecord(*record);
    ShowNavigation();
}

void frmMain::NavCodeKey_Next() {
    navigation_.NoteSelection(rtbCode_->SelStart(), rtbCode_->SelLength());
    if (const NavigationList::Record* record = navigation_.NavCodeKey_Next())
        ShowRecord(*record);
    ShowNavigation();
}

void frmMain::ShowRecord(const NavigationList::Record& record) {
    const CodeRange selected{record.SelStart, record.SelLength};
    ActivateKey(record.Key);
    if (selected.start != 0 || selected.length != 0)
        rtbCode_->Select(selected);
}

void frmMain::ShowNavigation() {
    commands_->Activate(Now());
}

void frmMain::ToggleCheckBoxes(bool on) {
    BaumProjekt().SetCheckBoxes(on);
    commands_->SetImage(Command::CheckBoxOn, on ? "CheckBoxOn" : "CheckBoxOff");
    Activate_Commands();
}

void frmMain::Check_All(bool checked) {
    if (!gProjekt || !BaumProjekt().Model().CheckBoxes())
        return;
    Check_All_Modules(*gProjekt, tree_, checked);
}

void frmMain::BaumProjekt_NodeChecked(const std::string& key, bool) {
    BaumNode* node = tree_.Item(key);
    if (!node || !gProjekt)
        return;
    const CheckAnswer answer = NodeCheck(*gProjekt, tree_, *node, settings_.Content);
    if (answer.current) {
        Set_GlobalObjects_fromNode(selection_, key);
        rtbCodePath_->Show(CodePath_Anzeigen(selection_), IconFor(node->Image()));
    }
    if (answer.effect == CheckEffect::ShowGroup)
        Show_Dependencies_Group();
}

QString frmMain::HoverText(const std::string& key) const {
    if (!gProjekt || IsKindKey(key) || IsGroupKey(key))
        return {};
    const CodeObject* object = ObjectOfNode(key);
    return object ? ToolTipOf(ObjectText(*object)) : QString();
}

// Behind what every tree says of the neighbour: how many calls there are, and where the first stands.
QString frmMain::DependencyHoverText(const std::string& key, bool isCaller) const {
    if (!gProjekt || IsKindKey(key) || IsGroupKey(key))
        return {};
    const CodeObject* object = ObjectOfNode(key);
    if (!object)
        return {};
    std::vector<std::string> lines = ObjectText(*object);
    const CodeObject* own =
        selection_.CurProc ? static_cast<const CodeObject*>(selection_.CurProc) : selection_.CurObject;
    if (own) {
        const CallType type = (isCaller ? MayBeCalledBy : MayBeCalls) ? CallType::MayBe : CallType::Really;
        const std::string calls = isCaller ? CallsText(*object, *own, type) : CallsText(*own, *object, type);
        if (!calls.empty())
            lines.push_back(calls);
    }
    return ToolTipOf(lines);
}

QString frmMain::CodeHoverText(Pos position) const {
    const CodeObject* object = gProjekt ? code_.ObjectAt(position) : nullptr;
    return object ? ToolTipOf(ObjectText(*object)) : QString();
}
