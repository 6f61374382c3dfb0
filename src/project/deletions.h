// What the user has deleted from the modules of the open project, and the only way in which the program writes into
// sources.
//
// A deletion changes no file. It is a stretch of the bytes that the file had, the module is read from the rest, and
// taking it back drops the stretch. So the text, and what is written, is always the file without some stretches of it.
#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "project/object_cut.h"
#include "project/replace.h"

class CodeObject;
class clsModul;
class clsProjekt;

/// An object that was deleted.
struct Deletion {
    int nr = 0;                      // its identity, rising in the order of deletion
    std::string path;                // of the module's file
    std::string codePath;            // of the object, as it was spelled
    std::string_view image;          // its icon
    int lines = 0;                   // that it reached over
    std::vector<Stretch> stretches;  // of the bytes that the file had
    std::vector<int> enclosedBy;     // numbers of those that took what was around its stretches, the nearest ones
};

class Deletions {
public:
    struct Refused {
        std::string codePath;
        Text why = Text::None;
    };
    struct Deleted {
        int objects = 0;               // with those that went with others
        std::vector<Refused> refused;  // could not be cut, and stay
    };
    /// Deletes objects of the project's modules. Nothing else changes in these; the project is as Replace leaves it.
    Deleted Delete(clsProjekt& projekt, const std::vector<const CodeObject*>& objects);

    /// In the order of deletion.
    [[nodiscard]] const std::vector<Deletion>& All() const { return all_; }
    [[nodiscard]] const Deletion* Find(int nr) const;
    /// The deletion that has to be taken back before this one, as it took what was around it; null for none.
    [[nodiscard]] const Deletion* Encloses(const Deletion& deletion) const;
    /// Whether the object is gone from the file, too.
    [[nodiscard]] bool IsSaved(const Deletion& deletion) const;
    /// Brings objects back, except those that others enclose. False if there are none.
    bool Undo(clsProjekt& projekt, std::vector<int> numbers);
    /// Where the object stood, as a position of the module's text as it is now.
    [[nodiscard]] Pos PositionOf(const Deletion& deletion) const;

    /// Paths of the modules whose texts differ from their files.
    [[nodiscard]] std::vector<std::string> Unsaved() const;
    [[nodiscard]] bool HasUnsaved() const;
    struct Saved {
        std::string path;
        std::string backup;  // what the file was before
        FileError error = FileError::None;
        bool fileHasChanged = false;  // by someone else, so it was not written
        [[nodiscard]] bool Ok() const { return error == FileError::None && !fileHasChanged; }
    };
    /// Writes the files of these modules, each as a whole, after a copy of what it was.
    std::vector<Saved> Save(clsProjekt& projekt);

    /// Forgets what was deleted from a module, whose file has changed and is to be read again.
    void Forget(clsProjekt& projekt, std::string_view path);
    /// After modules were read from their files: forgets what was deleted from files that are others now. The modules
    /// of a project that was loaded again get the texts that they had.
    void ModulesRead(clsProjekt& projekt);
    void Clear();

private:
    /// A file from which something was deleted.
    struct EditedFile {
        int nr = 0;  // rises in the order in which files were edited first
        std::string path;
        std::string bytes;            // before the first deletion
        FileTime date = 0;            // of the file when it was read, or written last
        std::vector<Stretch> gone;    // with all that is deleted now; merged
        std::vector<Stretch> onDisk;  // what is gone from the file itself
        [[nodiscard]] bool IsEdited() const { return gone != onDisk; }
        [[nodiscard]] bool IsAsItWas() const { return gone.empty() && onDisk.empty(); }
    };
    [[nodiscard]] Text Begin(const clsProjekt& projekt, const clsModul& modul);
    [[nodiscard]] const EditedFile* FileOf(std::string_view path) const;
    void Take(EditedFile& file, const std::vector<const CodeObject*>& objects, clsProjekt& projekt, Deleted& deleted);
    void Settle();
    void ReplaceModules(clsProjekt& projekt, const std::vector<std::string>& paths);
    Saved SaveFile(EditedFile& file, Files& files, clsModul* modul);
    void Drop(const std::set<std::string>& paths);

    std::vector<Deletion> all_;
    std::map<std::string, EditedFile, std::less<>> files_;  // by path
    int lastNr_ = 0;
    int lastFileNr_ = 0;
};
