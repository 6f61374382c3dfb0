#include "display/command_table.h"

#include <algorithm>
#include <array>

namespace {

using enum Command;

constexpr std::array kRows = std::to_array<CommandRow>({
    {OpenProject, "OpenProject", Text::OpenProject, Text::None, "OpenProject", "Ctrl+O", Needs::Nothing},
    {CloseProject, "CloseProject", Text::CloseProject, Text::None, "Close", "", Needs::Project},
    {OpenGraph, "OpenGraph", Text::OpenGraph, Text::None, "Open", "", Needs::Project, true},
    {SaveGraph, "SaveGraph", Text::SaveGraph, Text::None, "Save", "Ctrl+S", Needs::Symbols},
    {SaveGraphAs, "SaveGraphAs", Text::SaveGraphAs, Text::None, "", "Ctrl+Shift+S", Needs::Symbols, true},
    {ExportGraph, "ExportGraph", Text::ExportGraph, Text::None, "Export", "", Needs::Symbols, true},
    {PrintGraph, "PrintGraph", Text::PrintGraph, Text::None, "Print", "Ctrl+P", Needs::Symbols, true},
    {CopyGraphPicture, "CopyGraphPicture", Text::CopyPicture, Text::None, "", "", Needs::Symbols},
    {ReportStructure, "ReportStructure", Text::StructureReports, Text::None, "Reports", "", Needs::Project, true},
    {ReportCalls, "ReportCalls", Text::CallsReports, Text::None, "Reports", "", Needs::Project, true},
    {ReportDeaths, "ReportDeaths", Text::DeathsReport, Text::None, "Reports", "", Needs::Project, true},
    {Exit, "Exit", Text::Exit, Text::None, "Exit", "Ctrl+Q", Needs::Nothing},
    {ContentCode, "ContentCode", Text::Code, Text::None, "ContentCode", "", Needs::Project, false, true},
    {Overview, "Overview", Text::Overview, Text::None, "Overview", "Alt+Home", Needs::Project, false, true},
    {WholeModule, "WholeModule", Text::WholeModule, Text::None, "WholeModule", "Ctrl+M", Needs::Module, false, true},
    {ContentGraph, "ContentGraph", Text::XGraph, Text::None, "ContentGraph", "", Needs::Project, false, true},
    {ContentChart, "ContentChart", Text::Chart, Text::None, "ContentChart", "", Needs::Project, false, true},
    {SplitForContent, "SplitForContent", Text::SplitForContent, Text::None, "SplitForContent", "", Needs::Project,
     false, true},
    {SplitForCalls, "SplitForCalls", Text::SplitForCalls, Text::None, "SplitForCalls", "", Needs::Project, false, true},
    {SplitX, "SplitX", Text::LeftPane, Text::None, "SplitXShow", "", Needs::Project, false, true},
    {SplitY, "SplitY", Text::UpperPane, Text::None, "SplitYShow", "", Needs::Project, false, true},
    {CollapseAll, "CollapseAll", Text::CollapseAll, Text::None, "CollapseAll", "", Needs::Project},
    {CheckBoxOn, "CheckBoxOn", Text::CheckBoxes, Text::None, "CheckBoxOff", "", Needs::Project, false, true},
    {CheckBoxAll, "CheckBoxAll", Text::CheckAllModules, Text::None, "CheckBoxAll", "", Needs::Project},
    {CheckBoxNone, "CheckBoxNone", Text::UncheckAllModules, Text::None, "CheckBoxNone", "", Needs::Project},
    {Search, "Search", Text::FindObject, Text::None, "Search", "Ctrl+F", Needs::Project},
    {NavPrev, "NavPrev", Text::Back, Text::None, "NavPrev", "Alt+Left", Needs::PreviousPlace},
    {NavNext, "NavNext", Text::Forward, Text::None, "NavNext", "Alt+Right", Needs::NextPlace},
    {ZoomPlus, "ZoomPlus", Text::ZoomIn, Text::None, "ZoomPlus", "Ctrl++|Ctrl+=", Needs::Project},
    {ZoomMinus, "ZoomMinus", Text::ZoomOut, Text::None, "ZoomMinus", "Ctrl+-", Needs::Project},
    {ZoomNo, "ZoomNo", Text::NormalSize, Text::None, "ZoomNo", "Ctrl+0", Needs::Project},
    {Problems, "Problems", Text::ShowProblems, Text::None, "Problems", "", Needs::Nothing, true},
    {Options, "Options", Text::Options, Text::None, "Options", "", Needs::Nothing, true},
    {Structure, "Structure", Text::ReadStructure, Text::None, "Structure", "", Needs::DoneByOpening},
    {CallsModule, "CallsModule", Text::ForCurrentModule, Text::None, "CallsModule", "", Needs::Never},
    {Refresh, "Refresh", Text::Refresh, Text::None, "Refresh", "F5", Needs::Project},
    {DeleteObject, "DeleteObject", Text::DeleteObject, Text::None, "Delete", "", Needs::Deletable, true},
    {DeleteDead, "DeleteDead", Text::DeleteDead, Text::None, "", "", Needs::CallsRead, true},
    {DeletedHere, "DeletedHere", Text::DeletedHere, Text::None, "", "", Needs::Deletions, true},
    {SaveModules, "SaveModules", Text::SaveModules, Text::None, "", "", Needs::EditedModule, true},
    {ShowInGraph, "ShowInGraph", Text::ShowInGraph, Text::None, "ContentGraph", "Ctrl+G", Needs::Project},
    {ShowWhy, "ShowWhy", Text::ShowWhy, Text::None, "", "F9", Needs::Reach},
    {CallPath, "CallPath", Text::CallPath, Text::None, "", "Ctrl+R", Needs::Reach, true},
    {Impact, "Impact", Text::Impact, Text::None, "", "Ctrl+I", Needs::Reach, true},
    {DeclareEntry, "DeclareEntry", Text::DeclareEntry, Text::None, "", "Ctrl+E", Needs::Reach, true},
    {LeaveAlone, "LeaveAlone", Text::LeaveAlone, Text::None, "", "Ctrl+Shift+E", Needs::Reach, true},
    {DeclaredByUser, "DeclaredByUser", Text::DeclaredByUser, Text::None, "", "", Needs::Project, true},
    {CopyName, "CopyName", Text::CopyName, Text::None, "Copy", "", Needs::Project},
    {CopyCodePath, "CopyCodePath", Text::CopyCodePath, Text::None, "", "", Needs::Project},
    {CopyAsText, "CopyAsText", Text::CopyAsText, Text::None, "", "", Needs::Project},
    {Calls, "Calls", Text::ReadAllCalls, Text::ReadCalls, "CallsReadNot", "", Needs::Project, true},
    {CallsOfModule, "CallsOfModule", Text::ForCurrentModule, Text::None, "CallsModule", "", Needs::Module},
    {Uses, "Uses", Text::UsesOfTypes, Text::None, "Uses", "", Needs::Never},
    {UsesShow, "UsesShow", Text::UsesOfTypes, Text::None, "UsesShow", "", Needs::Never},
    {CalledByReally, "CalledByReally", Text::Really, Text::None, "CalledByReally", "", Needs::Neighbours, false, true,
     Text::CalledBy},
    {CalledByMaybe, "CalledByMaybe", Text::MayBe, Text::None, "CalledByMaybe", "", Needs::Neighbours, false, true,
     Text::CalledBy},
    {CallsReally, "CallsReally", Text::Really, Text::None, "CallsReally", "", Needs::Neighbours, false, true,
     Text::Calls},
    {CallsMaybe, "CallsMaybe", Text::MayBe, Text::None, "CallsMaybe", "", Needs::Neighbours, false, true, Text::Calls},
    {NextPlace, "NextPlace", Text::NextPlace, Text::None, "", "F3", Needs::Places},
    {PreviousPlace, "PreviousPlace", Text::PreviousPlace, Text::None, "", "Shift+F3", Needs::Places},
    {GoTo, "GoTo", Text::ProblemGoTo, Text::GoToObject, "", "F12", Needs::Project},
    {FindCallers, "FindCallers", Text::FindCallers, Text::None, "", "Shift+F12", Needs::Object},
    {UndoGraph, "UndoGraph", Text::UndoChange, Text::None, "Undo", "Ctrl+Z", Needs::UndoStep},
    {RedoGraph, "RedoGraph", Text::RedoChange, Text::None, "Redo", "Ctrl+Shift+Z|Ctrl+Y", Needs::RedoStep},
    {SelectAllSymbols, "SelectAllSymbols", Text::SelectAll, Text::None, "SelectAll", "", Needs::SymbolsShown},
    {DeleteSymbols, "DeleteSymbols", Text::DeleteSelected, Text::None, "Delete", "", Needs::SelectedSymbol},
    {CalledByChain, "CalledByChain", Text::CalledByChain, Text::None, "CalledByChain", "", Needs::ProcedureSymbol},
    {CalledByChainAll, "CalledByChainAll", Text::CalledByChainAll, Text::None, "CalledByChainAll", "",
     Needs::ProcedureSymbol},
    {CallsChain, "CallsChain", Text::CallsChain, Text::None, "CallsChain", "", Needs::ProcedureSymbol},
    {CallsChainAll, "CallsChainAll", Text::CallsChainAll, Text::None, "CallsChainAll", "", Needs::ProcedureSymbol},
    {AddCallers, "AddCallers", Text::AddCallers, Text::None, "CalledByChain", "Ctrl+B", Needs::Procedure},
    {AddAllCallers, "AddAllCallers", Text::AddAllCallers, Text::None, "CalledByChainAll", "Ctrl+Shift+B",
     Needs::Procedure},
    {AddCallees, "AddCallees", Text::AddCallees, Text::None, "CallsChain", "Ctrl+L", Needs::Procedure},
    {AddAllCallees, "AddAllCallees", Text::AddAllCallees, Text::None, "CallsChainAll", "Ctrl+Shift+L",
     Needs::Procedure},
    {AddCallPath, "AddCallPath", Text::AddCallPath, Text::None, "", "Ctrl+J", Needs::TwoProcedures},
    {ArrangeTop, "ArrangeTop", Text::ArrangeTop, Text::None, "", "Ctrl+Shift+A", Needs::Layout, false, false,
     Text::Arrange},
    {ArrangeLeft, "ArrangeLeft", Text::ArrangeLeft, Text::None, "", "", Needs::Layout, false, false, Text::Arrange},
    {ArrangeBottom, "ArrangeBottom", Text::ArrangeBottom, Text::None, "", "", Needs::Layout, false, false,
     Text::Arrange},
    {ArrangeRight, "ArrangeRight", Text::ArrangeRight, Text::None, "", "", Needs::Layout, false, false, Text::Arrange},
    {ArrangeModules, "ArrangeModules", Text::ArrangeModules, Text::None, "", "", Needs::Layout, false, false,
     Text::Arrange},
    {FetchSymbols, "cmdNoZoom", Text::FetchSymbols, Text::None, "FetchSymbols", "", Needs::SymbolsShown},
    {FitGraph, "FitGraph", Text::FitGraph, Text::None, "FitGraph", "", Needs::SymbolsShown},
    {ShowLegend, "ShowLegend", Text::Legend, Text::None, "Legend", "", Needs::Graph, false, true},
    {ShowMap, "ShowMap", Text::OverviewMap, Text::None, "", "", Needs::Graph, false, true},
    {FrameModules, "FrameModules", Text::FrameModules, Text::None, "", "", Needs::Graph, false, true},
    {WebPage, "WebPage", Text::WebPage, Text::None, "", "", Needs::Nothing},
    {Keys, "Keys", Text::KeyboardShortcuts, Text::None, "", "", Needs::Nothing, true},
    {Diagnosis, "Diagnosis", Text::Summary, Text::None, "", "Ctrl+D", Needs::Nothing, true},
    {About, "About", Text::About, Text::None, "About", "F1", Needs::Nothing},
});

constexpr bool EachIsAtItsNumber() {
    for (std::size_t i = 0; i < kRows.size(); ++i)
        if (kRows[i].command != static_cast<Command>(i))
            return false;
    return kRows.back().command == About;
}
static_assert(EachIsAtItsNumber());

}  // namespace

