// The list of problems as the window shows it: problems of one kind and wording are one entry with all their places.
#pragma once

#include <string>
#include <vector>

#include "platform/files.h"
#include "shell/text_numbers.h"

class clsProjekt;

struct ProblemPlace {
    std::string path;    // of the file; empty if there is none
    std::string module;  // its name if it is a module of the project; bytes as in the source
    std::string node;    // key of the module's node in the project tree; empty if it has none
    int line = 0;        // in the file, from 1; 0 if unknown
    std::string tag;     // of the report
    bool operator==(const ProblemPlace&) const = default;
};

struct ProblemEntry {
    std::string text;
    Text meaning = Text::None;         // for the results
    std::vector<ProblemPlace> places;  // in the order of their reports, at least one
    FileError file = FileError::None;  // has a text in the user's language, too
    bool operator==(const ProblemEntry&) const = default;
};

/// The places of an entry one after the other, for a command that goes to the next one each time.
class ProblemWalk {
public:
    /// The next place that has a node: the first of another entry than the last one, the first again after the last.
    /// Null if there is none.
    const ProblemPlace* Next(const ProblemEntry& entry);
    void Restart() { text_.clear(); }

private:
    std::string text_;      // of the entry
    std::size_t next_ = 0;  // in its places
};

/// The problems of a project in the order of their first reports, hints after all others.
[[nodiscard]] std::vector<ProblemEntry> ProblemEntries(const clsProjekt& projekt);
