// The main window: one selected node of the project tree decides what all panes show, and every command ends here.
//
// The views know nothing of each other; they tell what the user did, and WireViews says what follows. What is shown is
// computed in display/.
#pragma once

#include <QMainWindow>
#include <memory>
#include <string>

#include "display/baum.h"
#include "display/command_table.h"
#include "display/selection.h"
#include "shell/settings.h"

class BaumView;
class CodeView;
class Commands;
class ElidedLabel;
class DependencyPane;
class Files;
class LowerPane;
class MainPanes;
class MissingFileQuestion;
class PathLine;
class ProblemsList;
class ProjectPane;
class PropertiesGrid;
class QMenu;
class QStackedWidget;
class QToolBar;
class QToolButton;
class SettingsFile;
class StartPage;
class StatusFields;
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
    /// Opens the project file at `path`; the one that is open goes first.
    void OpenProject(const std::string& path);
    /// Back to the empty window.
    void CloseTheProject();
    /// Reads the calls of the whole project, after a question.
    void Projekt_Analyse();
    /// Fits menus and toolbars to the state.
    void Activate_Commands();

    /// The centre of it all: makes the object of a node the current one and shows it in every pane.
    void Activate_BaumProjekt_Node(BaumNode* node);
    /// The same for the node under `key`, if there is one.
    bool ActivateKey(std::string_view key);
    void NavCodeKey_Prev();
    void NavCodeKey_Next();

    void Split_For_Content();
    void Split_For_Calls();

    /// Puts the texts of the language on every control.
    void frmMainTexte();

    [[nodiscard]] Commands& TheCommands() const { return *commands_; }
    [[nodiscard]] frmProgress& TheProgress() const { return *progress_; }
    [[nodiscard]] CodeView& rtbCode() const { return *rtbCode_; }
    [[nodiscard]] BaumView& BaumProjekt() const;
    [[nodiscard]] Baum& Tree() { return tree_; }
    [[nodiscard]] Baum& CallsTree() { return calls_; }
    [[nodiscard]] Baum& CalledByTree() { return calledBy_; }
    [[nodiscard]] Settings& TheSettings() { return settings_; }
    [[nodiscard]] const Selection& Current() const { return selection_; }

    // Whether the trees show possible calls.
    bool MayBeCalledBy = false;
    bool MayBeCalls = false;

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // frm_main.cpp
    void BuildPanes();
    void BuildMenus();
    void BuildToolbar();
    void BuildStatusBar();
    void WireViews();
    void WireCommands();
    void ConnectPorts();
    void SizeSaveRead();
    void SizeSaveWrite();
    void ShowArrangement();
    void ApplyFonts();
    void ShowStartPage();
    void OptionsApplied();
    void AssignMenuMnemonics();
    void FillRecentMenu();
    void FitToolbar();
    void FitMessage();
    void ShowKeys();
    [[nodiscard]] BaumView& TreeInUse() const;

    // frm_main_project.cpp
    void LoadProject();
    void ShowLoadedProject();
    void EmptyViews();
    void Files_Check();
    void WriteReports(const std::string& operation);
    void RunCalls();
    void ShowCounts();
    void ShowProblemCount();
    void Message(const QString& text);
    void Diagnosis();
    void RefillTree();
    void FillTree();
    void Activate_Checked();
    [[nodiscard]] Situation Now() const;

    // frm_main_selection.cpp
    void BaumProjekt_NodeClick(const std::string& key);
    void BaumProjekt_NodeChecked(const std::string& key, bool checked);
    void ShowCode(const CodePane::Change& change);
    void Activate_Dependencies_ColorPoints();
    void Show_Dependencies();
    void Show_Dependencies_Group();
    void SelectCallsOfObject(const std::string& key, bool isCaller);
    void DependencyContext(const std::string& key);
    void CodeClicked(int selStart, int selLength);
    void ShowProperties(bool withPosition);
    void Collect(const std::string& key);
    void ShowNavigation();
    void SetMayBe(bool calls, bool mayBe);
    void ToggleCheckBoxes(bool on);
    void Check_All(bool checked);
    void ShowRecord(const NavigationList::Record& record);
    [[nodiscard]] QString HoverText(const std::string& key) const;
    [[nodiscard]] QString DependencyHoverText(const std::string& key, bool isCaller) const;
    [[nodiscard]] QString CodeHoverText(Pos position) const;

    Files& files_;
    SettingsFile& file_;
    Settings settings_;
    std::string programDirectory_;

    Baum tree_, calledBy_, calls_, dll_;
    Selection selection_;
    LastCodePaths last_;
    CodePane code_;
    NavigationList navigation_;
    bool activating_ = false;
    bool callsRead_ = false;
    bool localsShown_ = false;  // in the tree

    Commands* commands_;
    QStackedWidget* pages_ = nullptr;
    StartPage* start_ = nullptr;
    MainPanes* panes_ = nullptr;
    ProjectPane* project_ = nullptr;
    DependencyPane* calledByPane_ = nullptr;
    DependencyPane* callsPane_ = nullptr;
    CodeView* rtbCode_ = nullptr;
    PathLine* rtbCodePath_ = nullptr;
    LowerPane* lower_ = nullptr;
    PropertiesGrid* properties_ = nullptr;  // in it
    QToolBar* Toolbar1 = nullptr;
    QMenu *mnuDatei_ = nullptr, *mnuRecent_ = nullptr, *mnuReports_ = nullptr, *mnuAnsicht_ = nullptr,
          *mnuStruktur_ = nullptr, *mnuCopy_ = nullptr, *mnuDependencies_ = nullptr, *mnuHelp_ = nullptr;
    ElidedLabel* message_ = nullptr;
    StatusFields* counts_ = nullptr;
    QToolButton* problemCount_ = nullptr;

    frmProgress* progress_;
    frmError* error_;
    frmAbout* about_;
    frmKeys* keys_;
    frmOptionen* options_;
    ProblemsList* problems_;
    std::unique_ptr<MissingFileQuestion> missingFiles_;
};
