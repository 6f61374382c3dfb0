// The files of a kind of report: which there will be, and their writing. They go beside the sources, each beside its
// module, or all into one folder under names that differ.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

class clsProjekt;

enum class ReportKind : std::uint8_t { Structure, Calls, Deaths };

/// @param folder  of all files; empty for the places beside the sources
[[nodiscard]] std::vector<std::string> ReportFiles(const clsProjekt& projekt, ReportKind kind,
                                                   const std::string& folder);
/// Replaces existing files. `folder` exists. Failures are reported.
/// @return false if one of the files could not be written
bool WriteReportFiles(const clsProjekt& projekt, ReportKind kind, const std::string& folder);

/// What happens when they are written.
struct ReportPlan {
    int files = 0;  // files of the same path count once
    int folders = 0;
    int existing = 0;         // of the files: those are replaced
    std::string folder = {};  // where they go if that is one, as the system spells it; empty for several
    bool operator==(const ReportPlan&) const = default;
};
[[nodiscard]] ReportPlan PlanReports(const clsProjekt& projekt, ReportKind kind, const std::string& folder);
