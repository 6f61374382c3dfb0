// Which code object a name means in a place, and which object a member of an object is. Nothing here walks the text;
// not found is null. Look-ups go through the bearers of a name in the order of reading and take the first that fits.
#pragma once

#include <string_view>

#include "model/names.h"

class CodeObject;
class clsModul;
class clsProjekt;
class clsProzedur;
class ModuleNames;
class WordMeaning;

/// How a name is used in its statement.
enum class AccessMode { Call = 0, Read = 1, Assign = 2, Set = 3 };

/// Whether a procedure can be meant in this mode: subs and functions are called, functions and Property Get are read,
/// Property Let is assigned to, Property Set is set.
[[nodiscard]] bool MatchesMode(const clsProzedur& prozedur, AccessMode mode);

namespace modMain {

/// A bare name in a procedure or module: the module's own objects, then the public ones. Any other context finds none.
[[nodiscard]] CodeObject* Get_Objekt_AusName(const CodeObject* context, Name name, AccessMode mode);

/// The same for a word of the module that `names` is turned to.
[[nodiscard]] CodeObject* Get_Objekt_AusName(const ModuleNames& names, WordMeaning& word, AccessMode mode);

/// The type, enumeration, library or class that a type name means; a null context knows public ones only.
/// @param names  what was looked up before; null looks up anew
[[nodiscard]] CodeObject* Get_Typ_AusName(const CodeObject* context, Name typeName, ModuleNames* names = nullptr);

/// The member of an object's type, or of a module itself.
/// @param names  as above
[[nodiscard]] CodeObject* Get_Child(const clsProjekt& projekt, CodeObject* object, Name member, AccessMode mode,
                                    ModuleNames* names = nullptr);

/// Type of an object as a bare name: the last part of its data type, or a module's own name.
[[nodiscard]] std::string_view Get_DatenTypStr(const CodeObject* object);

}  // namespace modMain

/// A bare name among the module's own objects.
[[nodiscard]] CodeObject* Get_Object_Aus_NameM(const clsModul& modul, Name name, AccessMode mode,
                                               ModuleNames* names = nullptr);
/// A type or enumeration of the module.
[[nodiscard]] CodeObject* Get_Typ_AusNameM(const clsModul& modul, Name typeName, ModuleNames* names = nullptr);
