// What the class registry says about a library.
#pragma once

#include <optional>
#include <string>

#include "libraries/library_version.h"

class Registry;
class ClassRegistry;
class clsTypeLib;

struct RegisteredLibrary {
    LibraryVersion version;
    std::string path;         // as registered: a Windows path, possibly with the number of a resource
    std::string description;  // may be empty
};

/// The registration of a library in the version that serves best, which may be a wrong one, and in the language that
/// fits best. Nothing if the library is not registered.
[[nodiscard]] std::optional<RegisteredLibrary> FindRegistered(const Registry& registry, const clsTypeLib& library);

/// Sets the class of the library and its values: the first class, or the first with a picture for the toolbox.
void Get_CLSID(const ClassRegistry& registry, clsTypeLib& library);
