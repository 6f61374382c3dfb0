#include "libraries/library_objects.h"

#include <cstring>

#include "model/clsProjekt.h"
#include "platform/pe_resources.h"
#include "platform/type_library_file.h"

namespace {

class ObjectMaker {
public:
    ObjectMaker(clsProjekt& projekt, clsTypeLib& library) : names_(projekt.TheNames()), library_(library) {}

    void Make(const LibraryContents& contents) {
        for (const LibraryClass& oneClass : contents.classes)
            MakeClass(oneClass);
        for (const LibraryGroup& group : contents.enums)
            Add_Enum(group);
        for (const LibraryGroup& group : contents.records)
            Add_Type(group);
        for (const LibraryAlias& alias : contents.aliases)
            AddSecondName(alias);
        // No file describes what it lacks, so the description of the library itself is free for it.
        std::string missing;
        for (const typelib::ImportedLibrary& imported : contents.missing)
            missing.append(missing.empty() ? "" : ", ").append(imported.file + ' ' + imported.id);
        library_.DetailOf(library_).description = Keep(missing);
    }

private:
    [[nodiscard]] Name Intern(std::string_view utf8) const { return names_.Intern(names_.Page().FromUtf8(utf8)); }

    [[nodiscard]] std::string_view Keep(std::string_view utf8) {
        if (utf8.empty())
            return {};
        const std::string bytes = names_.Page().FromUtf8(utf8);
        char* const kept = static_cast<char*>(library_.Memory()->allocate(bytes.size(), 1));
        std::memcpy(kept, bytes.data(), bytes.size());
        return {kept, bytes.size()};
    }

    void MakeClass(const LibraryClass& oneClass) {
        clsModul& modul = library_.NewClass();
        modul.SetName(Intern(oneClass.name));
        modul.ModulTyp = oneClass.kind;
        modul.Zugriff = Access::Public;
        LibraryDetail& detail = library_.DetailOf(modul);
        detail.description = Keep(oneClass.description);
        detail.isHidden = oneClass.isHidden;
        for (const LibraryVariable& constant : oneClass.constants)
            MakeConstant(modul, constant);
        for (const LibraryProcedure& procedure : oneClass.procedures)
            AddProc(CreateProcFromMemberInfo(modul, procedure));
        for (const LibraryProcedure& event : oneClass.events) {
            clsProzedur& prozedur = CreateProcFromMemberInfo(modul, event);
            prozedur.IsEvent = true;
            modul.MyEvents.AddUnlessPresent(prozedur.NameKey(), &prozedur);
            modul.PrivNameSpace.AddObject(prozedur);
        }
        library_.myCoClasses.AddUnlessPresent(modul.NameKey(), &modul);
        library_.PrivNameSpace.AddObject(modul);
    }

    clsProzedur& CreateProcFromMemberInfo(clsModul& aMyCoClass, const LibraryProcedure& member) {
        clsProzedur& prozedur = library_.New<clsProzedur>(&aMyCoClass);
        prozedur.SetName(Intern(member.name));
        prozedur.ProzedurTyp = member.kind;
        prozedur.Zugriff = Access::Public;
        prozedur.type = Intern(member.type.datenTyp).Lower();
        if (const std::string_view suffix = prozedur.AccessorSuffix(); !suffix.empty())
            prozedur.accessorKey = names_.Intern(std::string(prozedur.MyName()).append(suffix)).Lower();
        LibraryDetail& detail = library_.DetailOf(prozedur);
        detail.shownType = Intern(member.type.shown + member.type.array);
        detail.description = Keep(member.description);
        detail.entry = Keep(member.entry);
        detail.memberId = member.id;
        detail.isHidden = member.isHidden;
        detail.isRestricted = member.isRestricted;
        for (const LibraryArgument& argument : member.arguments)
            MakeArgument(prozedur, argument);
        return prozedur;
    }

    void MakeArgument(clsProzedur& prozedur, const LibraryArgument& argument) {
        clsVariable& variable = library_.New<clsVariable>(prozedur.Modul);
        variable.Prozedur = &prozedur;
        variable.SetName(Intern(argument.name));
        variable.Zugriff = Access::Argument;
        variable.type = Intern(argument.type.datenTyp).Lower();
        variable.isOptional = argument.isOptional;
        variable.isByRef = argument.isByRef;
        variable.isParamArray = argument.isParamArray;
        LibraryDetail& detail = library_.DetailOf(variable);
        detail.shownType = Intern(argument.type.shown + argument.type.array);
        detail.value = Intern(argument.defaultValue);
        prozedur.MyVars.AddUnlessPresent(variable.NameKey(), &variable);
    }

