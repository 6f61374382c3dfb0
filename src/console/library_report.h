// One type library by itself, without a project: what `ostrivane-report --library` prints.
#pragma once

#include <iosfwd>
#include <nlohmann/json_fwd.hpp>

class LibraryLoader;
class clsTypeLib;
struct TypeLibrary;

/// Writes `library`, and the code objects made of it, as one JSON object in UTF-8; docs/json.md describes it.
/// @param loader  has made the objects and knows the files of imported libraries
void WriteLibraryJson(std::ostream& out, const TypeLibrary& library, const clsTypeLib& objects, LibraryLoader& loader);

/// Adds the code objects of a library to `json`: "classes", "enums", "records".
void AddContents(nlohmann::ordered_json& json, const clsTypeLib& library);
