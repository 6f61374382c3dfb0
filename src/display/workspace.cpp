#include "display/workspace.h"
#include "display/library_text.h"

#include <algorithm>

#include "calls/driver.h"
#include "display/baum_walk.h"
#include "display/dependency_trees.h"
#include "display/node_objects.h"
#include "display/object_text.h"
#include "display/project_reach.h"
#include "display/project_tree.h"
#include "display/tree_marks.h"
#include "findings/dead_objects.h"
#include "findings/library_use.h"
#include "libraries/library_search.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsVariable.h"
#include "platform/code_page.h"
#include "platform/files.h"
#include "project/project_file.h"
#include "project/start.h"
#include "shell/errors.h"
#include "shell/operations.h"
#include "shell/timing.h"
#include "source/module_text.h"

namespace {

// A line of a text from 1, as its position in the text and its length; an empty one at the start if there is none.
CodeRange LineAt(std::string_view text, int line) {
    std::size_t begin = 0;
    while (--line > 0) {
        begin = text.find(vbCrLf, begin);
        if (begin == std::string_view::npos)
            return {1, 0};
        begin += vbCrLf.size();
    }
    const std::size_t end = std::min(text.find(vbCrLf, begin), text.size());
    return {static_cast<Pos>(begin) + 1, static_cast<Pos>(end - begin)};
}

}  // namespace

Workspace::Workspace(std::unique_ptr<clsProjekt>& projekt, Files& files, const Settings& settings, Ports ports)
    : projekt_(projekt),
      files_(files),
      settings_(settings),
      ports_(std::move(ports)),
      reach_(std::make_unique<ProjectReach>(files, ports_.settingsFile)) {}

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

bool Workspace::Open(const std::string& path, const std::string& codePage) {
    EndGeneration();
    deletions_.Clear();
    SetActiveCodePage(CodePage(codePage.empty() ? settings_.CodePage : codePage));
    NewProject(files_, path);
    projekt_->CondComps_Win32_Win16(settings_.Win32 == 1);
    const bool isWhole = ports_.run("Projekt_Laden", true, [this] { Projekt_Laden(*projekt_, SearchOfLibraries()); });
    if (!isWhole) {
        Close();
        return false;
    }
    projekt_->OnReplaced([this] { ForgetObjects(); });
    NoteCostsOfMissingLibraries(*projekt_);
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
    deletions_.Clear();
    CloseProject();
}

// Drops everything that refers to objects.
void Workspace::ForgetObjects() {
    selection_ = {};
    neighbours_ = {};
    code_.Reset();
    calledBy_.Clear();
    calls_.Clear();
    checked_ = {};
    edgesShown_ = {};
    reach_->Forget();
    EndWalk();
    ports_.ends();
}

void Workspace::EdgesGo() {
    reach_->Forget();
    if (ports_.edgesGo)
        ports_.edgesGo();
}

void Workspace::EndGeneration() {
    overviewAsked_ = false;
    current_.reset();
    localsShown_.clear();
    groupShown_ = false;
    navigation_.Clear();
    tree_.Clear();
    collected_.Clear();
    ForgetObjects();
}

std::optional<CallCounts> Workspace::ReadCalls() {
    EdgesGo();
    ports_.run("Remove_All_Calls", false, [this] { Remove_All_Calls(*projekt_); });
    const bool isWhole = ports_.run("Who_Calls_Who", true, [this] { Who_Calls_Who(*projekt_); });
    code_.Forget();
    EndWalk();
    if (isWhole)
        Tote_Untote_Kennzeichnen(*projekt_);
    NoteCostsOfMissingLibraries(*projekt_);
    Tote_Objekte_Markieren(*projekt_, tree_);
    if (!isWhole)
        return {};
    return CountCalls(*projekt_);
}

ProjectView Workspace::View() const {
    return {.arrangement = settings_.Split,
            .selected = current_.value_or(NodeId()),
            .open = NodesWhere(tree_, &BaumNode::Expanded)};
}

