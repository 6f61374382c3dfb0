// The commands of the window as data: one table says of each what it is called, how it looks, and what it needs. What
// a command does is the window's business.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "display/dependency_trees.h"
#include "shell/text_numbers.h"

enum class Command : std::uint8_t {
    OpenProject,
    CloseProject,
    ReportStructure,
    ReportCalls,
    ReportDeaths,
    Exit,
    ContentCode,
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
    WebPage,
    Keys,
    Diagnosis,
    About,
};

/// What must be there before a command can be given.
enum class Needs : std::uint8_t {
    Nothing,
    Project,
    Module,         // the current object lies in one
    Neighbours,     // the current object has some of the kind that the command shows
    Places,         // marked in the code
    PreviousPlace,  // in the list behind back and forward
    NextPlace,
    LaterVersion,  // nothing does it yet
    DoneByOpening,
    Never,  // neither shown nor of any use now
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
    Text of =
        Text::None;  // stands before the text with a colon where there is room for it; buttons show the text alone
};

/// All commands, each at the place of its number.
[[nodiscard]] std::span<const CommandRow> CommandTable();
[[nodiscard]] const CommandRow& RowOf(Command command);

/// What decides which commands can be given. Without a project nothing else is there either.
struct Situation {
    bool hasProject = false;
    bool hasObject = false;  // a current one
    bool hasModule = false;  // that it lies in
    bool callsRead = false;
    DependencyButtons neighbours;  // of the current object
    bool hasPlaces = false;
    bool hasPrevious = false;
    bool hasNext = false;
};
[[nodiscard]] bool IsEnabled(Command command, const Situation& now);
/// What a person has to do first; None where there is nothing to say.
[[nodiscard]] Text WhyDisabled(Command command, const Situation& now);