std::span<const CommandRow> CommandTable() {
    return kRows;
}

const CommandRow& RowOf(Command command) {
    return kRows[static_cast<std::size_t>(command)];
}

bool IsEnabled(Command command, const Situation& now) {
    switch (RowOf(command).needs) {
        case Needs::Nothing:
            return true;
        case Needs::Project:
            return now.hasProject;
        case Needs::Module:
            return now.hasModule;
        case Needs::Neighbours:
            return command == CalledByReally  ? now.neighbours.CalledByReally
                   : command == CalledByMaybe ? now.neighbours.CalledByMaybe
                   : command == CallsReally   ? now.neighbours.CallsReally
                                              : now.neighbours.CallsMaybe;
        case Needs::Places:
            return now.hasPlaces;
        case Needs::Object:
            return now.hasObject;
        case Needs::Reach:
            return now.hasReach;
        case Needs::PreviousPlace:
            return now.hasPrevious;
        case Needs::NextPlace:
            return now.hasNext;
        case Needs::Graph:
            return now.graph.isShown;
        case Needs::Symbols:
            return now.graph.hasSymbols;
        case Needs::SymbolsShown:
            return now.graph.isShown && now.graph.hasSymbols;
        case Needs::SelectedSymbol:
            return now.graph.isShown && now.graph.hasSelected;
        case Needs::ProcedureSymbol:
            return now.graph.isShown && now.graph.isProcedure && now.callsRead;
        case Needs::Procedure:
            return now.hasProject && now.graph.hasProcedure && now.callsRead;
        case Needs::TwoProcedures:
            return now.graph.isShown && now.graph.areTwo && now.callsRead;
        case Needs::Layout:
            return now.graph.isShown && now.graph.hasSeveral && now.graph.canArrange;
        case Needs::UndoStep:
            return now.graph.isShown && now.graph.canUndo;
        case Needs::RedoStep:
            return now.graph.isShown && now.graph.canRedo;
        case Needs::CallsRead:
            return now.hasProject && now.callsRead;
        case Needs::Deletable:
            return now.canDelete;
        case Needs::Deletions:
            return now.hasDeleted;
        case Needs::EditedModule:
            return now.hasUnsaved;
        case Needs::DoneByOpening:
        case Needs::Never:
            return false;
    }
    return false;
}