void Workspace::ShowOpen(const std::vector<NodeId>& open) {
    std::set<const BaumNode*> stay;
    for (const NodeId& id : open)
        stay.insert(tree_.Find(id));
    for (const NodeId& id : NodesWhere(tree_, &BaumNode::Expanded))
        if (BaumNode* node = tree_.Find(id); !stay.contains(node))
            tree_.SetExpanded(*node, false);
    Expand(open);
}

void Workspace::Expand(const std::vector<NodeId>& nodes) {
    for (const NodeId& id : nodes)
        if (BaumNode* node = tree_.Find(id))
            tree_.SetExpanded(*node, true);
}

void Workspace::OptionsApplied() {
    code_.Forget();
    if (projekt_ && treeHasLocals_ != (settings_.ProcVars != 0))
        RefillTree();
}

void Workspace::FillTree() {
    treeHasLocals_ = settings_.ProcVars != 0;
    ports_.run("ProjektStruktur_Anzeigen", false,
               [this] { ProjektStruktur_Anzeigen(*projekt_, tree_, treeHasLocals_); });
}

std::optional<Workspace::Shown> Workspace::Activate(const NodeId& id) {
    BaumNode* const node = projekt_ && id.kind == NodeKind::Object ? tree_.Item(OwnKeyOf(id.key)) : nullptr;
    if (!node)
        return {};
    const LastCodePaths last = Set_LastObjects(selection_);
    Shown shown = MakeCurrent(*node);
    if (groupShown_ || NeedsDependencies(selection_, last))
        ShowDependencies();
    return shown;
}

Workspace::Shown Workspace::MakeCurrent(BaumNode& node) {
    tree_.EnsureVisible(node);
    tree_.Select(&node);
    overviewAsked_ = false;
    current_ = node.Id();
    EndWalk();
    Set_GlobalObjects_fromNode(*projekt_, selection_, *current_);
    navigation_.AddNavCodeKey(*current_);
    return ShowCurrent();
}

Workspace::Shown Workspace::ShowCurrent() {
    Shown shown;
    shown.code = code_.Show_Structure(*projekt_, selection_);
    MarkLocalsShown(shown.code);
    neighbours_ = Activate_Dependencies(*projekt_, selection_.CurObject);
    if (selection_.CurObject)
        shown.properties = Anzeigen_Eigenschaften(*selection_.CurObject);
    shown.path = CodePath_Anzeigen(selection_);
    if (const BaumNode* node = tree_.Find(*current_))
        shown.image = node->Image();
    else if (selection_.CurObject)
        shown.image = selection_.CurObject->GetImageKey();
    return shown;
}

std::optional<Workspace::Shown> Workspace::ActivateLine(const std::string& modulKey, int line) {
    const clsModul* const modul = projekt_ ? projekt_->GetModuleFromCodePath(modulKey) : nullptr;
    if (!modul || !modul->text)
        return {};
    const CodeRange place = LineAt(modul->text->ModulTextOrg(), line);
    const clsProzedur* const prozedur = Get_ProcNachPos(*modul, place.start);
    std::optional<Shown> shown = Activate(prozedur ? prozedur->CodePath() : modulKey);
    if (!shown && prozedur)
        shown = Activate(modulKey);
    if (shown)
        if (const std::optional<CodeRange> range = code_.Text().Shown(place.start, place.length))
            shown->code.select = range;
    return shown;
}

std::optional<Workspace::Shown> Workspace::ShowAgain() {
    if (!projekt_)
        return {};
    std::optional<Shown> shown;
    if (current_ && ObjectOfNode(*projekt_, *current_)) {
        Set_GlobalObjects_fromNode(*projekt_, selection_, *current_);
        shown = ShowCurrent();
    }
    ShowNeighbours();
    return shown;
}

std::optional<Workspace::Shown> Workspace::LanguageChanged() {
    if (!selection_.CurObject || !LibraryOf(*selection_.CurObject))
        return {};
    code_.Forget();
    return ShowAgain();
}

