// Fills a library of a project with code objects, which are resolved, called, shown and addressed like those of the
// project.
#pragma once

#include <string>
#include <string_view>

#include "libraries/library_contents.h"
#include "platform/files.h"

class clsProjekt;
class clsTypeLib;

/// Creates the code objects of `contents` in `library`, which has none yet. Names are those of the project.
void ReadInterfaces(clsProjekt& projekt, clsTypeLib& library, const LibraryContents& contents);

/// File and identifier of the libraries that this one imports and needs, and that were not found.
[[nodiscard]] std::string_view MissingImports(const clsTypeLib& library);

struct LibraryInFile {
    TypeLibrary library;
    FileError error = FileError::None;  // any value but None leaves `library` empty
};
/// Reads the type library at a path.
[[nodiscard]] LibraryInFile ReadLibraryFile(const Files& files, std::string_view path);
