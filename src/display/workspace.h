// The state of the window, without a widget: the open project, its trees, the current objects, the code shown, and the
// places for back and forward. The window passes on user actions and shows the answers.
//
// Everything that refers to objects of the project is kept here, for one generation. Views keep only keys of nodes and
// texts; the port `ends` is called before the objects of a generation become invalid.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "display/baum.h"
#include "display/call_places.h"
#include "display/chart_table.h"
#include "display/command_table.h"
#include "display/deletion_plan.h"
#include "display/project_view.h"
#include "display/refresh_changes.h"
#include "display/selection.h"
#include "display/tree_checks.h"
#include "display/why_text.h"
#include "findings/object_counts.h"
#include "project/deletions.h"
#include "shell/settings.h"
#include "shell/text_numbers.h"

class Files;
class LibrarySearch;
class ProjectReach;
class clsProjekt;
struct ChangedFiles;

class Workspace {
public:
    /// Runs a long operation under its name by RunOperation; returns false if it was cancelled.
    using Runner = std::function<bool(const std::string& name, bool canCancel, const std::function<void()>& operation)>;
    struct Ports {
        Runner run;
        std::function<void()> ends;  // called when a generation ends: nothing of it may stay on the screen
        // Called before the edges go: until the operation is over, nothing may look at them.
        std::function<void()> edgesGo = {};
        std::string settingsFile = {};  // path; beside it is what users declare about objects
        // Asks whether these files may be read again although what was deleted in them is not saved; null says no.
        std::function<bool(const std::vector<std::string>& paths)> askReadAgain = {};
    };
    /// `projekt` holds the open project, null without one. All references must outlive the workspace.
    Workspace(std::unique_ptr<clsProjekt>& projekt, Files& files, const Settings& settings, Ports ports);
    ~Workspace();

    [[nodiscard]] clsProjekt* Projekt() const { return projekt_.get(); }
    [[nodiscard]] bool CallsRead() const;

    /// Closes the open project and opens the project file at `path`, which is one (WhyNoProject).
    /// @param codePage  in which it is read; empty for that of the settings
    /// @return false if the user cancelled: no project is open then
    [[nodiscard]] bool Open(const std::string& path, const std::string& codePage = {});
    void Close();

    /// Reads all calls. Nothing if the user cancelled: the calls found so far stay, but nothing counts as dead.
    std::optional<CallCounts> ReadCalls();

    struct Refreshed {
        enum class Outcome : std::uint8_t {
            NothingChanged,
            Done,
            NothingRead,   // files have changed, but none of them can be read
            BeingWritten,  // files are being written, and nothing else has changed
            NoProject,     // the project file cannot be read any more; everything stays as it is
            Cancelled,
        };
        Outcome outcome = Outcome::NothingChanged;
        int files = 0;                   // that have changed
        int unreadable = 0;              // of them
        Text whyNoProject = Text::None;  // with NoProject
        RefreshChanges changes = {};
    };
    /// Reads the modules again whose files have changed, or the whole project if other libraries are listed; keeps the
    /// selection, folds, check marks, and the places for back and forward.
    Refreshed Refresh();

    /// What is shown beside the project tree and the current object, by keys that outlive a generation.
    struct ShownPlace {
        struct Neighbours {
            std::vector<NodeId> open;
            NodeId selected;
        };
        Neighbours calledBy, calls;
        std::optional<bool> ofCaller;  // the code is that around the selected neighbour: of a caller, or of a callee
        bool walksReferences = false;
        int walkAt = 0;
    };
    [[nodiscard]] ShownPlace WhereShown() const;
    /// To be called after ShowAgain. Returns what changes in the code.
    std::optional<CodePane::Change> ComeBackTo(const ShownPlace& place);

    /// How the project is shown, to come back to it; the zoom is up to the window.
    [[nodiscard]] ProjectView View() const;
    /// Opens these nodes of the project tree and closes all others. Those that do not exist any more are skipped.
    void ShowOpen(const std::vector<NodeId>& open);

    /// Adapts the project tree to the settings; keeps folds, check marks and the selected node.
    void OptionsApplied();

    // User actions. Each returns what changes on the screen, except in the trees, which notify their own views.
    struct Shown {
        CodePane::Change code;
        std::optional<PropertyRows> properties;  // nothing: unchanged
        std::string path;                        // for the line above the code; bytes as in the source
        std::string_view image;                  // of the current node
    };
    /// Makes the object of a node of the project tree the current one. Nothing without such a node.
    std::optional<Shown> Activate(const NodeId& id);
    /// Makes the object of a module that is at a line of its file the current one, and selects the line. Nothing if
    /// the module has no node of this key.
    std::optional<Shown> ActivateLine(const std::string& modulKey, int line);
    /// Shows the current object again, and what the dependency trees showed. Nothing if there is none.
    std::optional<Shown> ShowAgain();
    /// The texts are in another language: writes the page of a library again, if that is shown.
    std::optional<Shown> LanguageChanged();
    /// A node of a dependency tree was clicked: the places of its calls, in the caller's text. Those of a module can
    /// lie in several texts; the walk then leads over them.
    std::optional<CodePane::Change> SelectCallsOfObject(const BaumNode& node, bool isCaller);
    /// The key of the object that a click into the code leads to; empty for none. Notes the selection as that of the
    /// current place.
    [[nodiscard]] std::string KeyClicked(Pos selStart, Pos selLength);
    /// Whether there is such an object with a node.
    [[nodiscard]] bool LeadsOn(Pos selStart, Pos selLength) const;
    /// Whether the name at a place of the code leads there.
    [[nodiscard]] bool NameLeadsOn(Pos position) const;

