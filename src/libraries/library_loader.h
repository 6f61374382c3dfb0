// Finds the libraries of a project and fills them with their contents. Each file is read once, also when it is looked
// at to identify it, or when several libraries take types from it.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "libraries/library_objects.h"
#include "libraries/library_search.h"
#include "model/library_file.h"

class clsProjekt;

class LibraryLoader {
public:
    /// All must outlive the loader.
    LibraryLoader(clsProjekt& projekt, LibrarySearch& search);
    ~LibraryLoader();
    LibraryLoader(const LibraryLoader&) = delete;
    LibraryLoader& operator=(const LibraryLoader&) = delete;

    /// Seeks each library of the project and reads what is found. What is wrong joins the project's problems.
    void LoadAll();

    /// Finds the libraries that others import: those that the project names itself, else in the same places.
    [[nodiscard]] ImportedLibraryFinder Finder();
    /// The file that an imported library was found in; empty if it was not found.
    [[nodiscard]] std::string FileOf(const typelib::ImportedLibrary& imported);

private:
    struct Import {
        const TypeLibrary* library = nullptr;
        std::string file;
    };

    void Load(clsTypeLib& library);
    const LibraryInFile& Read(const std::string& file, int resource);
    const Import& Imported(const typelib::ImportedLibrary& imported);
    [[nodiscard]] LibraryFile FileOfProject(const clsTypeLib& asked) const;

    clsProjekt& projekt_;
    LibrarySearch& search_;
    std::map<std::pair<std::string, int>, std::unique_ptr<const LibraryInFile>> read_;
    std::map<std::string, Import> imported_;  // by identifier and version; empty for one that is not found
};