// Uses of locals are determined when a procedure is shown, so its locals get their marks in the tree only now. The text
// need not be that of the current object: a caller's text comes up too.
void Workspace::MarkLocalsShown(const CodePane::Change& change) {
    if (!change.newText || !code_.Text().localsChecked)
        return;
    for (const clsProzedur* prozedur : code_.Procedures(*projekt_))
        if (localsShown_.insert(prozedur->CodePath()).second)
            MarkLocals(*prozedur);
}

void Workspace::MarkLocals(const clsProzedur& prozedur) {
    if (treeHasLocals_)
        Tote_Objekte_Markieren(prozedur, code_.LookAtLocals(prozedur), tree_);
}

CodeObject* Workspace::ProcedureOrCurrent() const {
    return selection_.CurProc ? static_cast<CodeObject*>(selection_.CurProc) : selection_.CurObject;
}

CallType Workspace::TypeShown(bool isCaller) const {
    return MayBe(!isCaller) ? CallType::MayBe : CallType::Really;
}

void Workspace::SetCheckBoxes(bool shown) {
    checkBoxes_ = shown;
    RenewChecked();
    ShowNeighbours();
}

void Workspace::RenewChecked() {
    checked_ = checkBoxes_ && projekt_ ? CheckedIn(*projekt_, tree_) : CheckedObjects();
    groupShown_ = groupShown_ && !checked_.Empty();
}

std::optional<Workspace::Shown> Workspace::NodeChecked(BaumNode& node) {
    if (!projekt_)
        return {};
    NodeCheck(*projekt_, tree_, node);
    RenewChecked();
    std::optional<Shown> shown;
    // The charts show the checked modules themselves; there the current object stays.
    if (settings_.Content != ContentMode::Chart) {
        if (ObjectOf(node))
            shown = MakeCurrent(node);
        groupShown_ = !checked_.Empty();
    }
    ShowNeighbours();
    return shown;
}

void Workspace::CheckAll(bool checked) {
    if (!projekt_)
        return;
    Check_All_Modules(tree_, checked);
    RenewChecked();
    groupShown_ = !checked_.Empty();
    ShowNeighbours();
}

Text Workspace::FilterText() const {
    return checked_.Empty() ? Text::None : groupShown_ ? Text::OfChecked : Text::CheckedLeftOut;
}

Text Workspace::WhyEmpty(bool calls) const {
    if (!selection_.CurObject && !groupShown_)
        return calls ? Text::EmptyCallsTree : Text::EmptyCalledByTree;
    if (!CallsRead())
        return Text::ReadCallsFirst;
    if (!checked_.Empty())
        return Text::NothingBesidesChecked;
    if (calls)
        return MayBe(true) ? Text::NoPossibleCalls : Text::NoCalls;
    return MayBe(false) ? Text::NoPossibleCallers : Text::NoCallers;
}

void Workspace::SetMayBe(bool calls, bool mayBe) {
    mayBe_[calls ? 1 : 0] = mayBe;
    if (selection_.CurObject)
        ShowDependencies();
}

void Workspace::ShowDependencies() {
    groupShown_ = false;
    ShowNeighbours();
}

void Workspace::ShowNeighbours() {
    if (!projekt_)
        return;
    if (groupShown_) {
        edgesShown_ = Show_Dependencies_Group(*projekt_, checked_, calledBy_, calls_, MayBe(false), MayBe(true));
        return;
    }
    const CodeObject* const current = selection_.CurObject;
    edgesShown_ = {Show_Dependencies_AllCalledBy(*projekt_, checked_, current, calledBy_, MayBe(false)),
                   Show_Dependencies_AllCalls(*projekt_, checked_, current, calls_, MayBe(true))};
}

std::optional<Workspace::Shown> Workspace::ShowWholeModule(bool whole, bool withHeader) {
    code_.ShowWhole(whole, withHeader);
    navigation_.ForgetSelections();
    return ShowAgain();
}

int Workspace::HeaderLines() const {
    return projekt_ ? code_.HeaderLines(*projekt_) : 0;
}

ContentMode Workspace::ContentShown() const {
    const bool isEmpty = !selection_.CurObject && !selection_.CurModule;
    return settings_.Content == ContentMode::Code && (isEmpty || overviewAsked_) ? ContentMode::Overview
                                                                                 : settings_.Content;
}

