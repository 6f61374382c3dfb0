// Texts about a library and its objects, made from the project's code objects: the page that the code view shows, the
// line that declares a member, its type.
#pragma once

#include <string>
#include <string_view>

#include "display/code_colours.h"
#include "model/library_file.h"
#include "shell/text_numbers.h"

class CodeObject;
class clsTypeLib;

/// The readable page of a library: first the path of its file, then what it is, then all that it offers with
/// signatures; of a missing library every place where it was sought. Its labels are in the user's language. Knows where
/// it names each object.
[[nodiscard]] CodeText LibraryText(const clsTypeLib& library);

/// The library that an object is or belongs to, or null.
[[nodiscard]] const clsTypeLib* LibraryOf(const CodeObject& object);

/// "Property Get Item(ByVal Key As Variant) As Currency": the declaration of a member, argument or block of a library;
/// empty for libraries and for objects of the project.
[[nodiscard]] std::string LibraryDeclaration(const CodeObject& object);

/// The data type of a variable, control or procedure: of a library's object as a declaration spells it, else that of
/// the model.
[[nodiscard]] std::string_view ShownTypeOf(const CodeObject& object);

/// A step of the search for a library, in the user's language: "Project folder".
[[nodiscard]] Text LabelOf(LibraryStep step);
/// What came of it and where: "missing: /home/me/OldProgram".
[[nodiscard]] std::string OutcomeText(const LibraryPlace& place);
