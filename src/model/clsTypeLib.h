// A referenced library or component: one line of the project file.
#pragma once

#include <string>

#include "model/code_object.h"

class clsTypeLib final : public CodeObject {
public:
    clsTypeLib() : CodeObject(ObjectClass::TypeLib) {}

    LibraryKind LibTyp = LibraryKind::Reference;
    std::string ProjektEintrag;  // the whole line of the project file
    std::string TypeLibID;       // "{...}"; for a referenced project its path
    std::string Version;
    std::string Description;
    std::string InprocServer32;  // path of the library's file

    const CallGraph* graph = nullptr;  // of the project
    std::uint32_t number = 0;          // among the objects of the project
};
