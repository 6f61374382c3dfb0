// Reads a project: its file, then each library and module that it lists.
#pragma once

#include <functional>
#include <string>
#include <string_view>

class LibrarySearch;
class clsProjekt;

/// Loads the project at projekt.FullPath. Once gAbort is set, no further module joins it.
/// @param search  finds the files of the libraries; without it they are not sought
void Projekt_Laden(clsProjekt& projekt, LibrarySearch* search = nullptr);

/// Reads the modules again whose files have changed, and derives the rest again. Asks about a file that no longer
/// exists, as loading does. Returns the number of changed files.
int ChangedModule_Regenerieren(clsProjekt& projekt);
/// The number of files that have changed.
[[nodiscard]] int CountChangedModules(const clsProjekt& projekt);

/// Text between the first two quotes of the last Name line of the project file.
[[nodiscard]] std::string Get_ProjektName(const clsProjekt& projekt);

/// Full path of the file that a module line names.
/// @param projektDir  directory of the project file with its separator
[[nodiscard]] std::string Get_Pfad_Aus_ModulEintrag(std::string_view projektDir, std::string_view eintrag);

// Numbers of lines, for the length of the progress bar. "Usercontrol" is counted in this spelling only, so
// user controls are left out of the first.
[[nodiscard]] int GetAnzahlModule(std::string_view projectText);
[[nodiscard]] int GetAnzahlComponents(std::string_view projectText);
[[nodiscard]] int GetAnzahlReferences(std::string_view projectText);

/// Sets the project's conditional constants from its CondComp lines; its definedCondComps come last.
void CondComp_Init(clsProjekt& projekt, std::string_view projectText);

/// Calls `line` for each line of a text with CR LF line ends, without them.
void ForEachLine(std::string_view text, const std::function<void(std::string_view line)>& line);
