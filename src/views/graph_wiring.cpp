#include "views/graph_wiring.h"

#include <QFileInfo>
#include <QMenu>
#include <QUndoStack>

#include "canvas/graph_canvas.h"
#include "display/node_objects.h"
#include "model/clsProjekt.h"
#include "platform/settings_file.h"
#include "project/start.h"
#include "shell/settings.h"
#include "views/baum_view.h"
#include "views/code_view.h"
#include "views/commands.h"
#include "views/context_ways.h"
#include "views/frm_main.h"
#include "views/graph_files.h"
#include "views/graph_pane.h"
#include "views/search_bar.h"
#include "widgets/object_tip.h"
#include "widgets/qt_text.h"
#include "xgraph/placement.h"

GraphWiring::GraphWiring(frmMain& window, Files& files, SettingsFile& settings, GraphPorts ports)
    : QObject(&window),
      window_(window),
      settings_(settings),
      ports_(std::move(ports)),
      pane_(new GraphPane(window.TheSettings(), window.TheCommands())),
      canvas_(pane_->Canvas()),
      files_(new GraphFiles(canvas_, files, settings, &window)),
      output_(canvas_, files, settings, window.TheSettings(), ports_, &window),
      chains_(canvas_, ports_, &window),
      arrange_(canvas_, ports_, &window),
      arrangeMenu_(new QMenu(&window)) {
    ports_.message = [this](const QString& text) { Q_EMIT Message(text); };
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
    canvas_.SetMenuItems([this](QMenu& menu, const std::string& key) {
        ObjectItems items;
        items.key = key;
        items.run = [this, key](Command command) { window_.RunOn(command, key); };
        items.isSymbol = true;
        AddObjectItems(menu, items);
    });
    connect(&canvas_, &GraphCanvas::MenuFilled, this, &GraphWiring::GiveLetters);
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

// Commands keep the letters that they have in the menu bar.
void GraphWiring::GiveLetters(const QMenu& menu) {
    QList<QAction*> own, commands;
    for (QAction* const action : menu.actions())
        (canvas_.actions().contains(action) && action != arrangeMenu_->menuAction() ? commands : own).append(action);
    Commands::GiveLetters(own, commands);
}

void GraphWiring::Follow(CodeView& code, SearchBar& search) {
    code_ = &code;
    search_ = &search;
}

void GraphWiring::Wire(Command command, std::function<void(bool)> function) {
    connect(&window_.TheCommands()[command], &QAction::triggered, this, std::move(function));
}

void GraphWiring::WireCommands() {
    Wire(Command::ShowInGraph, [this](bool) { ShowInGraph({}); });
    Wire(Command::OpenGraph, [this](bool) {
        ShowGraph();
        files_->GraphOpen();
    });
    Wire(Command::SaveGraph, [this](bool) { files_->GraphSave(); });
    Wire(Command::SaveGraphAs, [this](bool) { files_->SaveAs(); });
    Wire(Command::ExportGraph, [this](bool) { output_.GraphExport(); });
    Wire(Command::PrintGraph, [this](bool) { output_.GraphPrint(); });
    Wire(Command::CopyGraphPicture, [this](bool) { canvas_.CopyPicture(); });
    for (const Command command : {Command::ExportGraph, Command::PrintGraph})
        canvas_.addAction(&window_.TheCommands()[command]);
    Wire(Command::UndoGraph, [this](bool) { canvas_.Undo().undo(); });
    Wire(Command::RedoGraph, [this](bool) { canvas_.Undo().redo(); });
    Wire(Command::SelectAllSymbols, [this](bool) { canvas_.SelectAll(); });
    Wire(Command::DeleteSymbols, [this](bool) { canvas_.DeleteSelected(); });
    Wire(Command::FetchSymbols, [this](bool) { canvas_.cmdNoZoom(); });
    Wire(Command::FitGraph, [this](bool) { canvas_.Fit(); });
    WireChains();
    WireArrange();
    WireExtra(Command::ShowLegend, &Settings::GraphLegend);
    WireExtra(Command::ShowMap, &Settings::GraphMap);
    WireExtra(Command::FrameModules, &Settings::GraphFrames);
    canvas_.ShowExtras();
    FillMenuOfCanvas();
}

void GraphWiring::WireExtra(Command command, std::int16_t Settings::*shown) {
    QAction& action = window_.TheCommands()[command];
    action.setChecked(window_.TheSettings().*shown != 0);
    Wire(command, [this, shown](bool isShown) {
        window_.TheSettings().*shown = isShown ? 1 : 0;
        GraphExtras_Save(settings_, window_.TheSettings());
        canvas_.ShowExtras();
    });
}

// The buttons above the diagram work on its symbols, the commands of the menu also on what is chosen elsewhere.
void GraphWiring::WireChains() {
    struct Way {
        Command button, command;
        GraphChain chain;
    };
    for (const Way& way : {Way{Command::CalledByChain, Command::AddCallers, GraphChain::CalledBy},
                           Way{Command::CalledByChainAll, Command::AddAllCallers, GraphChain::CalledByAll},
                           Way{Command::CallsChain, Command::AddCallees, GraphChain::Calls},
                           Way{Command::CallsChainAll, Command::AddAllCallees, GraphChain::CallsAll}}) {
        const Text name = RowOf(way.command).text;
        Wire(way.button, [this, name, chain = way.chain](bool) {
            chains_.Add(TextNr(name), chain, pane_->gChainObjectType(), chains_.Selected());
        });
        Wire(way.command, [this, name, chain = way.chain](bool) {
            const std::vector<clsProzedur*> starts = ProceduresInUse();
            if (starts.empty())
                return Q_EMIT Message(TextNr(Text::ChooseProcedureFirst));
            ShowGraph();
            chains_.Add(TextNr(name), chain, pane_->gChainObjectType(), starts);
        });
    }
    Wire(Command::AddCallPath, [this](bool) { chains_.AddPath(TextNr(Text::AddCallPath)); });
}

void GraphWiring::WireArrange() {
    struct Way {
        Command command;
        LayoutOptions options;
    };
    for (const Way& way :
         {Way{Command::ArrangeTop, {.from = LayoutSide::Top}}, Way{Command::ArrangeLeft, {.from = LayoutSide::Left}},
          Way{Command::ArrangeBottom, {.from = LayoutSide::Bottom}},
          Way{Command::ArrangeRight, {.from = LayoutSide::Right}},
          Way{Command::ArrangeModules, {.from = LayoutSide::Top, .byModule = true}}})
        Wire(way.command, [this, options = way.options](bool) { arrange_.Arrange(TextNr(Text::Arrange), options); });
}

// What the context menu of the diagram ends with.
void GraphWiring::FillMenuOfCanvas() {
    Commands& commands = window_.TheCommands();
    const auto addGroup = [&](std::initializer_list<Command> group) {
        for (const Command command : group)
            canvas_.addAction(&commands[command]);
        auto* separator = new QAction(this);
        separator->setSeparator(true);
        canvas_.addAction(separator);
    };
    addGroup({Command::AddCallers, Command::AddAllCallers, Command::AddCallees, Command::AddAllCallees,
              Command::AddCallPath});
    for (const Command command : {Command::ArrangeTop, Command::ArrangeLeft, Command::ArrangeBottom,
                                  Command::ArrangeRight, Command::ArrangeModules})
        arrangeMenu_->addAction(&commands[command]);
    canvas_.addAction(arrangeMenu_->menuAction());
    addGroup({Command::SelectAllSymbols, Command::FitGraph});
    addGroup({Command::FrameModules, Command::ShowMap, Command::ShowLegend});
}

clsProzedur* GraphWiring::ProcedureWith(const std::string& key) const {
    CodeObject* const object = gProjekt && !key.empty() ? ObjectOfNode(*gProjekt, NodeId(key)) : nullptr;
    return object && object->Class() == ObjectClass::Prozedur ? static_cast<clsProzedur*>(object) : nullptr;
}

// Those selected in the diagram while it has the focus; else the one that is chosen where the focus is.
std::vector<clsProzedur*> GraphWiring::ProceduresInUse() const {
    std::vector<clsProzedur*> selected = IsShown() ? chains_.Selected() : std::vector<clsProzedur*>();
    if (window_.focusWidget() == &canvas_ && !selected.empty())
        return selected;
    const CodeObject* const current = window_.TheWorkspace().Current().CurObject;
    for (const std::string& key : {KeyInUse(), current ? NodeKeyOf(*current) : std::string()})
        if (clsProzedur* const prozedur = ProcedureWith(key))
            return {prozedur};
    return selected;
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

void GraphWiring::ShowInGraph(const std::string& asked) {
    const std::string key = asked.empty() ? KeyInUse() : asked;
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
        canvas_.ReplaceProject(*gProjekt);
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
    // The objects of a diagram that shows nothing may have gone.
    const std::size_t procedures = canvas_.ListedCount() > 0 ? chains_.Selected().size() : 0;
    const CodeObject* const current = window_.TheWorkspace().Current().CurObject;
    return {.isShown = IsShown(),
            .hasSymbols = !graph.GraphObjects().empty(),
            .hasSelected = !graph.GraphSelected().empty(),
            .isProcedure = procedures > 0,
            .hasProcedure = (IsShown() && procedures > 0) || (current && current->Class() == ObjectClass::Prozedur),
            .areTwo = procedures == 2,
            .hasSeveral = graph.GraphObjects().size() > 1,
            .canArrange = GraphArrange::IsThere(),
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
    arrangeMenu_->setTitle(TextNr(Text::Arrange));
}
