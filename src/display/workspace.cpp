#include "display/workspace.h"

#include "calls/driver.h"
#include "display/baum_walk.h"
#include "display/dependency_trees.h"
#include "display/node_objects.h"
#include "display/object_text.h"
#include "display/project_tree.h"
#include "display/tree_marks.h"
#include "findings/dead_objects.h"
#include "libraries/library_search.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsVariable.h"
#include "platform/code_page.h"
#include "platform/files.h"
#include "project/project_file.h"
#include "project/start.h"
#include "shell/clsText.h"
#include "shell/errors.h"
#include "shell/operations.h"
#include "shell/timing.h"

namespace {

// All nodes with this property, by identity that survives a refill.
std::vector<NodeId> NodesWhere(const Baum& tree, bool (BaumNode::*property)() const) {
    std::vector<NodeId> nodes;
    ForEachNode(tree, [&](const BaumNode& node) {
        if ((node.*property)())
            nodes.push_back(node.Id());
    });
    return nodes;
}

}  // namespace

Workspace::Workspace(std::unique_ptr<clsProjekt>& projekt, Files& files, const Settings& settings, Ports ports)
    : projekt_(projekt), files_(files), settings_(settings), ports_(std::move(ports)) {}

Workspace::~Workspace() = default;

// Null if the settings leave out the libraries.
LibrarySearch* Workspace::SearchOfLibraries() {
    if (settings_.LoadLibs == 0)
        return nullptr;
    LibrarySources sources = LibrarySourcesOf(settings_, files_);
    if (!search_ || search_->Sources() != sources)
        search_ = std::make_unique<LibrarySearch>(files_, std::move(sources));
    return search_.get();
}

bool Workspace::Open(const std::string& path) {
    EndGeneration();
    SetActiveCodePage(CodePage(settings_.CodePage));
    gAbort = false;
    NewProject(files_, path);
    projekt_->CondComps_Win32_Win16(settings_.Win32 == 1);
    Timer_Reset(gTimerProjektOeffnen);
    Timer_Start(gTimerProjektOeffnen);
    ports_.run("Projekt_Laden", true, [this] { Projekt_Laden(*projekt_, SearchOfLibraries()); });
    Timer_Stop(gTimerProjektOeffnen);
    if (gAbort) {
        Close();
        return false;
    }
    projekt_->OnReplaced([this] { ForgetObjects(); });
    FillTree();
    Tote_Untote_Kennzeichnen(*projekt_);
    Tote_Objekte_Markieren(*projekt_, tree_);
    // The tree starts with its modules visible, not with a few roots.
    for (BaumNode* root : tree_.Roots())
        tree_.SetExpanded(*root, true);
    return true;
}

bool Workspace::CallsRead() const {
    return projekt_ && projekt_->callsKnown;
}

void Workspace::Close() {
    EndGeneration();
    CloseProject();
}

// Drops everything that refers to objects. Checked objects are found again by their paths.
void Workspace::ForgetObjects() {
    selection_ = {};
    last_ = {};
    neighbours_ = {};
    code_ = {};
    calledBy_.Clear();
    calls_.Clear();
    if (projekt_)
        checked_.Renew(*projekt_);
    ports_.ends();
}

void Workspace::EndGeneration() {
    checked_.Clear();
    navigation_.Clear();
    tree_.Clear();
    collected_.Clear();
    ForgetObjects();
}

std::optional<Workspace::CallCounts> Workspace::ReadCalls() {
    ports_.run("Remove_All_Calls", false, [this] { Remove_All_Calls(*projekt_); });
    ports_.run("Who_Calls_Who", true, [this] { Who_Calls_Who(*projekt_); });
    code_.Forget();
    code_.ForgetLocals();
    last_ = {};
    if (gAbort)
        return {};
    Tote_Untote_Kennzeichnen(*projekt_);
    Tote_Objekte_Markieren(*projekt_, tree_);
    CallCounts counts;
    projekt_->calls.ForEach(
        [&](const clsCall& call) { ++(call.Type() == CallType::MayBe ? counts.possible : counts.certain); });
    return counts;
}

int Workspace::Refresh() {
    const int changed = CountChangedModules(*projekt_);
    if (changed == 0)
        return 0;
    ports_.run("ChangedModule_Regenerieren", false, [this] { ChangedModule_Regenerieren(*projekt_); });
    if (!projekt_->callsKnown)
        Tote_Untote_Kennzeichnen(*projekt_);  // the marks of a project just opened
    RefillTree();
    return changed;
}

