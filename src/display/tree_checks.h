// The check boxes of the project tree: which objects the dependency trees and the charts are about.
#pragma once

#include <unordered_set>
#include <vector>

#include "model/code_object.h"

class Baum;
class BaumNode;
class clsProjekt;

/// The objects whose check boxes are on, in the order of the tree. They last for one generation of the project.
class CheckedObjects {
public:
    void Add(CodeObject& object);
    /// Whether an object or its module is checked.
    [[nodiscard]] bool Covers(const CodeObject& object) const;
    [[nodiscard]] const std::vector<CodeObject*>& Objects() const { return objects_; }
    [[nodiscard]] bool Empty() const { return objects_.empty(); }

private:
    std::vector<CodeObject*> objects_;
    std::unordered_set<const CodeObject*> known_;
};

/// Always read off the tree, so that nothing is checked that does not look so.
[[nodiscard]] CheckedObjects CheckedIn(const clsProjekt& projekt, const Baum& tree);

/// After the user has checked or unchecked `node`: passes its mark on to what belongs to it and to those above.
void NodeCheck(const clsProjekt& projekt, Baum& tree, BaumNode& node);

/// Every module or library of a kind: 1 form, 2 module, 3 class, 4 usercontrol, 5 component, 6 reference. Unchecking
/// includes all that they contain.
void Check_ModulTyp(Baum& tree, int typ, bool checked);
/// All of them, with the nodes of the kinds.
void Check_All_Modules(Baum& tree, bool checked);
