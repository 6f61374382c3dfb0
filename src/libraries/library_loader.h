// Finds the libraries of a project and fills them with their contents. Each file is read once, also when it is looked
// at to identify it, or when several libraries take types from it.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "libraries/library_objects.h"
#include "libraries/library_search.h"

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

    /// Finds the libraries that others import, in the same places.
    [[nodiscard]] ImportedLibraryFinder Finder();

private:
    void Load(clsTypeLib& library);
    const LibraryInFile& Read(const std::string& file, int resource);
    const TypeLibrary* Imported(const typelib::ImportedLibrary& imported);

    clsProjekt& projekt_;
    LibrarySearch& search_;
    std::map<std::pair<std::string, int>, std::unique_ptr<const LibraryInFile>> read_;
    std::map<std::string, const TypeLibrary*> imported_;  // by identifier; null for one that is not found
};
