// How many modules, objects, edges and marks there are in a project or a part of it.
#pragma once

#include <functional>

class CodeObject;
class clsModul;
class clsProjekt;

struct ModuleCounts {
    int procedures = 0;
    int variables = 0;  // of modules, members of types and enumerations, arguments and locals
    int types = 0;
    int enums = 0;
    int controls = 0;

    /// Adds the objects of a module.
    void Add(const clsModul& modul);
};

struct CallCounts {
    int really = 0, mayBe = 0, uses = 0;
    int dead = 0, undead = 0;
    int marked = 0;  // all that can be dead
};
/// Calls `use` for every object that can be dead: procedures, variables of modules, types, their members, and
/// enumerations with theirs.
void ForEachMarked(const clsProjekt& projekt, const std::function<void(const CodeObject&)>& use);
[[nodiscard]] CallCounts CountCalls(const clsProjekt& projekt);
