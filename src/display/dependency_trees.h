// The neighbourhood of an object: who calls or uses it, and what it calls or uses, as trees in the layout of the
// project tree. Certain and possible calls are shown by separate operations; a use counts as certain.
//
// Each operation shows a neighbour once, however many calls stand behind it, and leaves out objects that are checked
// themselves or stand in a checked module. With `clear` the tree is emptied first, and the modules shown are opened.
#pragma once

#include <string_view>

class Baum;
class BaumNode;
class CodeObject;
class clsModul;
class clsProjekt;

/// The object's node in the tree, made with all its ancestors where it is missing. Null for an object that has no
/// place.
BaumNode* Anzeigen_InBaum(const CodeObject& object, Baum& tree);

// Any class of object; one that has no such neighbours shows none. For a module all it holds is looked at, for a type
// or an enumeration its members as well.
void Anzeigen_CalledBy(const clsProjekt& projekt, const CodeObject& object, Baum& tree, bool clear);
void Anzeigen_MayBe_CalledBy(const clsProjekt& projekt, const CodeObject& object, Baum& tree, bool clear);
void Anzeigen_Calls(const clsProjekt& projekt, const CodeObject& object, Baum& tree, bool clear);
void Anzeigen_MayBe_Calls(const clsProjekt& projekt, const CodeObject& object, Baum& tree, bool clear);
/// What a procedure, module or type uses.
void Anzeigen_Uses(const clsProjekt& projekt, const CodeObject& object, Baum& tree, bool clear);
/// Who uses a module, type, enumeration or library.
void Anzeigen_UsedBy(const clsProjekt& projekt, const CodeObject& object, Baum& tree, bool clear);

/// The whole tree for the current object, which may be null. A variable of a procedure shows its procedure, and a
/// module is shown folded.
void Show_Dependencies_AllCalledBy(const clsProjekt& projekt, const CodeObject* current, Baum& calledBy, bool mayBe,
                                   bool clear);
void Show_Dependencies_AllCalls(const clsProjekt& projekt, const CodeObject* current, Baum& calls, bool mayBe,
                                bool clear);
/// Both trees for all checked objects together.
void Show_Dependencies_Group(const clsProjekt& projekt, Baum& calledBy, Baum& calls, bool mayBeCalledBy,
                             bool mayBeCalls);

/// Folds the modules below the roots.
void Collapse_Module(Baum& tree);
/// Whether an object or its module is checked.
[[nodiscard]] bool Exist_In_CheckedObjects(const CodeObject& object);

/// Which of the four buttons above the trees are enabled.
struct DependencyButtons {
    bool CalledByReally = false;
    bool CalledByMaybe = false;
    bool CallsReally = false;
    bool CallsMaybe = false;
    bool operator==(const DependencyButtons&) const = default;
};
[[nodiscard]] DependencyButtons Activate_Dependencies(const clsProjekt& projekt, const CodeObject* current);

/// What is dropped onto the third tree: the module that `key` of a node in another tree belongs to. Returns its node,
/// or null when there is no such module.
BaumNode* Drop_Module(const clsProjekt& projekt, Baum& tree, std::string_view key);
