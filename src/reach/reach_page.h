// Answers about the reach of objects as tables, for terminals, files and spreadsheets; UTF-8, sentences in the user's
// language.
#pragma once

#include <string>
#include <vector>

#include "reach/paths.h"
#include "reach/reasons.h"

struct ReachPage {
    std::vector<std::string> head;  // lines above the table
    std::vector<std::string> columns;
    std::vector<std::vector<std::string>> rows;
    std::vector<std::string> foot;  // lines below it
};
/// Aligned columns, LF.
[[nodiscard]] std::string PageText(const ReachPage& page);
/// The table with its heading, comma-separated, CR LF.
[[nodiscard]] std::string PageTable(const ReachPage& page);

/// An object that could go.
struct DeadObject {
    const CodeObject* object = nullptr;
    Grading grading;
    int lines = 0;
};
/// What is not certainly reached, with a grade that is at least as good as `worst`, in the order of ForEachObject. The
/// members of a type or an enumeration that is itself in the list are not, as they go with it.
[[nodiscard]] std::vector<DeadObject> DeadObjectsOf(const Reasons& reasons, Grade worst = Grade::CannotTell);

/// How many of them there are, and how many lines they have together.
struct DeadTotals {
    int objects = 0;
    int lines = 0;
};
/// Those of one grade that are not to be left alone.
[[nodiscard]] DeadTotals TotalsOf(const std::vector<DeadObject>& dead, Grade grade);

[[nodiscard]] ReachPage DeadPage(const Reasons& reasons, Grade worst);
/// The reason, the grade, the chain, the entry points that reach the object, and what would die with it.
[[nodiscard]] ReachPage WhyPage(const Reasons& reasons, const CodeObject& object);
[[nodiscard]] ReachPage PathsPage(const Links& links, const CodeObject& from, const CodeObject& to);
[[nodiscard]] ReachPage ImpactPage(const Reach& reach, const CodeObject& object);
[[nodiscard]] ReachPage EntryPointsPage(const Reach& reach);

/// The kind of an object, with "declare" and "event" for such procedures.
[[nodiscard]] std::string_view KindWord(const CodeObject& object);
