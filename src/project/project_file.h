// Reads a project: its file, then each library and module that it lists.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "shell/text_numbers.h"

class LibrarySearch;
class clsProjekt;

/// The text that says why a file that was read is no project, and what to do; None for a project. A project need not
/// list modules.
[[nodiscard]] Text WhyNoProject(const FileText& file);

/// Loads the project at projekt.FullPath. Once gAbort is set, no further module joins it.
/// @param search  finds the files of the libraries; without it they are not sought
void Projekt_Laden(clsProjekt& projekt, LibrarySearch* search = nullptr);

/// What has changed on disk since the project was read.
struct ChangedFiles {
    Text whyNoProject = Text::None;   // why the project file cannot be read any more
    bool project = false;             // the project file
    int modules = 0;                  // files of modules; with those that were missing and exist now
    std::vector<std::string> edited;  // files of modules from which something was deleted that is not saved
};
[[nodiscard]] ChangedFiles Files_Check(const clsProjekt& projekt);

struct FilesRead {
    int files = 0;
    int unreadable = 0;  // of them
};
/// Reads the modules again whose files have changed, and derives the rest again. Asks about a file that no longer
/// exists, as loading does; once gAbort is set, the modules not yet taken stay as they are. Edited modules stay, too. A
/// changed project file means loading the project again.
FilesRead ChangedModule_Regenerieren(clsProjekt& projekt);

/// Text between the first two quotes of the last Name line of the project file.
[[nodiscard]] std::string Get_ProjektName(const clsProjekt& projekt);

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
