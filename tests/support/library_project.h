// A project with a library whose contents a test can see at one glance.
#pragma once

#include "libraries/library_objects.h"
#include "support/project_test.h"

inline LibraryArgument ArgumentOfLib(std::string name, LibraryDataType type, bool isByRef) {
    LibraryArgument argument;
    argument.name = std::move(name);
    argument.type = std::move(type);
    argument.isByRef = isByRef;
    return argument;
}
inline LibraryProcedure ProcedureOfLib(std::string name, ProcKind kind, LibraryDataType type,
                                       std::vector<LibraryArgument> arguments = {}) {
    LibraryProcedure procedure;
    procedure.name = std::move(name);
    procedure.kind = kind;
    procedure.type = std::move(type);
    procedure.arguments = std::move(arguments);
    return procedure;
}
inline LibraryVariable VariableOfLib(std::string name, LibraryDataType type, std::string value = {}) {
    LibraryVariable variable;
    variable.name = std::move(name);
    variable.type = std::move(type);
    variable.value = std::move(value);
    return variable;
}

/// Contents of a library "Lib": a class Box with a property, a hidden function, and a method and an event of one name;
/// a module with a constant, an enumeration and a record.
inline LibraryContents ContentsOfLib() {
    const LibraryDataType none{"", "", ""};
    const LibraryDataType longType{"Long", "long", ""};
    LibraryContents contents;
    LibraryClass box;
    box.name = "Box";
    box.description = "Holds things";
    box.procedures = {
        ProcedureOfLib("Price", ProcKind::PropertyGet, {"Currency", "", ""}),
        ProcedureOfLib("Fill", ProcKind::Sub, none, {ArgumentOfLib("Path", {"String", "string", ""}, false)}),
        ProcedureOfLib("Secret", ProcKind::Function, longType)};
    box.procedures[1].description = "Fills it";
    box.procedures[2].isHidden = true;
    box.events = {ProcedureOfLib("Fill", ProcKind::Sub, none, {ArgumentOfLib("Cancel", longType, true)})};
    LibraryClass limits;
    limits.name = "Limits";
    limits.kind = ModuleKind::Module;
    limits.constants = {VariableOfLib("Most", longType, "9")};
    contents.classes = {box, limits};
    LibraryGroup group;
    group.name = "Shape";
    group.members = {VariableOfLib("Round", longType, "3")};
    contents.enums = {group};
    group.name = "Pair";
    group.members = {VariableOfLib("First", {"Long", "long", "(0 To 3)"})};
    contents.records = {group};
    return contents;
}

/// Reads a project of a form F with this code and a reference to the library Lib.
inline void ReadProjectWithLib(const std::string& code) {
    ReadProject({{"App.vbp", "Type=Exe\nReference=*\\G{1}#2.0#0#c:\\x\\lib.tlb#Lib\nForm=F.frm\n"}, {"F.frm", code}});
    clsTypeLib& library = *gProjekt->OwnedLibraries().front();
    library.SetName(gProjekt->TheNames().Intern("Lib"));
    ReadInterfaces(*gProjekt, library, ContentsOfLib());
    gProjekt->SetModules(gProjekt->TakeModules());
    Analyse();
}
