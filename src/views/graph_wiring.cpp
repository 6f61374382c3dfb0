#include "views/graph_wiring.h"

#include <QFileInfo>
#include <QMenu>
#include <QUndoStack>

#include "canvas/graph_canvas.h"
#include "display/node_objects.h"
#include "model/clsProjekt.h"
#include "platform/settings_file.h"
#include "project/start.h"
#include "shell/operations.h"
#include "views/baum_view.h"
#include "views/code_view.h"
#include "views/commands.h"
#include "views/frm_main.h"
#include "views/graph_files.h"
#include "views/graph_pane.h"
#include "views/references_list.h"
#include "views/search_bar.h"
#include "widgets/object_tip.h"
#include "widgets/qt_text.h"
#include "xgraph/placement.h"

namespace {

constexpr std::string_view kSection = "ALLGEMEIN";
constexpr std::string_view kLegendKey = "GraphLegend";

}  // namespace

GraphWiring::GraphWiring(frmMain& window, Files& files, SettingsFile& settings, Ports ports)
    : QObject(&window),
      window_(window),
      settings_(settings),
      ports_(std::move(ports)),
      pane_(new GraphPane(window.TheSettings(), window.TheCommands())),
      canvas_(pane_->Canvas()),
      files_(new GraphFiles(canvas_, files, settings, &window)) {
    connect(files_, &GraphFiles::Message, this, &GraphWiring::Message);
    WireCanvas();
}

void GraphWiring::WireCanvas() {
    canvas_.SetTexts(
        {.hover = [this](const CodeObject& object) { return ToolTipOf(window_.TheWorkspace().HoverText(object)); },
         .spoken =
             [this](const CodeObject& object) {
                 return QString::fromStdString(window_.TheWorkspace().SpokenText(object));
             }});
    connect(&canvas_, &GraphCanvas::Changed, this, &GraphWiring::CanvasChanged);
    connect(&canvas_, &GraphCanvas::SymbolChosen, this, [this](const std::string& key) { window_.ActivateKey(key); });
    connect(&canvas_, &GraphCanvas::SymbolActivated, this, [this](const std::string& key) {
        if (window_.ActivateKey(key))
            window_.BaumProjekt().setFocus();
    });
    connect(&canvas_, &GraphCanvas::CodeAsked, this, [this](const std::string& key) {
        window_.MainActions(13);
        window_.ActivateKey(key);
        code_->setFocus();
    });
    connect(&canvas_, &GraphCanvas::PlaceChosen, this, [this](const std::string& modulKey, int line) {
        window_.MainActions(13);
        window_.ActivateLine(modulKey, line);
        code_->setFocus();
    });
}

void GraphWiring::Follow(std::initializer_list<BaumView*> trees, const ReferencesList& references, CodeView& code,
                         SearchBar& search) {
    code_ = &code;
    search_ = &search;
    for (BaumView* tree : trees)
        connect(tree, &BaumView::GraphAsked, this, &GraphWiring::ShowInGraph);
    connect(&references, &ReferencesList::GraphAsked, this, &GraphWiring::ShowInGraph);
    connect(&search, &SearchBar::GraphAsked, this, &GraphWiring::ShowInGraph);
    connect(&code, &CodeView::GraphAsked, this, [this] { ShowInGraph(KeyInUse()); });
}

void GraphWiring::Wire(Command command, std::function<void(bool)> function) {
    connect(&window_.TheCommands()[command], &QAction::triggered, this, std::move(function));
}

void GraphWiring::WireCommands() {
    Wire(Command::ShowInGraph, [this](bool) { ShowInGraph(KeyInUse()); });
    Wire(Command::OpenGraph, [this](bool) {
        ShowGraph();
        files_->GraphOpen();
    });
    Wire(Command::SaveGraph, [this](bool) { files_->GraphSave(); });
    Wire(Command::SaveGraphAs, [this](bool) { files_->SaveAs(); });
    Wire(Command::UndoGraph, [this](bool) { canvas_.Undo().undo(); });
    Wire(Command::RedoGraph, [this](bool) { canvas_.Undo().redo(); });
    Wire(Command::SelectAllSymbols, [this](bool) { canvas_.SelectAll(); });
    Wire(Command::DeleteSymbols, [this](bool) { canvas_.DeleteSelected(); });
    Wire(Command::FetchSymbols, [this](bool) { canvas_.cmdNoZoom(); });
    Wire(Command::FitGraph, [this](bool) { canvas_.Fit(); });
    for (const auto& [command, chain] : {std::pair{Command::CalledByChain, GraphChain::CalledBy},
                                         {Command::CalledByChainAll, GraphChain::CalledByAll},
                                         {Command::CallsChain, GraphChain::Calls},
                                         {Command::CallsChainAll, GraphChain::CallsAll}})
        Wire(command, [this, of = command, which = chain](bool) { RunChain(of, which); });
    QAction& legend = window_.TheCommands()[Command::ShowLegend];
    legend.setChecked(settings_.ReadString(kSection, kLegendKey, "1", 8) != "0");
    canvas_.SetLegend(legend.isChecked());
    Wire(Command::ShowLegend, [this](bool shown) {
        canvas_.SetLegend(shown);
        settings_.WriteString(kSection, kLegendKey, shown ? "1" : "0");
        settings_.Save();
    });
}