namespace {

Text WhyNotOnGraph(Needs needs, const Situation& now) {
    if (needs == Needs::Layout && !now.graph.canArrange)
        return Text::NeedsGraphviz;
    if (!now.graph.isShown && needs != Needs::Symbols)
        return Text::ShowGraphFirst;
    switch (needs) {
        case Needs::Symbols:
        case Needs::SymbolsShown:
            return Text::GraphIsEmpty;
        case Needs::SelectedSymbol:
            return Text::SelectSymbolFirst;
        case Needs::ProcedureSymbol:
            return now.callsRead ? Text::ClickProcedureFirst : Text::ReadCallsFirst;
        case Needs::TwoProcedures:
            return now.callsRead ? Text::SelectTwoProcedures : Text::ReadCallsFirst;
        case Needs::Layout:
            return Text::NothingToArrange;
        default:
            return Text::NothingToUndo;
    }
}

}  // namespace

Text WhyDisabled(Command command, const Situation& now) {
    const Needs needs = RowOf(command).needs;
    if (!now.hasProject)
        return Text::OpenProjectFirst;
    switch (needs) {
        case Needs::Module:
        case Needs::Object:
            return Text::ChooseObjectFirst;
        case Needs::Neighbours:
            return !now.hasObject ? Text::ChooseObjectFirst : !now.callsRead ? Text::ReadCallsFirst : Text::NoneOfThese;
        case Needs::Procedure:
            return now.callsRead ? Text::ChooseProcedureFirst : Text::ReadCallsFirst;
        case Needs::Reach:
            return now.callsRead ? Text::EmptyWhy : Text::ReadCallsFirst;
        case Needs::Places:
            return Text::ChooseNeighbourFirst;
        case Needs::PreviousPlace:
        case Needs::NextPlace:
            return Text::NoFurtherObject;
        case Needs::Graph:
        case Needs::Symbols:
        case Needs::SymbolsShown:
        case Needs::SelectedSymbol:
        case Needs::ProcedureSymbol:
        case Needs::TwoProcedures:
        case Needs::Layout:
        case Needs::UndoStep:
        case Needs::RedoStep:
            return WhyNotOnGraph(needs, now);
        case Needs::CallsRead:
            return Text::ReadCallsFirst;
        case Needs::Deletable:
            return Text::ChooseDeletable;
        case Needs::Deletions:
            return Text::NoDeletions;
        case Needs::EditedModule:
            return Text::NothingToSave;
        case Needs::DoneByOpening:
            return Text::DoneAtOpening;
        default:
            return Text::None;
    }
}
