// What the user says about objects of a project: this is an entry point; leave this one alone though nothing reaches
// it. Kept as text, one line for each object and sorted, so that versions of the file can be merged line by line:
// Each line is a word ("entry" or "leave"), the code path, and the comment if there is one, with tabs between them. Any
// other line, such as one that begins with "'", is kept at the head of the file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

class clsProjekt;

enum class DeclaredKind : std::uint8_t { EntryPoint, LeaveAlone };

struct Declaration {
    DeclaredKind kind = DeclaredKind::EntryPoint;
    std::string codePath;  // as spelled; compared without regard to case
    std::string comment;   // one line
    bool operator==(const Declaration&) const = default;
};

/// At most one declaration for each object.
class Declared {
public:
    /// Reads the content of a file. Of several lines for one object the first one counts.
    [[nodiscard]] static Declared FromText(std::string_view text);
    /// Lines end in CR LF.
    [[nodiscard]] std::string ToText() const;

    /// Sorted by path.
    [[nodiscard]] const std::vector<Declaration>& All() const { return all_; }
    /// Null if nothing is declared about the object.
    [[nodiscard]] const Declaration* Of(std::string_view codePath) const;
    /// Takes the place of what was declared about the object.
    void Set(Declaration declaration);
    /// False if nothing was declared about it.
    bool Remove(std::string_view codePath);
    bool operator==(const Declared&) const = default;

private:
    std::vector<Declaration> all_;
    std::vector<std::string> otherLines_;
};

/// The declarations whose object the project does not have (any more).
[[nodiscard]] std::vector<Declaration> Orphaned(const Declared& declared, const clsProjekt& projekt);

/// Where the declarations of a project are kept.
struct DeclaredFiles {
    std::string besideProject;   // the project file followed by " Declared.txt"
    std::string besideSettings;  // in the folder of the settings file; empty if there is none
};
/// @param settingsFile  path of the user's settings file
[[nodiscard]] DeclaredFiles DeclaredFilesOf(const clsProjekt& projekt, std::string_view settingsFile);

/// The declarations of a project as they were found on disk.
struct StoredDeclared {
    Declared declared;
    std::string path;                   // the file they come from, or where new ones go
    FileError error = FileError::None;  // the file exists and could not be read: it must not be overwritten
};
/// That beside the project, if it exists, comes before that beside the settings. Without any file the path is that
/// beside the settings.
[[nodiscard]] StoredDeclared ReadDeclared(const Files& files, const DeclaredFiles& paths);
/// Replaces the file.
[[nodiscard]] FileError WriteDeclared(Files& files, const std::string& path, const Declared& declared);
