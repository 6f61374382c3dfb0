// Notices what has changed on disk since a project was read, and reads that again.
//
// A file that cannot be read does no harm: its module stays as it was read last, and a problem says so.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "shell/text_numbers.h"

class clsModul;
class clsProjekt;

enum class FileChange : std::uint8_t {
    Changed,
    BeingWritten,  // changed less than a second ago: it may not be whole yet
    Gone,          // does not exist any more
    Edited,        // what was deleted from its module is not saved, and reading it would bring that back
};

struct ChangedFile {
    std::string path;  // as the project spells it
    FileTime date = 0;
    FileChange what = FileChange::Changed;
    bool operator==(const ChangedFile&) const = default;
};

struct ChangedFiles {
    std::vector<ChangedFile> files;  // that of the project first, then those of modules in their order
    bool project = false;            // the project file is among them
    Text whyNoProject = Text::None;  // why that cannot be read any more
    [[nodiscard]] bool Has(FileChange what) const;
};
/// What has changed since the project was read. A file that is known to be missing or unreadable has changed when it
/// can be read again.
[[nodiscard]] ChangedFiles Files_Check(const clsProjekt& projekt);

/// How the project file lists other things than when it was read.
struct ProjectFileChange {
    enum class What : std::uint8_t {
        ModuleAdded,
        ModuleRemoved,
        ModuleMoved,    // the same file name in another directory
        ModuleRenamed,  // another file name
        Constants,
        LibraryAdded,
        LibraryRemoved,
        StartUp,
    };
    What what;
    std::string name;  // of the file; bytes as in the project file
    bool operator==(const ProjectFileChange&) const = default;
};
[[nodiscard]] std::vector<ProjectFileChange> ChangesOfProjectFile(const clsProjekt& projekt,
                                                                  std::string_view projectText);
/// Whether such a project file means loading the project again as a whole: libraries are not exchanged one by one.
[[nodiscard]] bool NeedsWholeLoad(const clsProjekt& projekt, std::string_view projectText);

/// The modules that ChangedModule_Regenerieren would read or remove now, if the project file has that text.
[[nodiscard]] std::vector<const clsModul*> ModulesToRead(const clsProjekt& projekt, std::string_view projectText);

struct FilesRead {
    int files = 0;       // that have changed
    int unreadable = 0;  // of them
    std::vector<ProjectFileChange> project;
};
/// Reads the modules again whose files have changed, takes over what the project file lists now, and derives the rest
/// again, all in one run. Files that are being written stay for the next time, and those of
/// edited modules for as long as these are not saved. A project file that cannot be read, or
/// that NeedsWholeLoad, is left alone.
FilesRead ChangedModule_Regenerieren(clsProjekt& projekt);