    // References: all places that call or use the current object.
    /// Nothing while it is not known.
    [[nodiscard]] std::optional<int> ReferenceCount();
    [[nodiscard]] std::vector<ReferenceRow> References();
    /// Why there are none, or none are shown.
    [[nodiscard]] Text WhyNoReferences() const;
    /// Begins the walk over them.
    void WalkReferences();
    [[nodiscard]] bool WalksReferences() const { return walkOf_ == WalkOf::References; }
    // The walk over places that may lie in several texts. Nothing without such a place.
    [[nodiscard]] const PlaceWalk& Walk() const { return walk_; }
    std::optional<CodePane::Change> WalkTo(int at);
    std::optional<CodePane::Change> StepOn(int by);
    /// The same from another place of the walk, which is not shown.
    std::optional<CodePane::Change> StepFrom(int at, int by);
    void EndWalk();

    // Reach: why the current object is alive or dead. Made when it is first needed.
    /// Whether there is an answer for the current object.
    [[nodiscard]] bool HasReach() const;
    /// No rows without an answer; its places are those of WalkWhy.
    /// @param whole  sections that are not cut
    [[nodiscard]] WhyRows Why(const std::set<WhySection>& whole) const;
    [[nodiscard]] Text WhyNoReason() const;
    /// Begins the walk over the places of the page.
    void WalkWhy(const WhyRows& page);
    [[nodiscard]] bool WalksWhy() const { return walkOf_ == WalkOf::Why; }
    /// Null while calls are not known.
    [[nodiscard]] const Reasons* TheReasons() const;
    [[nodiscard]] ProjectReach& TheReach() const { return *reach_; }

    // Check boxes. The objects whose boxes are on form a group, whose neighbours the dependency trees show; they are
    // left out as neighbours of other objects. While the boxes are hidden there is no group.
    void SetCheckBoxes(bool shown);
    /// The user has set or cleared a check mark. The object of the node becomes the current one, unless the charts are
    /// showing.
    std::optional<Shown> NodeChecked(BaumNode& node);
    void CheckAll(bool checked);
    [[nodiscard]] std::size_t CheckedCount() const { return checked_.Objects().size(); }
    /// What the check boxes do to the dependency trees, as a text with the number of objects; None while they do
    /// nothing.
    [[nodiscard]] Text FilterText() const;
    /// Why a dependency tree is empty, if it is.
    [[nodiscard]] Text WhyEmpty(bool calls) const;

    /// Adds what calls a neighbour, or what it calls, below its node in a dependency tree.
    void UnfoldNeighbour(BaumNode& node, bool isCaller);
    /// Calls and uses that a dependency tree stands for, counted as those of the project; nothing while they are not
    /// known.
    [[nodiscard]] std::optional<int> EdgesShown(bool calls) const;
    /// Chooses between certain and possible calls of one tree.
    void SetMayBe(bool calls, bool mayBe);
    /// Fills the dependency trees for the current object.
    void ShowDependencies();
    /// Shows the whole module of the current object in place of its own code, or with it the header of the file.
    std::optional<Shown> ShowWholeModule(bool whole, bool withHeader);
    /// How many lines the header of the module shown has; 0 if it has none or a part of the module is shown.
    [[nodiscard]] int HeaderLines() const;
    /// What the content area shows: the overview in place of the code while nothing is selected, or until the next
    /// object is chosen.
    [[nodiscard]] ContentMode ContentShown() const;
    void ShowOverview(bool shown) { overviewAsked_ = shown; }
    /// What the chart shows: that of the checked modules, or while the boxes are hidden of all.
    struct Chart {
        ChartTable table;
        Text hint = Text::None;    // in place of a table
        Text button = Text::None;  // of the command that helps
    };
    [[nodiscard]] Chart ChartOf(ChartType type) const;
    /// Puts the module of a node among the collected ones.
    void Collect(std::string_view key);

