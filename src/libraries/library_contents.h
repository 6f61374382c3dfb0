// A type library as Visual Basic sees it: classes with properties, methods and events, enumerations, records,
// constants. A plain value in UTF-8, made from the records of the file; the project model is filled from it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "model/kinds.h"
#include "platform/type_library.h"

struct LibraryDataType {
    std::string shown;     // as a declaration spells it: "Currency", "Object", "stdole.StdFont"; empty for none
    std::string datenTyp;  // data type of the model in lower case; empty where the model has no name for it
    std::string array;     // "()" or "(0 To 3)"; empty for no array
};

struct LibraryArgument {
    std::string name;
    LibraryDataType type;
    bool isOptional = false;
    bool isByRef = false;
    bool isParamArray = false;
    std::string defaultValue;  // as code spells it; empty for none
};

struct LibraryProcedure {
    std::string name;
    ProcKind kind = ProcKind::Sub;
    LibraryDataType type;  // of the result or the property
    std::vector<LibraryArgument> arguments;
    std::int32_t id = 0;  // 0 is the member that stands for its object
    bool isHidden = false;
    bool isRestricted = false;
    std::string description;
    std::string entry;  // of a DLL's function: its name there, or "#" and its number
};

/// A constant, a member of an enumeration, a member of a record.
struct LibraryVariable {
    std::string name;
    LibraryDataType type;
    std::string value;  // of a constant, as code spells it
    bool isHidden = false;
    std::string description;
};

struct LibraryClass {
    std::string name;
    ModuleKind kind = ModuleKind::Class;
    std::string id;
    std::string description;
    std::string dll;        // of a module
    bool isHidden = false;  // or restricted
    std::vector<LibraryProcedure> procedures;
    std::vector<LibraryProcedure> events;
    std::vector<LibraryVariable> constants;
};

/// An enumeration or a record.
struct LibraryGroup {
    std::string name;
    std::string id;
    std::string description;
    bool isHidden = false;
    std::vector<LibraryVariable> members;
};

/// A second name of something else.
struct LibraryAlias {
    std::string name;
    LibraryDataType type;
};

struct LibraryContents {
    std::vector<LibraryClass> classes;  // all in the order of the file
    std::vector<LibraryGroup> enums;
    std::vector<LibraryGroup> records;
    std::vector<LibraryAlias> aliases;
    /// Imported libraries that were needed and not found: what depends on them is missing.
    std::vector<typelib::ImportedLibrary> missing;
};

/// Gives the library that another one imports, or null. The answer lives longer than the call.
using ImportedLibraryFinder = std::function<const TypeLibrary*(const typelib::ImportedLibrary&)>;

[[nodiscard]] LibraryContents ContentsOf(const TypeLibrary& library, const ImportedLibraryFinder& find = {});

/// Name of a data type of the model for the number of a type. Only these have one, and 9, an object, is "byte" as well.
[[nodiscard]] std::string_view GetDatenTyp(int aVarType);
