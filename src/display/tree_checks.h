// The check boxes of the project tree: which objects the dependency trees and the charts are about.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "model/code_object.h"
#include "shell/settings.h"

class Baum;
class BaumNode;
class clsProjekt;

/// The objects whose check boxes are on, in the order of checking, each once under its code path.
class CheckedObjects {
public:
    void Add(CodeObject& object, std::string path);
    void Remove(std::string_view path);
    void Clear();
    /// Finds the objects again by their paths after modules were read again; drops those that no longer exist.
    void Renew(const clsProjekt& projekt);
    /// Whether an object or its module is checked.
    [[nodiscard]] bool Covers(const CodeObject& object) const;
    [[nodiscard]] const std::vector<CodeObject*>& Objects() const { return objects_; }

private:
    std::vector<CodeObject*> objects_;
    std::vector<std::string> paths_;  // of each, lower case
};

/// The effect of a check.
enum class CheckEffect { ShowGroup, ShowChart };
struct CheckAnswer {
    CheckEffect effect = CheckEffect::ShowGroup;
    /// The object to become the current one; null for a group, and while the charts are showing.
    CodeObject* current = nullptr;
};

/// After the user has checked or unchecked `node`: passes its mark on to what belongs to it and to those above, and
/// files its object in `checked`, unless the charts are showing.
CheckAnswer NodeCheck(const clsProjekt& projekt, Baum& tree, BaumNode& node, ContentMode content,
                      CheckedObjects& checked);

/// Every module or library of a kind: 1 form, 2 module, 3 class, 4 usercontrol, 5 component, 6 reference.
void Check_ModulTyp(const clsProjekt& projekt, Baum& tree, int typ, bool checked);
/// All of them, with the nodes of the kinds.
void Check_All_Modules(const clsProjekt& projekt, Baum& tree, bool checked);
