// The deaths report: the objects that nothing calls, module by module, in one text file for the project. Any caller
// counts, even a dead one.
#pragma once

#include <string>

class clsModul;
class clsProjekt;

/// Block of one module, or an empty text if everything in it is called. Line ends are CR LF.
[[nodiscard]] std::string DeathsReport(const clsModul& modul);
/// Path beside the project file.
[[nodiscard]] std::string DeathsReportPath(const clsProjekt& projekt);
/// Writes the blocks of all modules: Modules, Klassenmodule, Formulare, UserControls. A failure is reported,
/// and false comes back.
bool AnalyseErgebnisDeaths(const clsProjekt& projekt, const std::string& path);
