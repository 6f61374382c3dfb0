// The part of the workspace that reads again what has changed on disk, and keeps what is shown.
#include <algorithm>
#include <functional>
#include <unordered_set>

#include "calls/driver.h"
#include "display/baum_walk.h"
#include "display/node_objects.h"
#include "display/project_tree.h"
#include "display/tree_marks.h"
#include "display/workspace.h"
#include "findings/dead_objects.h"
#include "findings/library_use.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "platform/files.h"
#include "project/project_file.h"
#include "project/refresh.h"
#include "shell/errors.h"

namespace {

std::vector<const clsModul*> AllOf(const clsProjekt& projekt) {
    std::vector<const clsModul*> modules;
    for (const auto& modul : projekt.OwnedModules())
        modules.push_back(modul.get());
    return modules;
}

// The tree is open as it was, also where it opens by itself. What is unfolded in place is added again.
void OpenAgain(Baum& tree, const Workspace::ShownPlace::Neighbours& place,
               const std::function<void(BaumNode&)>& unfold) {
    for (const NodeId& id : NodesWhere(tree, &BaumNode::Expanded))
        if (std::ranges::find(place.open, id) == place.open.end())
            tree.SetExpanded(*tree.Find(id), false);
    for (const NodeId& id : place.open)
        if (BaumNode* const node = tree.Find(id)) {
            if (node->Unfolds() && !node->Child())
                unfold(*node);
            tree.SetExpanded(*node, true);
        }
    if (BaumNode* const node = tree.Find(place.selected))
        tree.Select(node);
}

}  // namespace

Workspace::Refreshed Workspace::Refresh() {
    using enum Refreshed::Outcome;
    ChangedFiles changed = Files_Check(*projekt_);
    if (MayReadAgain(changed))
        changed = Files_Check(*projekt_);
    if (changed.whyNoProject != Text::None)
        return {.outcome = NoProject, .whyNoProject = changed.whyNoProject};
    if (changed.files.empty())
        return {};
    if (!changed.Has(FileChange::Changed) && !changed.Has(FileChange::Gone))
        return {.outcome = BeingWritten};
    const bool readsProject = changed.project && changed.files.front().what == FileChange::Changed;
    const std::string projectText = readsProject ? files_.ReadText(projekt_->FullPath).text : std::string();
    const bool isWhole = readsProject && NeedsWholeLoad(*projekt_, projectText);
    const GenerationRecord before(*projekt_, isWhole ? AllOf(*projekt_) : ModulesToRead(*projekt_, projectText));
    const int generation = projekt_->Generation();
    FilesRead read;
    if (isWhole) {
        read.project = ChangesOfProjectFile(*projekt_, projectText);
        if (!LoadAgain())
            return {.outcome = Cancelled};
        read.files = static_cast<int>(changed.files.size());
        for (const clsModul* modul : AllOf(*projekt_))
            read.unreadable += modul->fileError != FileError::None;
    } else {
        EdgesGo();
        const bool isDone =
            ports_.run("ChangedModule_Regenerieren", false, [&] { read = ChangedModule_Regenerieren(*projekt_); });
        deletions_.ModulesRead(*projekt_);
        if (!isDone) {
            RefillTree();
            return {.outcome = Cancelled};
        }
    }
    Refreshed refreshed{.outcome = Done, .files = read.files, .unreadable = read.unreadable};
    if (!isWhole && projekt_->Generation() == generation) {
        refreshed.outcome = read.unreadable > 0 && read.unreadable == read.files ? NothingRead : Done;
    } else {
        if (!projekt_->callsKnown)
            Tote_Untote_Kennzeichnen(*projekt_);  // the marks of a project just opened
        NoteCostsOfMissingLibraries(*projekt_);
        if (!isWhole && CanRefillModules(before))
            RefillModules(before);
        else
            RefillTree();
    }
    refreshed.changes = before.ChangesTo(*projekt_, read);
    return refreshed;
}

// Loads the project as if it were opened, while what is shown stays. False after a cancel, which changes nothing.
bool Workspace::LoadAgain() {
    auto loaded = std::make_unique<clsProjekt>(files_, ActiveCodePage());
    loaded->FullPath = projekt_->FullPath;
    loaded->CondComps_Win32_Win16(settings_.Win32 == 1);
    ProblemList* const before = SetProblems(&loaded->problems);
    if (!ports_.run("Projekt_Laden", true, [&] { Projekt_Laden(*loaded, SearchOfLibraries()); })) {
        SetProblems(before);
        return false;
    }
    EdgesGo();
    deletions_.ModulesRead(*loaded);
    const bool callsRead = CallsRead();
    projekt_.swap(loaded);
    ForgetObjects();
    loaded.reset();
    projekt_->OnReplaced([this] { ForgetObjects(); });
    if (callsRead)
        ports_.run("Who_Calls_Who", false, [this] { Who_Calls_Who(*projekt_); });
    if (projekt_->callsKnown)
        Tote_Untote_Kennzeichnen(*projekt_);
    return true;
}

