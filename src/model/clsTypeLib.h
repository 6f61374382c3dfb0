// A referenced library or component: one line of the project file.
#pragma once

#include <string>

#include "model/clsCollection.h"
#include "model/code_object.h"

class clsTypeLib final : public CodeObject {
public:
    clsTypeLib() : CodeObject(ObjectClass::TypeLib) {}

    [[nodiscard]] std::string CodePathOrg() const override { return std::string(myNameOrg()); }
    [[nodiscard]] std::string_view GetImageKey() const override { return "Library"; }

    std::string ProjektEintrag;  // the whole line of the project file
    LibraryKind LibTyp = LibraryKind::Reference;
    std::string TypeLibID;  // "{...}"; for a referenced project the path that stands in its place
    std::string Version;
    std::string Description;
    std::string InprocServer32;  // path of the library's file
};
