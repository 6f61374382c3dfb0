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

/// What a tree shows: who calls an object, or what it calls; for certain or possibly.
struct Neighbourhood {
    bool callers = true;
    bool mayBe = false;
};

/// The whole tree for the current object, which may be null. A variable of a procedure shows its procedure, and a
/// module is shown folded. Returns how many calls and uses the tree stands for.
int Show_Dependencies_AllCalledBy(const clsProjekt& projekt, const CheckedObjects& checked, const CodeObject* current,
                                  Baum& calledBy, bool mayBe);
int Show_Dependencies_AllCalls(const clsProjekt& projekt, const CheckedObjects& checked, const CodeObject* current,
                               Baum& calls, bool mayBe);
/// Calls and uses that two trees stand for.
struct EdgeCounts {
    int calledBy = 0;
    int calls = 0;
};
/// Both trees for all checked objects together.
EdgeCounts Show_Dependencies_Group(const clsProjekt& projekt, const CheckedObjects& checked, Baum& calledBy,
                                   Baum& calls, bool mayBeCalledBy, bool mayBeCalls);
/// Adds the neighbours of a neighbour below its node. One that is above, or is the current object, says so and does
/// not unfold, so that recursion ends.
void Unfold(const clsProjekt& projekt, const CheckedObjects& checked, const CodeObject* current, Baum& tree,
            BaumNode& node, Neighbourhood shown);

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
