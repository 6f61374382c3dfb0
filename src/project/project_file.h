// Reads a project: its file, then each library and module that it lists.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "project/module_file.h"
#include "shell/text_numbers.h"

class LibrarySearch;
class clsProjekt;

/// The text that says why a file that was read is no project, and what to do; None for a project. A project need not
/// list modules.
[[nodiscard]] Text WhyNoProject(const FileText& file);

/// Loads the project at projekt.FullPath. Once gAbort is set, no further module joins it.
/// @param search  finds the files of the libraries; without it they are not sought
void Projekt_Laden(clsProjekt& projekt, LibrarySearch* search = nullptr);

/// The modules that a project file lists, in its order.
[[nodiscard]] std::vector<ModuleSource> ModulesListed(const clsProjekt& projekt, std::string_view projectText);
/// The constants that a project file gives its project, with those that the project has anyway.
[[nodiscard]] std::vector<CondConstant> ConstantsListed(const clsProjekt& projekt, std::string_view projectText);
/// The lines that name a library, in their order.
[[nodiscard]] std::vector<std::string> LibraryLines(std::string_view projectText);
/// Sets name, type and start-up object of a project.
void ReadProjectLines(clsProjekt& projekt, std::string_view projectText);

/// Whether a line of a project file lists a module.
[[nodiscard]] bool IsModuleLine(std::string_view line);
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
