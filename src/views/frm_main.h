// The main window: builds the panes around a Workspace and wires them. User actions go to the workspace, its answers go
// to the panes. The views do not know each other.
#pragma once

#include <QMainWindow>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "display/overview_lists.h"
#include "display/workspace.h"
#include "shell/settings.h"

class BaumView;
class ChartContent;
class CodeContent;
class CodeView;
class Commands;
class DeletedList;
class ContentStack;
class DependencyPane;
class Files;
class GraphWiring;
class LowerPane;
class MainMenus;
class MainPanes;
class MainToolbar;
class MissingFileQuestion;
class OverviewPane;
class PathLine;
class ProblemsList;
class ProjectPane;
class QStackedWidget;
class RefreshNotice;
class SettingsFile;
class StartPage;
class StatusLine;
class WhyWiring;
class frmAbout;
class frmError;
class frmKeys;
class frmOptionen;
class frmProgress;

class frmMain final : public QMainWindow {
    Q_OBJECT

public:
    /// `files` and `file` must outlive the window. The program-wide state must have been started.
    /// @param programDirectory  where the language files lie; ends with its separator
    frmMain(Files& files, SettingsFile& file, Settings settings, std::string programDirectory);
    ~frmMain() override;

    /// A command by its number; without a project only 0 and 1 do anything.
    void MainActions(int nr);
    /// Asks for a project file and opens it.
    void Projekt_Oeffnen();
    /// Closes the open project and opens the project file at `path`.
    void OpenProject(const std::string& path);
    /// Opens what is named on the command line or dropped on the window: a project, or a diagram of the open one.
    void OpenFile(const std::string& path);
    /// Back to the empty window.
    void CloseTheProject();
    /// Reads the calls of the whole project, after a question.
    void Projekt_Analyse();
    /// Adapts menus and toolbars to the state.
    void Activate_Commands();

    /// Makes the object of a node the current one and shows it in every pane.
    bool ActivateKey(const NodeId& node);
    /// Carries out a command of the context menus of objects; without a key mostly for the current object.
    void RunOn(Command command, const std::string& key);
    /// The same for what is at a line of a module, which is selected in the code.
    void ActivateLine(const std::string& modulKey, int line);

    /// Deletes the selected object from the text of its module, after a question.
    void DeleteNode();

    void Split_For_Content() { Arrange(SplitMode::Content); }
    void Split_For_Calls() { Arrange(SplitMode::Calls); }

    /// Sets the texts of the language on every control.
    void frmMainTexte();

    [[nodiscard]] Workspace& TheWorkspace() { return workspace_; }
    [[nodiscard]] Settings& TheSettings() { return settings_; }
    [[nodiscard]] Commands& TheCommands() const { return *commands_; }
    /// What decides which commands are enabled.
    [[nodiscard]] Situation Now() const;
    /// Key of the object that the place with the focus leads to, also while a menu has the focus; empty for none.
    [[nodiscard]] std::string KeyInFocus();
    [[nodiscard]] CodeView& rtbCode() const;
    [[nodiscard]] BaumView& BaumProjekt() const;

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    /// The windows that open above this one.
    struct Dialogs {
        frmProgress* progress;
        frmError* error;
        frmAbout* about;
        frmKeys* keys;
        frmOptionen* options;
        ProblemsList* problems;
        DeletedList* deleted;
        std::unique_ptr<MissingFileQuestion> missingFiles;
    };

    // frm_main.cpp
    void BuildPanes();
    void WireTrees();
    void WireCode();
    void WireOverview();
    void WireGraph();
    void WireWhy();
    void WireDialogs();
    void ConnectPorts();
    void Arrange(SplitMode mode);
    void Restore();
    [[nodiscard]] bool MayClose();
    [[nodiscard]] bool MayLeave();
    void ApplyFonts();
    void ShowStartPage();

    // frm_main_projects.cpp
    void ShowTitle();
    void ShowAsLeft(const ProjectView& view);
    void LeaveProject();

    // frm_main_commands.cpp
    void WireCommands();
    void Wire(Command command, std::function<void(bool)> function);
    void ShowProblems();
    void ShowProjectCounts();
    void WriteReports(const std::string& operation);
    QString RunCalls();
    void Diagnosis();
    void ShowKeys();
    void NameCommands();
    void Activate_Checked();
    void OptionsApplied();
    [[nodiscard]] BaumView& TreeInUse() const;

    // frm_main_places.cpp
    void WireWays();
    void GoTo(const std::string& key);
    void FindCallersOf(const std::string& key);
    void RenewReferences();
    void StepPlace(int by);
    void ShowReference(int row, bool stays);
    void ShowWalk(const std::optional<CodePane::Change>& change);

    // frm_main_selection.cpp
    void GenerationEnds();
    void ShowAgain();
    void Show(const Workspace::Shown& shown);
    void ShowCode(const CodePane::Change& change);
    void SelectCallsOfObject(const std::string& key, bool isCaller);
    void GoBackOrOn(bool back);
    void SetMayBe(bool calls, bool mayBe);
    void ShowMayBe(bool calls);
    void ToggleCheckBoxes(bool on);
    void CheckAll(bool checked);
    void ShowAboutNeighbours();
    void ShowNow();
    void ShowContent();
    void ShowOverview(bool shown);
    void ShowWholeModule(bool whole, bool withHeader);

    // frm_main_refresh.cpp
    void BuildRefresh();
    [[nodiscard]] std::vector<ListedObject> RowsOf(OverviewList list) const;
    Workspace::Refreshed RefreshFiles(bool isAsked);
    void TellRefreshed(const Workspace::Refreshed& refreshed, bool isAsked);

    // frm_main_deletion.cpp
    void WireDeletions();
    void DeleteObject(const std::string& key);
    void DeleteDead();
    bool Delete(const std::vector<DeletionRow>& rows);
    void UndoDeletions(const std::vector<int>& numbers);
    void ModulesChanged();
    bool SaveModules();
    [[nodiscard]] bool MayReadAgain(const std::vector<std::string>& paths);
    [[nodiscard]] bool MayLeaveDeletions();

    // frm_main_chart.cpp
    void WireChart();
    void ShowChart();
    void FillChart();

    Files& files_;
    SettingsFile& file_;
    Settings settings_;
    Commands* commands_;
    Dialogs dialogs_;
    Workspace workspace_;
    bool activating_ = false;

    MainMenus* menus_;
    MainToolbar* toolbar_;
    StatusLine* status_;
    QStackedWidget* pages_ = nullptr;
    StartPage* start_ = nullptr;
    MainPanes* panes_ = nullptr;
    ProjectPane* project_ = nullptr;
    DependencyPane* calledByPane_ = nullptr;
    DependencyPane* callsPane_ = nullptr;
    ContentStack* content_ = nullptr;
    CodeContent* code_ = nullptr;  // in it
    OverviewPane* overview_ = nullptr;
    ChartContent* chart_ = nullptr;
    GraphWiring* graph_ = nullptr;
    RefreshNotice* refresh_ = nullptr;
    PathLine* rtbCodePath_ = nullptr;
    LowerPane* lower_ = nullptr;
    WhyWiring* why_ = nullptr;
};
