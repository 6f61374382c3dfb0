// The commands of the window as data: a table with the text, icon, keys and needs of each. What a command does is up to
// the window.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "display/dependency_trees.h"
#include "shell/text_numbers.h"

enum class Command : std::uint8_t {
    OpenProject,
    CloseProject,
    OpenGraph,
    SaveGraph,
    SaveGraphAs,
    ExportGraph,
    PrintGraph,
    CopyGraphPicture,
    ReportStructure,
    ReportCalls,
    ReportDeaths,
    Exit,
    ContentCode,
    Overview,
    WholeModule,
    ContentGraph,
    ContentChart,
    SplitForContent,
    SplitForCalls,
    SplitX,
    SplitY,
    CollapseAll,
    CheckBoxOn,
    CheckBoxAll,
    CheckBoxNone,
    Search,
    NavPrev,
    NavNext,
    ZoomPlus,
    ZoomMinus,
    ZoomNo,
    Problems,
    Options,
    Structure,
    CallsModule,
    Refresh,
    DeleteObject,
    DeleteDead,
    DeletedHere,
    SaveModules,
    ShowInGraph,
    ShowWhy,
    CallPath,
    Impact,
    DeclareEntry,
    LeaveAlone,
    DeclaredByUser,
    CopyName,
    CopyCodePath,
    CopyAsText,
    Calls,
    CallsOfModule,
    Uses,
    UsesShow,
    CalledByReally,
    CalledByMaybe,
    CallsReally,
    CallsMaybe,
    NextPlace,
    PreviousPlace,
    GoTo,
    FindCallers,
    UndoGraph,
    RedoGraph,
    SelectAllSymbols,
    DeleteSymbols,
    CalledByChain,
    CalledByChainAll,
    CallsChain,
    CallsChainAll,
    AddCallers,
    AddAllCallers,
    AddCallees,
    AddAllCallees,
    AddCallPath,
    ArrangeTop,
    ArrangeLeft,
    ArrangeBottom,
    ArrangeRight,
    ArrangeModules,
    FetchSymbols,
    FitGraph,
    ShowLegend,
    ShowMap,
    FrameModules,
    WebPage,
    Keys,
    Diagnosis,
    About,
};

/// What a command needs to be enabled.
enum class Needs : std::uint8_t {
    Nothing,
    Project,
    Module,         // the current object lies in one
    Neighbours,     // the current object has some of the kind that the command shows
    Places,         // marked in the code, or a walk over some
    Object,         // a current one
    Reach,          // the current object is one of the project whose reasons are known
    PreviousPlace,  // in the list for back and forward
    NextPlace,
    Graph,            // the content shows it
    Symbols,          // on the graph, shown or not
    SymbolsShown,     // on the graph, which the content shows
    SelectedSymbol,   // there, one or more
    ProcedureSymbol,  // the active symbol is one, or a selected one
    Procedure,        // there, or as the current object
    TwoProcedures,    // selected there
    Layout,           // symbols there, and the program that arranges them
    UndoStep,         // of the graph
    RedoStep,
    CallsRead,
    Deletable,     // a current object that can be deleted
    Deletions,     // some since the project was opened
    EditedModule,  // one that differs from its file
    DoneByOpening,
    Never,  // neither shown nor enabled
};

struct CommandRow {
    Command command;
    std::string_view name;  // of its action
    Text text;
    Text tip;                // None: the text
    std::string_view image;  // empty: none
    const char* keys;        // as in portable texts, several separated by "|"
    Needs needs;
    bool hasDialog = false;  // the text gets "…" after it
    bool checkable = false;
    Text of = Text::None;  // put before the text with a colon where there is room for it; buttons show the text alone
};

/// All commands, indexed by their numbers.
[[nodiscard]] std::span<const CommandRow> CommandTable();
[[nodiscard]] const CommandRow& RowOf(Command command);

/// What decides which commands of the diagram are enabled.
struct GraphSituation {
    bool isShown = false;  // by the content
    bool hasSymbols = false;
    bool hasSelected = false;
    bool isProcedure = false;   // the active symbol, or a selected one
    bool hasProcedure = false;  // that, or the current object
    bool areTwo = false;        // procedures selected
    bool hasSeveral = false;    // symbols
    bool canArrange = false;    // the program for it is there
    bool canUndo = false;
    bool canRedo = false;
};

/// What decides which commands are enabled. Without a project all others are false as well.
struct Situation {
    bool hasProject = false;
    bool hasObject = false;  // a current one
    bool hasModule = false;  // of the project, that it lies in
    bool canDelete = false;  // the current object
    bool hasDeleted = false;
    bool hasUnsaved = false;  // a module that differs from its file
    bool hasReach = false;    // there is an answer why the current object lives or not
    bool callsRead = false;
    DependencyButtons neighbours;  // of the current object
    bool hasPlaces = false;
    bool hasPrevious = false;
    bool hasNext = false;
    GraphSituation graph = {};
};
[[nodiscard]] bool IsEnabled(Command command, const Situation& now);
/// What the user has to do first; None if there is nothing to say.
[[nodiscard]] Text WhyDisabled(Command command, const Situation& now);
