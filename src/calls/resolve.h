// Finds the code object that a name refers to, and the members of an object. These functions do not read the source
// text; they return null if nothing is found. They check the objects of a name in reading order and return the first
// match.
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

/// True if a procedure can be the target in this mode: subs and functions are called, functions and Property Get are
/// read, Property Let is assigned to, Property Set is set.
[[nodiscard]] bool MatchesMode(const clsProzedur& prozedur, AccessMode mode);

namespace modMain {

/// Looks up a bare name in a procedure or module: first the module's own objects, then the public ones. Returns null
/// for any other context.
[[nodiscard]] CodeObject* Get_Objekt_AusName(const CodeObject* context, Name name, AccessMode mode);

/// Same for a word of the module that `names` is set to.
[[nodiscard]] CodeObject* Get_Objekt_AusName(const ModuleNames& names, WordMeaning& word, AccessMode mode);

/// The type, enumeration, library or class with this type name. With a null context only public ones are found.
/// @param names  cache of earlier look-ups; null looks up without a cache
[[nodiscard]] CodeObject* Get_Typ_AusName(const CodeObject* context, Name typeName, ModuleNames* names = nullptr);

/// The member of an object's type, or of a module itself.
/// @param names  as above
[[nodiscard]] CodeObject* Get_Child(const clsProjekt& projekt, CodeObject* object, Name member, AccessMode mode,
                                    ModuleNames* names = nullptr);

/// Type of an object as a bare name: the last part of its data type, or the name of a module.
[[nodiscard]] std::string_view Get_DatenTypStr(const CodeObject* object);

}  // namespace modMain

/// Looks up a bare name among the module's own objects.
[[nodiscard]] CodeObject* Get_Object_Aus_NameM(const clsModul& modul, Name name, AccessMode mode,
                                               ModuleNames* names = nullptr);
/// Looks up a type or enumeration of the module.
[[nodiscard]] CodeObject* Get_Typ_AusNameM(const clsModul& modul, Name typeName, ModuleNames* names = nullptr);
