// The neighbourhood of an object: who calls or uses it, and what it calls or uses, as trees in the layout of the
// project tree. Certain and possible calls are shown by separate operations; a use counts as certain.
//
// Each operation shows a neighbour once, regardless of the number of calls, and omits objects that are checked or
// belong to a checked module: the checked objects form a group, and its trees show what the group depends on.
#pragma once

#include <string_view>

class Baum;
class BaumNode;
class CheckedObjects;
class CodeObject;
class clsModul;
class clsProjekt;

/// The whole tree for the current object, which may be null. A variable of a procedure shows its procedure, and a
/// module is shown folded.
void Show_Dependencies_AllCalledBy(const clsProjekt& projekt, const CheckedObjects& checked, const CodeObject* current,
                                   Baum& calledBy, bool mayBe);
void Show_Dependencies_AllCalls(const clsProjekt& projekt, const CheckedObjects& checked, const CodeObject* current,
                                Baum& calls, bool mayBe);
/// Both trees for all checked objects together.
void Show_Dependencies_Group(const clsProjekt& projekt, const CheckedObjects& checked, Baum& calledBy, Baum& calls,
                             bool mayBeCalledBy, bool mayBeCalls);

/// Folds the modules below the roots.
void Collapse_Module(Baum& tree);

/// Which of the four buttons above the trees are enabled.
struct DependencyButtons {
    bool CalledByReally = false;
    bool CalledByMaybe = false;
    bool CallsReally = false;
    bool CallsMaybe = false;
    bool operator==(const DependencyButtons&) const = default;
};
[[nodiscard]] DependencyButtons Activate_Dependencies(const clsProjekt& projekt, const CodeObject* current);

/// What is dropped onto the third tree: the module that `key` of a node in another tree belongs to, or those that name
/// a component. Returns the node of the first, or null when there is no such module.
BaumNode* Drop_Module(const clsProjekt& projekt, Baum& tree, std::string_view key);