Workspace::Place Workspace::Here() const {
    return {tree_.Selected() ? tree_.Selected()->Id() : NodeId(), NodesWhere(tree_, &BaumNode::Expanded),
            NodesWhere(tree_, &BaumNode::Checked)};
}

void Workspace::OptionsApplied() {
    code_.Forget();
    last_ = {};
    if (projekt_ && localsShown_ != (settings_.ProcVars != 0))
        RefillTree();
}

void Workspace::FillTree() {
    localsShown_ = settings_.ProcVars != 0;
    ports_.run("ProjektStruktur_Anzeigen", false, [this] {
        gProgress().Label(gText.TextNr(Text::BuildingTree));
        ProjektStruktur_Anzeigen(*projekt_, tree_, localsShown_);
    });
}

void Workspace::RefillTree() {
    const Place place = Here();
    {
        const Baum::Filling filling(tree_);
        tree_.Clear();
        FillTree();
        Tote_Objekte_Markieren(*projekt_, tree_);
        for (const NodeId& id : place.checked)
            if (BaumNode* node = tree_.Find(id))
                tree_.SetChecked(*node, true);
    }
    for (const NodeId& id : place.expanded)
        if (BaumNode* node = tree_.Find(id))
            tree_.SetExpanded(*node, true);
    if (BaumNode* node = tree_.Find(place.selected))
        tree_.Select(node);
}

std::optional<Workspace::Shown> Workspace::Activate(const NodeId& id) {
    BaumNode* const node = projekt_ ? tree_.Find(id) : nullptr;
    if (!node)
        return {};
    tree_.EnsureVisible(*node);
    tree_.Select(node);
    Set_GlobalObjects_fromNode(*projekt_, selection_, node->Id());
    Shown shown;
    shown.code = code_.Show_Structure(*projekt_, selection_);
    MarkLocals(shown.code);
    neighbours_ = Activate_Dependencies(*projekt_, selection_.CurObject);
    if (selection_.CurObject)
        shown.properties = Anzeigen_Eigenschaften(*selection_.CurObject);
    if (!selection_.CurObject) {
        calledBy_.Clear();
        calls_.Clear();
    } else if (NeedsDependencies(selection_, last_)) {
        ShowDependencies();
    }
    shown.path = CodePath_Anzeigen(selection_);
    shown.image = node->Image();
    last_ = Set_LastObjects(selection_);
    navigation_.AddNavCodeKey(node->Id());
    return shown;
}

std::optional<Workspace::Shown> Workspace::ShowAgain() {
    if (!projekt_)
        return {};
    std::optional<Shown> shown;
    if (const BaumNode* node = tree_.Selected())
        shown = Activate(node->Id());
    if (!checked_.Objects().empty())
        ShowGroup();
    return shown;
}

// Uses of locals are determined when a procedure is shown, so its locals get their marks in the tree only now.
void Workspace::MarkLocals(const CodePane::Change& change) {
    if (change.newText && code_.Text().localsChecked && selection_.CurProc)
        Tote_Objekte_Markieren(*selection_.CurProc, code_.Locals(), tree_);
}

CodeObject* Workspace::ProcedureOrCurrent() const {
    return selection_.CurProc ? static_cast<CodeObject*>(selection_.CurProc) : selection_.CurObject;
}

CallType Workspace::TypeShown(bool isCaller) const {
    return MayBe(!isCaller) ? CallType::MayBe : CallType::Really;
}

std::optional<CodePane::Change> Workspace::SelectCallsOfObject(const BaumNode& node, bool isCaller) {
    if (!projekt_ || !ObjectOf(node) || !selection_.CurObject)
        return {};
    SetCalledObject(*projekt_, selection_, node.Id());
    const CodeObject& clicked = *selection_.CalledObject;
    const CodeObject* const caller =
        selection_.CurProc ? static_cast<const CodeObject*>(selection_.CurProc) : selection_.CurModule;
    if (!isCaller && !caller)
        return {};
    const CodePane::Change change =
        isCaller ? code_.SelectCallsOfObject(*projekt_, *ProcedureOrCurrent(), clicked, TypeShown(true))
                 : code_.SelectCallsOfObject(*projekt_, clicked, *caller, TypeShown(false));
    MarkLocals(change);
    return change;
}