Workspace::Chart Workspace::ChartOf(ChartType type) const {
    if (!projekt_)
        return {};
    if (NeedsCalls(type) && !CallsRead())
        return {{}, Text::ReadCallsFirst, Text::ReadAllCalls};
    if (checkBoxes_) {
        const std::vector<const clsModul*> checked = CheckedModules(*projekt_, tree_);
        if (checked.empty())
            return {{}, Text::NoModuleChecked, Text::CheckAllModules};
        return {Anzeigen_Chart(*projekt_, type, checked)};
    }
    const std::vector<clsModul*> all = projekt_->ModulesInReportOrder();
    return {Anzeigen_Chart(*projekt_, type, {all.begin(), all.end()})};
}

void Workspace::Collect(std::string_view key) {
    if (BaumNode* node = projekt_ ? Drop_Module(*projekt_, collected_, key) : nullptr)
        collected_.Select(node);
}

std::optional<PropertyRows> Workspace::PropertiesAt(Pos selStart, Pos selLength) const {
    if (!projekt_ || !selection_.CurObject)
        return {};
    PropertyRows rows = Anzeigen_Eigenschaften(*selection_.CurObject);
    for (PropertyRow& row : Anzeigen_TextPos(code_.Text(), selStart, selLength))
        rows.push_back(std::move(row));
    return rows;
}

const CodeObject* Workspace::ObjectOf(const BaumNode& node) const {
    return projekt_ && node.Kind() == NodeKind::Object ? ObjectOfNode(*projekt_, node.Id()) : nullptr;
}

std::vector<std::string> Workspace::HoverText(const BaumNode& node) const {
    const CodeObject* const object = ObjectOf(node);
    return object ? HoverText(*object) : std::vector<std::string>();
}

std::vector<std::string> Workspace::HoverText(const CodeObject& object) const {
    std::vector<std::string> lines = ObjectText(*projekt_, code_.Locals(), object);
    if (const Reasons* const reasons = Reach::Covers(object) ? TheReasons() : nullptr)
        if (std::string sentence = WhySentence(*reasons, object); !sentence.empty())
            lines.push_back(std::move(sentence));
    return lines;
}

std::vector<std::string> Workspace::DependencyHoverText(const BaumNode& node, bool isCaller) const {
    std::vector<std::string> lines = HoverText(node);
    const CodeObject* const object = ObjectOf(node);
    const CodeObject* const own = object ? OwnerOfNeighbour(node, *object, isCaller) : nullptr;
    if (own) {
        const CallType type = TypeShown(isCaller);
        std::string calls = isCaller ? CallsText(*object, *own, type) : CallsText(*own, *object, type);
        if (!calls.empty())
            lines.push_back(std::move(calls));
    }
    return lines;
}

std::string Workspace::SpokenText(const BaumNode& node) const {
    const CodeObject* const object = ObjectOf(node);
    return object ? SpokenText(*object) : std::string();
}

std::string Workspace::SpokenText(const CodeObject& object) const {
    return SpokenAbout(*projekt_, code_.Locals(), object);
}

std::vector<std::string> Workspace::CodeHoverText(Pos position) const {
    const CodeObject* const object = projekt_ ? code_.ObjectAt(*projekt_, position) : nullptr;
    return object ? HoverText(*object) : std::vector<std::string>();
}

Situation Workspace::Now(bool hasPlaces) const {
    if (!projekt_)
        return {};
    return {.hasProject = true,
            .hasObject = selection_.CurObject != nullptr,
            .hasModule = selection_.CurModule && !selection_.CurModule->myLibrary,
            .canDelete = selection_.CurObject && CanBeDeleted(*selection_.CurObject),
            .hasDeleted = !deletions_.All().empty(),
            .hasUnsaved = deletions_.HasUnsaved(),
            .hasReach = HasReach(),
            .callsRead = CallsRead(),
            .neighbours = neighbours_,
            .hasPlaces = hasPlaces,
            .hasPrevious = navigation_.NavPrevEnabled() || overviewAsked_,
            .hasNext = navigation_.NavNextEnabled()};
}
