// One type library by itself, without a project: what `ostrivane-report --library` prints.
#pragma once

#include <iosfwd>

class clsTypeLib;
struct TypeLibrary;

/// Writes `library`, and the code objects made of it, as one JSON object in UTF-8; docs/json.md describes it.
void WriteLibraryJson(std::ostream& out, const TypeLibrary& library, const clsTypeLib& objects);