// A hit of the search, what has the focus, or the current object.
std::string GraphWiring::KeyInUse() const {
    if (std::string hit = search_->HitKey(); !hit.empty())
        return hit;
    if (std::string key = window_.KeyInFocus(); !key.empty())
        return key;
    const CodeObject* const current = window_.TheWorkspace().Current().CurObject;
    return current ? NodeKeyOf(*current) : std::string();
}

void GraphWiring::ShowInGraph(const std::string& key) {
    CodeObject* const object = gProjekt && !key.empty() ? ObjectOfNode(*gProjekt, NodeId(key)) : nullptr;
    if (!object) {
        Q_EMIT Message(TextNr(Text::ChooseObjectFirst));
        return;
    }
    ShowGraph();
    canvas_.ShowObject(*object);
    canvas_.setFocus();
    window_.ActivateKey(key);
    Q_EMIT Message(TextNr(Text::SymbolShown, ToQString(object->myNameOrg())));
}

void GraphWiring::ShowObjects(const std::vector<std::string>& keys, const QString& title) {
    std::vector<CodeObject*> objects;
    for (const std::string& key : keys)
        if (CodeObject* const object = gProjekt ? ObjectOfNode(*gProjekt, NodeId(key)) : nullptr)
            objects.push_back(object);
    if (objects.empty())
        return;
    ShowGraph();
    canvas_.Change(title, [&](XGraph& graph) { AddObjects(graph, objects); });
    canvas_.Mark(objects.front());
    canvas_.setFocus();
    Q_EMIT Message(TextNr(Text::SymbolShown, title));
}

void GraphWiring::ShowGraph() {
    window_.TheWorkspace().ShowOverview(false);
    window_.TheSettings().Content = ContentMode::Graph;
    ports_.showContent();
    window_.Activate_Commands();
}

void GraphWiring::RunChain(Command command, GraphChain chain) {
    const ctlGraphObj* const start = canvas_.Graph().Active();
    if (!start)
        return;
    canvas_.Change(TextNr(RowOf(command).text), [&](XGraph& graph) {
        ports_.run(std::string(ActionOf(chain)),
                   [&] { RunGraphChain(graph, *start, chain, {.type = pane_->gChainObjectType()}); });
    });
}

bool GraphWiring::IsShown() const {
    return gProjekt && window_.TheWorkspace().ContentShown() == ContentMode::Graph;
}

bool GraphWiring::MayGo() {
    return files_->MayGo();
}

bool GraphWiring::IsUnsaved() const {
    return canvas_.IsUnsaved();
}

void GraphWiring::ProjectGoes() {
    canvas_.SetProject(nullptr);
}

void GraphWiring::ProjectOpened() {
    canvas_.SetProject(gProjekt.get());
    if (!waiting_.empty())
        Open(std::exchange(waiting_, {}));
}

void GraphWiring::EdgesGo() {
    canvas_.Forget();
}

void GraphWiring::ModelChanged() {
    if (canvas_.Graph().Projekt() != gProjekt.get())
        canvas_.ReplaceProject(gProjekt.get());
    else
        canvas_.Refresh();
}

void GraphWiring::ObjectChosen() {
    canvas_.Mark(window_.TheWorkspace().Current().CurObject);
}

void GraphWiring::Open(const std::string& path) {
    if (gProjekt) {
        ShowGraph();
        files_->Open(path);
    } else {
        waiting_ = path;
        Q_EMIT Message(TextNr(Text::GraphWaits, QFileInfo(ToPath(path)).fileName()));
    }
}

GraphSituation GraphWiring::Now() const {
    const XGraph& graph = canvas_.Graph();
    const ctlGraphObj* const active = graph.Active();
    return {.isShown = IsShown(),
            .hasSymbols = !graph.GraphObjects().empty(),
            .hasSelected = !graph.GraphSelected().empty(),
            // The objects of a diagram that shows nothing may have gone.
            .isProcedure = active && canvas_.ListedCount() > 0 && active->object->Class() == ObjectClass::Prozedur,
            .canUndo = canvas_.Undo().canUndo(),
            .canRedo = canvas_.Undo().canRedo()};
}

QString GraphWiring::TitlePart() const {
    return files_->Name();
}

void GraphWiring::CanvasChanged() {
    NameCommands();
    ports_.showNow();
    Q_EMIT TitleChanged();
}

void GraphWiring::NameCommands() {
    Commands& commands = window_.TheCommands();
    const QString undo = canvas_.Undo().undoText();
    const QString redo = canvas_.Undo().redoText();
    const QString undoText = undo.isEmpty() ? TextNr(Text::UndoChange) : TextNr(Text::UndoNamed, undo);
    const QString redoText = redo.isEmpty() ? TextNr(Text::RedoChange) : TextNr(Text::RedoNamed, redo);
    Commands::SetTexts(commands[Command::UndoGraph], undoText, undoText);
    Commands::SetTexts(commands[Command::RedoGraph], redoText, redoText);
}
