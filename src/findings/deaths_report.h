// The deaths report: what nothing calls, module by module, in one text file for the project. It goes by callers alone
// and does not follow chains of dead callers.
#pragma once

#include <string>

class clsModul;
class clsProjekt;

/// Block of one module, or an empty text when everything in it is called. CR LF.
[[nodiscard]] std::string DeathsReport(const clsModul& modul);
/// Beside the project file.
[[nodiscard]] std::string DeathsReportPath(const clsProjekt& projekt);
/// Writes the blocks of all modules: Modules, Klassenmodule, Formulare, UserControls. A failure is reported.
void AnalyseErgebnisDeaths(const clsProjekt& projekt, const std::string& path);
