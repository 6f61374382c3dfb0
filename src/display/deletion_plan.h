// What a deletion would take, and who still calls it: the user decides on that.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "shell/text_numbers.h"

class Baum;
class BaumNode;
class CheckedObjects;
class CodeObject;
class LocalUses;
class clsProjekt;

/// An object that is to be deleted. Texts are bytes, as in the source.
struct DeletionRow {
    std::string key;  // of its node
    std::string path;
    std::string_view image;
    int lines = 0;
    std::vector<std::string> certain, possible;  // paths of the callers that stay, each once
    bool losesCallers = false;                   // others that go as well call it
    std::vector<std::string> inside;             // names of the controls that go with it
    Text whyNot = Text::None;                    // it cannot be deleted
};

/// Whether it is an object that has a text of its own in a module, or a module.
[[nodiscard]] bool CanBeDeleted(const CodeObject& object);
/// What has to be deleted one by one so that `object` is gone: itself, and for a module its variables and procedures.
[[nodiscard]] std::vector<const CodeObject*> ObjectsToDelete(const CodeObject& object);

/// The dead objects of the nodes below `node`, of whole modules where it stands for one. Left out are the procedure
/// that Visual Basic runs first, and what something else names: the type of a living variable is dead, too, if no
/// member of it is called. In the order of the modules.
[[nodiscard]] std::vector<const CodeObject*> DeadBelow(const clsProjekt& projekt, const BaumNode& node);
/// The same of the checked objects.
[[nodiscard]] std::vector<const CodeObject*> DeadAmong(const clsProjekt& projekt, const CheckedObjects& checked);

/// @param locals  knows the procedures whose locals are among the objects
[[nodiscard]] std::vector<DeletionRow> DeletionRows(const clsProjekt& projekt, const LocalUses& locals,
                                                    const std::vector<const CodeObject*>& objects);
