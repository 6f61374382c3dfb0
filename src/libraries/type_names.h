// Which names the types of a library have for Visual Basic.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "libraries/library_contents.h"

/// A type, in the library that has it; null for one that is not known.
struct FoundType {
    const TypeLibrary* library = nullptr;
    std::size_t index = 0;
    [[nodiscard]] const typelib::Type* Get() const { return library ? &library->types[index] : nullptr; }
};

class TypeNames {
public:
    TypeNames(const TypeLibrary& library, const ImportedLibraryFinder& find);

    /// The name of a type of the library itself. A compiler invents one for a type that has its name from an alias.
    [[nodiscard]] const std::string& NameOf(std::size_t type) const { return names_[type]; }
    /// True for an alias that names nothing new.
    [[nodiscard]] bool IsPlainAlias(std::size_t type) const;
    /// The class that shows itself in place of its default interface, or TypeReference::kNone.
    [[nodiscard]] std::size_t ClassOf(std::size_t interface) const;

    [[nodiscard]] LibraryDataType TypeOf(const typelib::ValueType& type);
    /// Whether an argument of this type is passed by reference.
    [[nodiscard]] bool IsByRef(const typelib::ValueType& type);
    [[nodiscard]] bool IsObject(const typelib::ValueType& type);

    /// The type behind a reference of `library`, aliases followed.
    [[nodiscard]] FoundType Find(const TypeLibrary& library, typelib::TypeReference reference);

    /// Imported libraries that were needed and not found.
    [[nodiscard]] const std::vector<typelib::ImportedLibrary>& Missing() const { return missing_; }

private:
    [[nodiscard]] FoundType FindImported(const TypeLibrary& library, const typelib::ImportedType& type);
    [[nodiscard]] LibraryDataType ReferenceType(const typelib::TypeReference& reference);
    [[nodiscard]] LibraryDataType ImportedType(const typelib::TypeReference& reference);

    const TypeLibrary& library_;
    const ImportedLibraryFinder& find_;
    std::vector<std::string> names_;
    std::map<std::size_t, std::vector<std::size_t>> classesOf_;  // by their default interface
    std::vector<typelib::ImportedLibrary> missing_;
    std::map<const TypeLibrary*, std::unique_ptr<TypeNames>> imported_;  // the names of other libraries
};

/// The interface whose members a coclass has, or its events; unknown if it has none.
[[nodiscard]] typelib::TypeReference DefaultInterface(const typelib::Type& coclass);
[[nodiscard]] typelib::TypeReference DefaultSource(const typelib::Type& coclass);