    // Deletions.
    /// What deleting the object of a node would take; for a module, its variables and procedures.
    [[nodiscard]] std::vector<DeletionRow> RowsToDelete(const std::string& key);
    /// The dead objects among the checked ones, or without any below the selected node.
    [[nodiscard]] std::vector<DeletionRow> DeadRows() const;
    /// Deletes them; what else is shown stays.
    Deletions::Deleted Delete(const std::vector<DeletionRow>& rows);
    /// Brings deleted objects back; false if there is nothing to bring.
    bool UndoDeletions(const std::vector<int>& numbers);
    /// Shows the place in its module where a deleted object stood.
    std::optional<Shown> ShowDeleted(int nr);
    std::vector<Deletions::Saved> SaveModules() { return deletions_.Save(*projekt_); }
    [[nodiscard]] const Deletions& Deleted() const { return deletions_; }

    [[nodiscard]] NavigationList& Navigation() { return navigation_; }
    /// Properties of the current object, with the place of the cursor in the code after them.
    [[nodiscard]] std::optional<PropertyRows> PropertiesAt(Pos selStart, Pos selLength) const;

    // Hover texts, in UTF-8; empty for nothing.
    [[nodiscard]] std::vector<std::string> HoverText(const BaumNode& node) const;
    [[nodiscard]] std::vector<std::string> HoverText(const CodeObject& object) const;
    /// The last line is the number of calls that the node represents.
    [[nodiscard]] std::vector<std::string> DependencyHoverText(const BaumNode& node, bool isCaller) const;
    /// For screen readers, after the text of the node.
    [[nodiscard]] std::string SpokenText(const BaumNode& node) const;
    [[nodiscard]] std::string SpokenText(const CodeObject& object) const;
    [[nodiscard]] std::vector<std::string> CodeHoverText(Pos position) const;

    /// @param hasPlaces  whether places are marked in the code
    [[nodiscard]] Situation Now(bool hasPlaces) const;

    [[nodiscard]] Baum& Tree() { return tree_; }
    [[nodiscard]] Baum& CalledBy() { return calledBy_; }
    [[nodiscard]] Baum& Calls() { return calls_; }
    [[nodiscard]] Baum& Collected() { return collected_; }
    [[nodiscard]] const Selection& Current() const { return selection_; }
    [[nodiscard]] const CodePane& Code() const { return code_; }
    [[nodiscard]] bool MayBe(bool calls) const { return mayBe_[calls ? 1 : 0]; }

private:
    // What the user sees of the tree, to restore it after the tree was filled again.
    struct Place {
        NodeId selected;
        std::vector<NodeId> expanded, checked;
    };
    [[nodiscard]] Place Here() const;
    [[nodiscard]] LibrarySearch* SearchOfLibraries();
    void EndGeneration();
    void ForgetObjects();
    void EdgesGo();
    void FillTree();
    void RefillTree();
    void RefillTree(const std::function<void()>& fill);
    [[nodiscard]] bool CanRefillModules(const GenerationRecord& before) const;
    void RefillModules(const GenerationRecord& before);
    void MarkLocalsAgain();
    void Exchange(const std::string& name, const std::function<void()>& change);
    bool MayReadAgain(const ChangedFiles& changed);
    std::optional<Shown> ShowInModule(const clsModul& modul, Pos pos);
    void Expand(const std::vector<NodeId>& nodes);
    bool LoadAgain();
    [[nodiscard]] CodeObject* ProcedureOrCurrent() const;
    [[nodiscard]] const CodeObject* OwnerOfNeighbour(const BaumNode& node, const CodeObject& neighbour,
                                                     bool isCaller) const;
    [[nodiscard]] std::vector<CallPlace> FindReferences();
    [[nodiscard]] CallType TypeShown(bool isCaller) const;
    [[nodiscard]] const CodeObject* ObjectOf(const BaumNode& node) const;
    [[nodiscard]] Shown MakeCurrent(BaumNode& node);
    [[nodiscard]] Shown ShowCurrent();
    void MarkLocalsShown(const CodePane::Change& change);
    void MarkLocals(const clsProzedur& prozedur);
    void RenewChecked();
    void ShowNeighbours();

    std::unique_ptr<clsProjekt>& projekt_;
    Files& files_;
    const Settings& settings_;
    Ports ports_;
    std::unique_ptr<LibrarySearch> search_;  // stays from project to project, with the registry that it has read

    Deletions deletions_;
    Baum tree_, calledBy_, calls_, collected_;
    Selection selection_;
    CodePane code_;
    NavigationList navigation_;
    PlaceWalk walk_;
    enum class WalkOf : std::uint8_t { Neighbour, References, Why } walkOf_ = WalkOf::Neighbour;
    std::unique_ptr<ProjectReach> reach_;
    EdgeCounts edgesShown_;
    std::optional<NodeId> current_;      // of the current object; survives a generation
    std::set<std::string> localsShown_;  // paths of the procedures whose locals have their marks
    CheckedObjects checked_;             // empty while the boxes are hidden
    DependencyButtons neighbours_;       // of the current object
    std::array<bool, 2> mayBe_{};        // of the trees of callers and of calls
    bool treeHasLocals_ = false;
    bool checkBoxes_ = false;
    bool groupShown_ = false;  // the dependency trees are about the checked objects
    bool overviewAsked_ = false;
};
