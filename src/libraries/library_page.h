// The readable page of a library: what it is, and all that it offers with signatures.
#pragma once

#include <string>
#include <string_view>

#include "libraries/library_contents.h"

/// In UTF-8, with LF at the line ends.
/// @param file  path of the library as it is shown
[[nodiscard]] std::string LibraryPage(const TypeLibrary& library, const LibraryContents& contents,
                                      std::string_view file);

/// "Class ", "Control " or "Module ": what stands before the name of a class.
[[nodiscard]] std::string_view KindText(ModuleKind kind);

/// "Property Get Item(ByVal Index As Variant, Optional ByRef Sub As Variant) As Shape"
[[nodiscard]] std::string Signature(const LibraryProcedure& procedure);
