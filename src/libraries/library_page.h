// The readable page of a library: what it is, and all that it offers with signatures.
#pragma once

#include <string>
#include <string_view>

#include "libraries/library_contents.h"

/// In UTF-8, with LF at the line ends.
/// @param file  path of the library as it is shown
[[nodiscard]] std::string LibraryPage(const TypeLibrary& library, const LibraryContents& contents,
                                      std::string_view file);

/// "Const Most As Long = 9", or "Round = 3" and "First(0 To 3) As Long" for a member of an enumeration or a record.
[[nodiscard]] std::string VariableLine(const LibraryVariable& variable, bool isConst);

/// Texts of a library are foreign: a line break in one would look like a line of the page.
[[nodiscard]] std::string OneLine(std::string text);

/// "Class ", "Control " or "Module ": what comes before the name of a class.
[[nodiscard]] std::string_view KindText(ModuleKind kind);

/// "Property Get Item(ByVal Index As Variant, Optional ByRef Sub As Variant) As Shape"
[[nodiscard]] std::string Signature(const LibraryProcedure& procedure);
