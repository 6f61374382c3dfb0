// The calls report: for every object of a module who calls or uses it, one tab-separated text file a module.
#pragma once

#include <string>

#include "findings/structure_report.h"

/// Content of the report. CR LF.
[[nodiscard]] std::string CallsReport(const clsModul& modul);
/// Beside the module's source.
[[nodiscard]] std::string CallsReportPath(const clsModul& modul);
/// Writes the reports of all modules, replacing what is there. A failure is reported, and the next follows.
void AnalyseErgebnisCalls(const clsProjekt& projekt, const ReportPath& path = CallsReportPath);
