// Adds libraries with contents to the open project.
#pragma once

#include <string>

#include "libraries/library_objects.h"
#include "model/clsProjekt.h"
#include "project/start.h"

/// A class of a library with subs of these names, and a property of type `child` for a name that begins with "Get".
inline LibraryClass ClassOf(const std::string& name, std::initializer_list<std::string> members,
                            const std::string& child = {}) {
    LibraryClass result;
    result.name = name;
    for (const std::string& member : members) {
        LibraryProcedure procedure;
        procedure.name = member;
        if (member.starts_with("Get")) {
            procedure.kind = ProcKind::PropertyGet;
            procedure.type.datenTyp = child;
        }
        result.procedures.push_back(procedure);
    }
    return result;
}

inline LibraryGroup GroupOf(const std::string& name, std::initializer_list<std::string> members) {
    LibraryGroup group;
    group.name = name;
    for (const std::string& member : members) {
        LibraryVariable variable;
        variable.name = member;
        group.members.push_back(variable);
    }
    return group;
}

/// Adds a library that was found, and derives the project again.
inline clsTypeLib& AddLibrary(LibraryKind kind, const std::string& name, const LibraryContents& contents) {
    clsTypeLib& library = gProjekt->NewLibrary();
    library.LibTyp = kind;
    library.SetName(gProjekt->TheNames().Intern(name));
    library.file.path = name + ".dll";
    library.file.places.push_back({});
    ReadInterfaces(*gProjekt, library, contents);
    gProjekt->SetModules(gProjekt->TakeModules());
    return library;
}
