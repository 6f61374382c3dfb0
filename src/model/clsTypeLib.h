// A referenced library or component: one line of the project file.
#pragma once

#include <string>

#include "model/code_object.h"
#include "model/library_file.h"

class clsTypeLib final : public CodeObject {
public:
    clsTypeLib() : CodeObject(ObjectClass::TypeLib) {}

    LibraryKind LibTyp = LibraryKind::Reference;
    std::string ProjektEintrag;  // the whole line of the project file
    std::string TypeLibID;       // "{...}"; for a referenced project its path
    std::string Version;
    int lcid = 0;          // language of the library
    std::string LineFile;  // the file as the line of the project names it; empty if it does not
    std::string Description;
    std::string InprocServer32;  // path of the library's file; if it was not found, as the project or registry has it
    bool isProject = false;      // the line names another project

    // The class that the registry knows for the library
    std::string CLSID;
    std::string ToolboxBitmap32;
    std::string ProgID;
    std::string VersionIndependentProgID;
    int IconIndex = 0;  // in the file, from 1; 0 for none

    LibraryFile file;  // where it was sought

    const CallGraph* graph = nullptr;  // of the project
    std::uint32_t number = 0;          // among the objects of the project
};
