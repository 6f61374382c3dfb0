// The calls report: the callers and users of every object of a module, in one tab-separated text file per module.
#pragma once

#include <string>

#include "findings/structure_report.h"

/// Content of the report, with CR LF line ends.
[[nodiscard]] std::string CallsReport(const clsModul& modul);
/// Path beside the module's source.
[[nodiscard]] std::string CallsReportPath(const clsModul& modul);
/// Writes the reports of all modules and replaces existing files. A failure is reported, and the next module follows.
/// @return false if one of them could not be written
bool AnalyseErgebnisCalls(const clsProjekt& projekt, const ReportPath& path = CallsReportPath);
