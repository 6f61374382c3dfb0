// What a refresh has changed in the objects of a project, as a list and as numbers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "display/overview_lists.h"
#include "project/refresh.h"

class CodeObject;
class clsModul;

struct RefreshChanges {
    int changed = 0;    // procedures with another text
    int added = 0;      // new procedures
    int gone = 0;       // procedures
    int others = 0;     // other objects that have changed, come or gone, and changes of the project file
    int newlyDead = 0;  // objects of all kinds
    int noLongerDead = 0;
    int unreadable = 0;              // files whose modules stay as they were
    std::vector<ListedObject> rows;  // of all these
};

/// What has to be known of a project before a refresh. Objects are compared by kind and path, and by their texts, so
/// that a procedure which is only at another place has not changed. Modules that are not read again have the same
/// objects afterwards: their marks are all that can differ.
class GenerationRecord {
public:
    /// @param changing  the modules that will be read again
    GenerationRecord(const clsProjekt& projekt, const std::vector<const clsModul*>& changing);

    /// An object of a module which was not read again, with another mark than before.
    struct Marked {
        const CodeObject* object;
        bool wasDead;
    };
    [[nodiscard]] std::vector<Marked> MarkedOtherwise(const clsProjekt& now) const;
    /// Whether a module was there before and was not read again.
    [[nodiscard]] bool Has(const clsModul& modul) const { return marks_.contains(&modul); }
    /// The code paths of the modules that were to be read again.
    [[nodiscard]] const std::vector<std::string>& ChangingPaths() const { return changingPaths_; }
    [[nodiscard]] RefreshChanges ChangesTo(const clsProjekt& now, const FilesRead& read) const;

private:
    struct Known {
        std::string key;  // path and kind
        ListedObject row;
        std::size_t text;
        bool isDead;
        bool isProcedure;
        bool isMember;  // of a type or enumeration, whose text it belongs to
    };
    class Comparison;
    [[nodiscard]] static Known KnownOf(const CodeObject& object, bool marksKnown);

    std::unordered_map<const clsModul*, std::vector<std::int16_t>> marks_;
    std::vector<Known> objects_;  // of the modules that change
    std::vector<std::string> changingPaths_;
    bool marksKnown_;
};
