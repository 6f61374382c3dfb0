// The check boxes of the project tree: which objects the dependency trees and the charts are about.
#pragma once

#include <string_view>

#include "model/clsCollection.h"
#include "model/code_object.h"
#include "shell/settings.h"

class Baum;
class BaumNode;
class clsProjekt;

/// The checked objects in the order of checking, keyed by CodePath. It owns none of them.
extern clsCollection<CodeObject> gCheckedObjects;

/// Forgets all checked objects, as when a project is closed.
void CheckedObjects_Reset();
/// Finds the objects anew under their paths after modules were read again; those that are gone are taken out.
void CheckedObjects_Renew(const clsProjekt& projekt);

/// What follows a check.
enum class CheckEffect { ShowGroup, ShowChart };
struct CheckAnswer {
    CheckEffect effect = CheckEffect::ShowGroup;
    /// The object to become the current one; null for a group, and while the charts are showing.
    CodeObject* current = nullptr;
};

/// After the user has checked or unchecked `node`: passes its mark on to what belongs to it and to those above, and
/// files its object in gCheckedObjects, unless the charts are showing.
CheckAnswer NodeCheck(clsProjekt& projekt, Baum& tree, BaumNode& node, ContentMode content);

/// Every module or library of a kind: 1 form, 2 module, 3 class, 4 usercontrol, 5 component, 6 reference.
void Check_ModulTyp(const clsProjekt& projekt, Baum& tree, int typ, bool checked);
/// All of them, with the nodes of the kinds.
void Check_All_Modules(const clsProjekt& projekt, Baum& tree, bool checked);
