// A referenced library or component: one line of the project file, and what the library contains as code objects.
#pragma once

#include <memory>
#include <memory_resource>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "model/arena.h"
#include "model/clsCollection.h"
#include "model/clsEnum.h"
#include "model/clsModul.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"
#include "model/library_detail.h"
#include "model/library_file.h"
#include "model/name_space.h"

class clsTypeLib final : public CodeObject {
public:
    /// @param names   of the project; they outlive the library
    /// @param memory  where the arena of its contents gets its blocks; it outlives the library
    explicit clsTypeLib(Names& names, std::pmr::memory_resource* memory = std::pmr::get_default_resource())
        : CodeObject(ObjectClass::TypeLib), names_(names), arena_(memory) {}

    [[nodiscard]] Names& TheNames() const { return names_; }

private:
    Names& names_;
    Arena arena_;  // first, as all below lives in it

public:
    /// For everything that lives as long as the library.
    [[nodiscard]] std::pmr::memory_resource* Memory() { return &arena_; }

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
    int IconIndex = 0;    // in the file, from 1; 0 for none
    std::string picture;  // of a component for the toolbox: a whole BMP or ICO file; empty for none

    LibraryFile file;         // where it was sought
    LibraryNeed need;         // if it was not found
    std::string_view format;  // "MSFT", "SLTG"; empty if it was not read

    const CallGraph* graph = nullptr;  // of the project
    std::uint32_t number = 0;          // among the objects of the project; those of its contents follow

    // The contents; empty for a library that was not found. Of equal names the first has its place here.
    clsCollection<clsModul> myCoClasses{Memory()};  // classes, controls and modules by name
    clsCollection<clsEnum> myEnums{Memory()};
    clsCollection<clsType> myTypes{Memory()};
    /// What a project sees of the library by a bare name: classes, types, enumerations and their members, constants of
    /// modules. A second name of a type finds the same object.
    NameSpace PrivNameSpace{Memory()};

    /// The object of this library whose CodePath equals `codePath`, or null.
    [[nodiscard]] CodeObject* Get_Object_From_CodePath(std::string_view codePath);

    /// Creates an object of the library; one of a class gets its class as Modul.
    template <class T>
    [[nodiscard]] T& New(clsModul* ofClass = nullptr) {
        T& object = Make<T>(ofClass);
        object.Modul = ofClass;
        GiveNumber(object);
        return object;
    }
    [[nodiscard]] clsModul& NewClass();
    [[nodiscard]] LibraryDetail& DetailOf(const CodeObject& object) { return details_[object.numberInModule]; }
    [[nodiscard]] const LibraryDetail& DetailOf(const CodeObject& object) const {
        return details_[object.numberInModule];
    }
    /// Number of objects, including the library itself.
    [[nodiscard]] std::uint32_t ObjectCount() const { return static_cast<std::uint32_t>(details_.size()); }

private:
    template <class T>
    T& Make(clsModul* ofClass) {
        if constexpr (std::is_same_v<T, clsProzedur>)
            return arena_.New<T>(*ofClass, Memory());
        else if constexpr (std::is_constructible_v<T, std::pmr::memory_resource*>)
            return arena_.New<T>(Memory());
        else
            return arena_.New<T>();
    }
    void GiveNumber(CodeObject& object);

    std::vector<std::unique_ptr<clsModul>> classes_;
    std::pmr::vector<LibraryDetail> details_{1, Memory()};  // by number; that of the library itself is 0
};
