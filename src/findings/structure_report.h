// The structure report: the declarations of a module, in one text file per module.
#pragma once

#include <functional>
#include <string>

class clsModul;
class clsProjekt;

/// Content of the report: types, enumerations, variables, controls and procedures, each with its members. CR LF.
[[nodiscard]] std::string StructureReport(const clsModul& modul);

/// Path of a module's report; by default beside its source.
using ReportPath = std::function<std::string(const clsModul& modul)>;
[[nodiscard]] std::string StructureReportPath(const clsModul& modul);

/// Writes the report of one module and replaces an existing file. A failure is reported, and false comes back.
bool AnalyseErgebnisStructure(const clsProjekt& projekt, const clsModul& modul, const std::string& path);

/// Writes the reports of all modules: Modules, Klassenmodule, Formulare, UserControls.
/// @return false if one of them could not be written
bool AnalyseErgebnisStructure(const clsProjekt& projekt, const ReportPath& path = StructureReportPath);