std::string Workspace::KeyClicked(Pos selStart, Pos selLength) {
    navigation_.NoteSelection(selStart, selLength);
    const CodeObject* const object =
        projekt_ ? code_.ObjectClicked(*projekt_, selection_, selStart, selLength) : nullptr;
    return object ? object->CodePath() : std::string();
}

std::optional<Workspace::Shown> Workspace::NodeChecked(BaumNode& node) {
    if (!projekt_)
        return {};
    std::optional<Shown> shown;
    const CheckAnswer answer = NodeCheck(*projekt_, tree_, node, settings_.Content, checked_);
    if (answer.current) {
        Set_GlobalObjects_fromNode(*projekt_, selection_, node.Id());
        shown.emplace();
        shown->path = CodePath_Anzeigen(selection_);
        shown->image = node.Image();
    }
    if (answer.effect == CheckEffect::ShowGroup)
        ShowGroup();
    return shown;
}

void Workspace::CheckAll(bool checked) {
    if (projekt_)
        Check_All_Modules(*projekt_, tree_, checked);
}

void Workspace::SetMayBe(bool calls, bool mayBe) {
    (calls ? mayBeCalls_ : mayBeCalledBy_) = mayBe;
    if (!projekt_ || !selection_.CurObject)
        return;
    if (calls)
        Show_Dependencies_AllCalls(*projekt_, checked_, selection_.CurObject, calls_, mayBe);
    else
        Show_Dependencies_AllCalledBy(*projekt_, checked_, selection_.CurObject, calledBy_, mayBe);
}

void Workspace::ShowDependencies() {
    if (!projekt_)
        return;
    Show_Dependencies_AllCalledBy(*projekt_, checked_, selection_.CurObject, calledBy_, mayBeCalledBy_);
    Show_Dependencies_AllCalls(*projekt_, checked_, selection_.CurObject, calls_, mayBeCalls_);
}

void Workspace::ShowGroup() {
    Show_Dependencies_Group(*projekt_, checked_, calledBy_, calls_, mayBeCalledBy_, mayBeCalls_);
}

void Workspace::Collect(std::string_view key) {
    if (BaumNode* node = projekt_ ? Drop_Module(*projekt_, collected_, key) : nullptr)
        collected_.Select(node);
}

std::optional<PropertyRows> Workspace::PropertiesAt(Pos selStart, Pos selLength) const {
    if (!projekt_ || !selection_.CurObject)
        return {};
    auto rows = Anzeigen_Eigenschaften(*selection_.CurObject);
    if (rows)
        for (PropertyRow& row : Anzeigen_TextPos(code_.Text(), selStart, selLength))
            rows->push_back(std::move(row));
    return rows;
}

const CodeObject* Workspace::ObjectOf(const BaumNode& node) const {
    return projekt_ && node.Kind() == NodeKind::Object ? ObjectOfNode(*projekt_, node.Id()) : nullptr;
}

std::vector<std::string> Workspace::HoverText(const BaumNode& node) const {
    const CodeObject* const object = ObjectOf(node);
    return object ? ObjectText(*projekt_, code_.Locals(), *object) : std::vector<std::string>();
}

std::vector<std::string> Workspace::DependencyHoverText(const BaumNode& node, bool isCaller) const {
    std::vector<std::string> lines = HoverText(node);
    const CodeObject* const object = ObjectOf(node);
    const CodeObject* const own = ProcedureOrCurrent();
    if (object && own) {
        const CallType type = TypeShown(isCaller);
        std::string calls =
            isCaller ? CallsText(*projekt_, *object, *own, type) : CallsText(*projekt_, *own, *object, type);
        if (!calls.empty())
            lines.push_back(std::move(calls));
    }
    return lines;
}

std::vector<std::string> Workspace::CodeHoverText(Pos position) const {
    const CodeObject* const object = projekt_ ? code_.ObjectAt(*projekt_, position) : nullptr;
    return object ? ObjectText(*projekt_, code_.Locals(), *object) : std::vector<std::string>();
}

Situation Workspace::Now(bool hasPlaces) const {
    if (!projekt_)
        return {};
    return {.hasProject = true,
            .hasObject = selection_.CurObject != nullptr,
            .hasModule = selection_.CurModule != nullptr,
            .callsRead = CallsRead(),
            .neighbours = neighbours_,
            .hasPlaces = hasPlaces,
            .hasPrevious = navigation_.NavPrevEnabled(),
            .hasNext = navigation_.NavNextEnabled()};
}
