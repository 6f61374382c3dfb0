// What every type library that was read keeps, however damaged its file is.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "fuzz_driver.h"
#include "libraries/library_objects.h"
#include "libraries/library_page.h"
#include "model/clsProjekt.h"
#include "platform/code_page.h"
#include "platform/type_library.h"

inline void RequireReference(const TypeLibrary& library, const typelib::TypeReference& reference) {
    Require(reference.own == typelib::TypeReference::kNone || reference.own < 65536, "a type has a number of 16 bits");
    Require(reference.imported == typelib::TypeReference::kNone || reference.imported < library.importedTypes.size(),
            "an imported type is listed");
    Require(IsValidUtf8(ReferenceText(library, reference)), "a reference has a name");
}

inline void RequireType(const TypeLibrary& library, const typelib::ValueType& type) {
    Require(type.levels.size() <= 2 * 32, "types are not nested without end");
    RequireReference(library, type.reference);
    Require(IsValidUtf8(TypeText(library, type)), "a type has a text");
}

inline void RequireMember(const TypeLibrary& library, const typelib::Member& member) {
    Require(IsValidUtf8(member.name) && IsValidUtf8(member.description), "texts are UTF-8");
    RequireType(library, member.type);
    for (const typelib::Parameter& parameter : member.parameters) {
        Require(IsValidUtf8(parameter.name), "names are UTF-8");
        RequireType(library, parameter.type);
        if (parameter.defaultValue)
            Require(IsValidUtf8(TextOf(*parameter.defaultValue)), "values have a text");
    }
    if (member.value)
        Require(IsValidUtf8(TextOf(*member.value)), "values have a text");
}

/// @param fileBytes  size of the library's file
inline void RequireSound(const TypeLibrary& library, std::size_t fileBytes) {
    std::size_t members = 0;
    Require(library.types.size() <= fileBytes / 16, "types are no more than the file has room for");
    for (const typelib::Type& type : library.types) {
        Require(IsValidUtf8(type.name) && IsValidUtf8(type.description), "texts are UTF-8");
        for (const typelib::ImplementedType& implemented : type.implemented)
            RequireReference(library, implemented.type);
        if (type.aliasOf)
            RequireType(library, *type.aliasOf);
        members += type.members.size();
        for (const typelib::Member& member : type.members)
            RequireMember(library, member);
    }
    Require(members <= fileBytes / 16, "members are no more than the file has room for");
    Require(library.problems.size() <= 20, "a damaged library is described in a few sentences");
    Require(std::all_of(library.problems.begin(), library.problems.end(), IsValidUtf8), "problems are UTF-8");
}

inline void RequireSoundObjects(const LibraryContents& contents) {
    MemoryFiles files;
    clsProjekt projekt(files);
    clsTypeLib& objects = projekt.NewLibrary();
    objects.SetName(projekt.TheNames().Intern("lib"));
    ReadInterfaces(projekt, objects, contents);
    projekt.SetModules({});
    for (clsModul* modul : objects.myCoClasses) {
        Require(modul->Number() < projekt.ObjectCount(), "objects are numbered");
        Require(projekt.GetObjectFromCodePath(modul->CodePath()) != nullptr || modul->MyName().empty(),
                "a class is found by its path");
    }
}

/// The same for what Visual Basic sees of it, and for the objects made of that.
inline void RequireSoundContents(const TypeLibrary& library) {
    const LibraryContents contents = ContentsOf(library);
    Require(contents.classes.size() + contents.enums.size() + contents.records.size() <= library.types.size(),
            "a type is one thing");
    Require(IsValidUtf8(LibraryPage(library, contents, "file")), "the page is UTF-8");
    // A project costs more than all the rest, so not every library gets one.
    if ((contents.enums.size() + 3 * library.problems.size() + library.helpContext) % 16 == 5)
        RequireSoundObjects(contents);
}
