// The one way in which modules of a project come, change and go: opening, refreshing, deleting and undoing.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "project/module_file.h"

class clsProjekt;

/// One step of a change.
struct ModuleChange {
    /// Place of the module in OwnedModules, from 0; nothing for a new module, which comes after all others.
    std::optional<std::size_t> place;
    /// What is read in its place; nothing for a module that goes.
    std::optional<ModuleSource> source;
};

/// Called for each module read, in the order of the changes, before it joins. Returns false to leave this and all later
/// changes out.
using ModuleRead = std::function<bool(std::size_t change, const clsModul& modul)>;

/// Reads the modules that change, on all processors, exchanges them, and derives the rest again: the index of names,
/// and the graph of calls and the marks where they were known. Tells the project's listeners once, with a new
/// generation. Pointers to objects of exchanged modules are invalid afterwards, and so is every clsCall.
void Replace(clsProjekt& projekt, const std::vector<ModuleChange>& changes, const ModuleRead& taken = {});