Workspace::Place Workspace::Here() const {
    return {tree_.Selected() ? tree_.Selected()->Id() : NodeId(), NodesWhere(tree_, &BaumNode::Expanded),
            NodesWhere(tree_, &BaumNode::Checked)};
}

void Workspace::MarkLocalsAgain() {
    for (const std::string& path : localsShown_)
        if (const CodeObject* object = ObjectOfNode(*projekt_, path);
            object && object->Class() == ObjectClass::Prozedur)
            MarkLocals(static_cast<const clsProzedur&>(*object));
}

void Workspace::RefillTree() {
    RefillTree([this] {
        tree_.Clear();
        FillTree();
        Tote_Objekte_Markieren(*projekt_, tree_);
    });
}

void Workspace::RefillTree(const std::function<void()>& fill) {
    const Place place = Here();
    {
        const Baum::Filling filling(tree_);
        fill();
        MarkLocalsAgain();
        for (const NodeId& id : place.checked)
            if (BaumNode* node = tree_.Find(id))
                tree_.SetChecked(*node, true);
    }
    RenewChecked();
    Expand(place.expanded);
    BaumNode* selected = tree_.Find(place.selected);
    // A local may have no node any more; its procedure has.
    if (!selected && ObjectOfNode(*projekt_, place.selected))
        selected = tree_.Item(std::string_view(place.selected.key).substr(0, place.selected.key.rfind('.')));
    if (selected)
        tree_.Select(selected);
}

// Whether the tree differs in what is below modules alone: each that was read again has the node that it had, and no
// other module shares it.
bool Workspace::CanRefillModules(const GenerationRecord& before) const {
    std::unordered_set<std::string> paths;
    std::size_t again = 0;
    for (const clsModul* modul : projekt_->AllModules()) {
        const std::string path = modul->CodePath();
        if (!paths.insert(path).second)
            return false;
        if (before.Has(*modul))
            continue;
        const BaumNode* const node = tree_.Item(path);
        if (!node || !node->Parent() || node->Parent()->Key() != std::string(TextOf(modul->ModulTyp)) + "[]")
            return false;
        ++again;
    }
    return again == before.ChangingPaths().size() &&
           std::ranges::all_of(before.ChangingPaths(), [&](const std::string& path) { return paths.contains(path); });
}

void Workspace::RefillModules(const GenerationRecord& before) {
    RefillTree([&] {
        for (const clsModul* modul : projekt_->AllModules())
            if (!before.Has(*modul)) {
                tree_.Remove(*tree_.Item(modul->CodePath()));
                ModulStruktur_Anzeigen(*modul, tree_, treeHasLocals_);
                Tote_Objekte_Markieren(*projekt_, *modul, tree_);
            }
        for (const GenerationRecord::Marked& marked : before.MarkedOtherwise(*projekt_))
            Totes_Objekt_Markieren(*projekt_, *marked.object, tree_);
    });
}

Workspace::ShownPlace Workspace::WhereShown() const {
    ShownPlace place;
    const std::string called = selection_.CalledObject ? NodeKeyOf(*selection_.CalledObject) : std::string();
    for (const bool isCaller : {false, true}) {
        const Baum& tree = isCaller ? calledBy_ : calls_;
        ShownPlace::Neighbours& neighbours = isCaller ? place.calledBy : place.calls;
        neighbours.open = NodesWhere(tree, &BaumNode::Expanded);
        if (const BaumNode* const node = tree.Selected()) {
            neighbours.selected = node->Id();
            if (!called.empty() && OwnKeyOf(node->Key()) == called)
                place.ofCaller = isCaller;
        }
    }
    place.walksReferences = WalksReferences();
    place.walkAt = walk_.At();
    return place;
}

std::optional<CodePane::Change> Workspace::ComeBackTo(const ShownPlace& place) {
    for (const bool isCaller : {false, true})
        OpenAgain(isCaller ? calledBy_ : calls_, isCaller ? place.calledBy : place.calls,
                  [this, isCaller](BaumNode& node) { UnfoldNeighbour(node, isCaller); });
    std::optional<CodePane::Change> change;
    if (place.walksReferences) {
        WalkReferences();
    } else if (place.ofCaller) {
        const Baum& tree = *place.ofCaller ? calledBy_ : calls_;
        if (const BaumNode* const node = tree.Selected())
            change = SelectCallsOfObject(*node, *place.ofCaller);
    }
    if (walk_.Count() > 0)
        change = WalkTo(std::clamp(place.walkAt, 0, walk_.Count() - 1));
    return change;
}
