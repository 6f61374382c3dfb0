// The only function that adds, exchanges and removes the modules of a project.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "project/module_file.h"

class clsProjekt;

/// One step of a change.
struct ModuleChange {
    /// Index of the module in OwnedModules, from 0; nothing for a new module, which is appended.
    std::optional<std::size_t> place;
    /// The module to read; nothing to remove the one at `place`.
    std::optional<ModuleSource> source;
};

/// What becomes of a module that was read: it joins the project, it is dropped and the one at its place stays, or this
/// and all later changes are omitted.
enum class Taken : std::uint8_t { Yes, No, NoMore };

/// Called for each module read, in the order of the changes, before it joins the project.
using ModuleRead = std::function<Taken(std::size_t change, const clsModul& modul)>;

/// Reads the modules that change, on all processors, exchanges them, and derives the rest again: the index of names,
/// and, where they were known, the graph of calls and the marks. Raises the generation and calls the project's
/// listeners once. Pointers to objects of exchanged modules are invalid afterwards, and so is every clsCall. Changes of
/// which none was taken leave everything as it is.
/// @param order  indices of all modules as the project is to have them: those of OwnedModules, and after them those
///               appended; empty if they stay in this order
void Replace(clsProjekt& projekt, const std::vector<ModuleChange>& changes, const ModuleRead& taken = {},
             const std::vector<std::size_t>& order = {});