    void AddProc(clsProzedur& prozedur) {
        clsModul& modul = *prozedur.Modul;
        const Name key = prozedur.LocalKey();
        if (prozedur.IsProperty())
            modul.Public_Property.AddUnlessPresent(key, &prozedur);
        else
            (prozedur.ProzedurTyp == ProcKind::Sub ? modul.Public_Sub : modul.Public_Function)
                .AddUnlessPresent(key, &prozedur);
        modul.MyProcs.AddUnlessPresent(key, &prozedur);
        modul.PrivNameSpace.AddObject(prozedur);
    }

    clsVariable& MakeVariable(clsModul* ofClass, const LibraryVariable& from) {
        clsVariable& variable = library_.New<clsVariable>(ofClass);
        variable.SetName(Intern(from.name));
        variable.Zugriff = Access::Public;
        variable.type = Intern(from.type.datenTyp).Lower();
        LibraryDetail& detail = library_.DetailOf(variable);
        detail.shownType = Intern(from.type.shown + from.type.array);
        detail.value = Intern(from.value);
        detail.description = Keep(from.description);
        detail.isHidden = from.isHidden;
        return variable;
    }

    void MakeConstant(clsModul& modul, const LibraryVariable& constant) {
        clsVariable& variable = MakeVariable(&modul, constant);
        variable.IsConst = true;
        modul.MyVars.AddUnlessPresent(variable.NameKey(), &variable);
        modul.Public_Variablen.AddUnlessPresent(variable.NameKey(), &variable);
        modul.PrivNameSpace.AddObject(variable);
        library_.PrivNameSpace.AddObject(variable);
    }

    template <class Group>
    Group& MakeGroup(const LibraryGroup& from, clsCollection<Group>& all) {
        Group& group = library_.New<Group>();
        group.SetName(Intern(from.name));
        group.Zugriff = Access::Public;
        LibraryDetail& detail = library_.DetailOf(group);
        detail.description = Keep(from.description);
        detail.isHidden = from.isHidden;
        all.AddUnlessPresent(group.NameKey(), &group);
        library_.PrivNameSpace.AddObject(group);
        return group;
    }

    void Add_Enum(const LibraryGroup& from) {
        clsEnum& einEnum = MakeGroup(from, library_.myEnums);
        for (const LibraryVariable& member : from.members) {
            clsVariable& variable = MakeVariable(nullptr, member);
            variable.MyEnum = &einEnum;
            variable.IsConst = true;
            variable.Zugriff = Access::EnumMember;
            einEnum.MyVars.AddUnlessPresent(variable.NameKey(), &variable);
            library_.PrivNameSpace.AddObject(variable);
        }
    }

    void Add_Type(const LibraryGroup& from) {
        clsType& type = MakeGroup(from, library_.myTypes);
        for (const LibraryVariable& member : from.members) {
            clsVariable& variable = MakeVariable(nullptr, member);
            variable.MyType = &type;
            variable.Zugriff = Access::TypeMember;
            type.MyVars.AddUnlessPresent(variable.NameKey(), &variable);
            library_.PrivNameSpace.AddObject(variable);
        }
    }

    void AddSecondName(const LibraryAlias& alias) {
        const Name target = Intern(alias.type.datenTyp).Lower();
        CodeObject* object = library_.myCoClasses.Item(target);
        if (!object)
            object = library_.myEnums.Item(target);
        if (!object)
            object = library_.myTypes.Item(target);
        if (object)
            library_.PrivNameSpace.AddObject(Intern(alias.name).Lower(), *object);
    }

    Names& names_;
    clsTypeLib& library_;
};

}  // namespace

void ReadInterfaces(clsProjekt& projekt, clsTypeLib& library, const LibraryContents& contents) {
    ObjectMaker(projekt, library).Make(contents);
}

std::string_view MissingImports(const clsTypeLib& library) {
    return library.DetailOf(library).description;
}

LibraryInFile ReadLibraryFile(const Files& files, std::string_view path) {
    LibraryPath split{path, std::nullopt};
    FileBytes file = ReadForResources(files, path, kMaxLibraryFileBytes);
    if (file.error != FileError::None) {
        split = SplitLibraryPath(path);
        if (split.resource)
            file = ReadForResources(files, split.file, kMaxLibraryFileBytes);
    }
    LibraryInFile read;
    read.error = file.error;
    if (read.error != FileError::None)
        return read;
    read.library = ReadTypeLibrary(file.bytes, split.resource);
    // Resources can lie outside of their section, and what is broken can show in the rest of the file.
    if (!read.library.problems.empty() && IsProgramFile(file.bytes))
        if (file = files.ReadBytes(split.file, kMaxLibraryFileBytes); file.error == FileError::None)
            read.library = ReadTypeLibrary(file.bytes, split.resource);
    return read;
}
