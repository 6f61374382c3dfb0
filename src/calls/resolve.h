// Finds the code object that a name refers to, and the members of an object. These functions do not read the source
// text; they return null if nothing is found. They check the objects of a name in reading order and return the first
// match.
#pragma once

#include <string_view>

#include "model/names.h"

class CodeObject;
class clsControl;
class clsModul;
class clsProjekt;
class clsProzedur;
class ModuleNames;
class WordMeaning;

/// How a name is used in its statement.
enum class AccessMode { Call = 0, Read = 1, Assign = 2, Set = 3 };

/// True if a procedure can be the target in this mode: subs and functions are called, functions and Property Get are
/// read, Property Let is assigned to, Property Set is set.
[[nodiscard]] bool MatchesMode(const clsProzedur& prozedur, AccessMode mode);

namespace modMain {

/// A bare name, as a word of the module that `names` is turned to: the module's own objects, then the public ones.
[[nodiscard]] CodeObject* Get_Objekt_AusName(const ModuleNames& names, WordMeaning& word, AccessMode mode);

/// The type, enumeration, library or class that a type name means in the module of `context`; a null context knows
/// public ones only.
[[nodiscard]] CodeObject* Get_Typ_AusName(const CodeObject* context, Name typeName, ModuleNames& names);

/// The user control of the project or the class of a component that a control on a form is; null for any other. Of
/// several components the last one serves.
[[nodiscard]] clsModul* Get_Typ_VonControl(const clsProjekt& projekt, const clsControl& control);

/// The member of an object's type, or of a module itself.
[[nodiscard]] CodeObject* Get_Child(const clsProjekt& projekt, CodeObject* object, Name member, AccessMode mode,
                                    ModuleNames& names);

}  // namespace modMain
