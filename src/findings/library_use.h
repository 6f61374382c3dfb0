// How much of a project depends on each of its libraries.
#pragma once

#include <string>
#include <string_view>
#include <vector>

class clsModul;
class clsProjekt;
class clsTypeLib;

struct LibraryUse {
    int classes = 0;    // that the library has
    int members = 0;    // of its classes, enumerations and records, with events
    int modules = 0;    // of the project that use it
    int places = 0;     // calls and uses that reach it or something in it
    int controls = 0;   // on forms and user controls
    int variables = 0;  // declared with one of its types; counted for a library that is missing
    [[nodiscard]] bool IsUsed() const { return places + controls + variables > 0; }
};

/// "3 modules", "1 module".
[[nodiscard]] std::string Counted(int number, std::string_view one, std::string_view many);

/// One entry for each library, in the order of the project file. The calls of the project must be known.
///
/// The names in a missing library are not known, only the word before the point, as in `MSComctlLib.TreeView`. It is
/// taken for a missing component if all forms that use the word name that component in their headers, and for a missing
/// reference if its file is called so, or if there is one such word and one such reference.
[[nodiscard]] std::vector<LibraryUse> UsesOfLibraries(const clsProjekt& projekt);

/// Says in the problem of each library that was not found what depends on it: controls and variables of its types, and
/// the calls that reach them once those are known.
void NoteCostsOfMissingLibraries(clsProjekt& projekt);
