// The diagram in the window: which of its commands does what, and how it and the other panes follow each other.
#pragma once

#include <QObject>
#include <functional>
#include <string>
#include <vector>

#include "display/command_table.h"
#include "views/graph_arrange.h"
#include "views/graph_chains.h"
#include "views/graph_output.h"
#include "views/graph_ports.h"

class CodeView;
class Files;
class GraphCanvas;
class GraphFiles;
class GraphPane;
class QMenu;
class SearchBar;
class SettingsFile;
class clsProzedur;
class frmMain;
struct Settings;

class GraphWiring final : public QObject {
    Q_OBJECT

public:
    GraphWiring(frmMain& window, Files& files, SettingsFile& settings, GraphPorts ports);

    [[nodiscard]] GraphPane& Pane() const { return *pane_; }
    /// The code that lines of a connector lead to, and the search whose hits can be put on the diagram.
    void Follow(CodeView& code, SearchBar& search);
    /// Connects the commands of the diagram.
    void WireCommands();

    /// Whether the diagram may go, with the project or the window.
    [[nodiscard]] bool MayGo();
    [[nodiscard]] bool IsUnsaved() const;
    /// Before another project opens, or none.
    void ProjectGoes();
    void ProjectOpened();
    /// Before edges become invalid; objects stay.
    void EdgesGo();
    /// After a refresh, or after the calls were read.
    void ModelChanged();
    /// Marks the current object.
    void ObjectChosen();

    /// Opens a diagram, or does so with the next project.
    void Open(const std::string& path);
    [[nodiscard]] GraphSituation Now() const;
    /// Name of the diagram with a place for the mark of what is not saved; empty without one.
    [[nodiscard]] QString TitlePart() const;
    /// Texts that name what undo takes back.
    void NameCommands();
    void ShowGraph();
    /// Puts a symbol of the object on the diagram; without a key, of what is chosen where the user is.
    void ShowInGraph(const std::string& key);
    /// The same for all of these that have none, in one step that can be undone.
    /// @param title  of that step
    void ShowObjects(const std::vector<std::string>& keys, const QString& title);

Q_SIGNALS:
    void Message(const QString& text);
    void TitleChanged();

private:
    void Wire(Command command, std::function<void(bool)> function);
    void WireCanvas();
    [[nodiscard]] std::string KeyInUse() const;
    [[nodiscard]] std::vector<clsProzedur*> ProceduresInUse() const;
    [[nodiscard]] clsProzedur* ProcedureWith(const std::string& key) const;
    void WireChains();
    void WireArrange();
    void WireExtra(Command command, std::int16_t Settings::*shown);
    void FillMenuOfCanvas();
    void GiveLetters(const QMenu& menu);
    void CanvasChanged();
    [[nodiscard]] bool IsShown() const;

    frmMain& window_;
    SettingsFile& settings_;
    GraphPorts ports_;
    GraphPane* pane_;
    GraphCanvas& canvas_;
    GraphFiles* files_;
    GraphOutput output_;
    GraphChains chains_;
    GraphArrange arrange_;
    QMenu* arrangeMenu_;  // of the context menu
    CodeView* code_ = nullptr;
    SearchBar* search_ = nullptr;
    std::string waiting_;  // file to be opened with the next project
};
