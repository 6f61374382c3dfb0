#include "libraries/type_names.h"

#include <algorithm>

#include "platform/ascii.h"
#include "platform/stdole_types.h"

using typelib::Type;
using typelib::TypeKind;
using typelib::TypeReference;
using typelib::ValueType;

namespace {

constexpr int kMaxAliases = 32;

bool IsInvented(std::string_view name) {
    return name.starts_with("__MIDL");
}

bool IsInterface(TypeKind kind) {
    return kind == TypeKind::Interface || kind == TypeKind::Dispatch || kind == TypeKind::CoClass;
}

// Numbers without a sign have the name of their size, and strings of all kinds are strings.
std::uint16_t NamedLike(std::uint16_t type) {
    switch (type) {
        case typelib::I1:
            return typelib::UI1;
        case typelib::UI2:
            return typelib::I2;
        case typelib::UI4:
        case typelib::Int:
        case typelib::UInt:
            return typelib::I4;
        case typelib::LpStr:
        case typelib::LpWStr:
            return typelib::Bstr;
        default:
            return type;
    }
}

LibraryDataType SimpleType(const TypeLibrary& library, std::uint16_t type) {
    return {typelib::TypeText(library, {{}, type, {}}), std::string(GetDatenTyp(NamedLike(type))), {}};
}

std::size_t Pointers(const ValueType& type) {
    return static_cast<std::size_t>(std::count_if(type.levels.begin(), type.levels.end(),
                                                  [](const auto& level) { return level.kind == typelib::Ptr; }));
}

// The type of the same library that an alias stands for without anything around it, or kNone.
std::size_t AliasTarget(const Type& type) {
    return type.aliasOf && type.aliasOf->levels.empty() ? type.aliasOf->reference.own : TypeReference::kNone;
}

}  // namespace

std::string_view GetDatenTyp(int aVarType) {
    switch (aVarType) {
        case 2:
            return "integer";
        case 3:
            return "long";
        case 4:
            return "single";
        case 5:
            return "double";
        case 7:
            return "date";
        case 8:
            return "string";
        case 9:
        case 17:
            return "byte";
        case 10:
            return "error";
        case 11:
            return "boolean";
        case 12:
            return "variant";
        default:
            return {};
    }
}

TypeReference DefaultInterface(const Type& coclass) {
    using namespace typelib::impl_flag;
    for (const typelib::ImplementedType& implemented : coclass.implemented)
        if (implemented.Has(kDefault) && !implemented.Has(kSource))
            return implemented.type;
    for (const typelib::ImplementedType& implemented : coclass.implemented)
        if (!implemented.Has(kSource | kRestricted))
            return implemented.type;
    return {};
}

TypeReference DefaultSource(const Type& coclass) {
    using namespace typelib::impl_flag;
    for (const typelib::ImplementedType& implemented : coclass.implemented)
        if (implemented.Has(kDefault) && implemented.Has(kSource))
            return implemented.type;
    return {};
}

TypeNames::TypeNames(const TypeLibrary& library, const ImportedLibraryFinder& find) : library_(library), find_(find) {
    names_.reserve(library.types.size());
    for (const Type& type : library.types)
        names_.push_back(type.name);
    for (const Type& type : library.types) {
        const std::size_t target = AliasTarget(type);
        if (target < names_.size() && IsInvented(names_[target]) && !IsInvented(type.name))
            names_[target] = type.name;
    }
    for (std::size_t i = 0; i < library.types.size(); ++i) {
        if (library.types[i].kind != TypeKind::CoClass)
            continue;
        const FoundType interface = Find(library, DefaultInterface(library.types[i]));
        if (interface.library == &library)
            classesOf_[interface.index].push_back(i);
    }
}

bool TypeNames::IsPlainAlias(std::size_t type) const {
    const std::size_t target = AliasTarget(library_.types[type]);
    return IsInvented(library_.types[type].name) || (target < names_.size() && names_[target] == names_[type]);
}

std::size_t TypeNames::ClassOf(std::size_t interface) const {
    const auto found = classesOf_.find(interface);
    return found == classesOf_.end() || found->second.size() != 1 ? TypeReference::kNone : found->second[0];
}

FoundType TypeNames::Find(const TypeLibrary& library, TypeReference reference) {
    FoundType found{&library, 0};
    for (int step = 0; step < kMaxAliases; ++step) {
        if (reference.own < found.library->types.size())
            found.index = reference.own;
        else if (reference.imported < found.library->importedTypes.size())
            found = FindImported(*found.library, found.library->importedTypes[reference.imported]);
        else
            return {};
        const Type* const type = found.Get();
        if (!type || type->kind != TypeKind::Alias || !type->aliasOf || type->aliasOf->base != typelib::UserDefined)
            return found;
        reference = type->aliasOf->reference;
    }
    return {};
}

FoundType TypeNames::FindImported(const TypeLibrary& library, const typelib::ImportedType& type) {
    if (type.library >= library.importedLibraries.size())
        return {};
    const typelib::ImportedLibrary& imported = library.importedLibraries[type.library];
    const TypeLibrary* const found = find_ ? find_(imported) : nullptr;
    if (!found) {
        const auto isSame = [&](const typelib::ImportedLibrary& other) { return other.id == imported.id; };
        // The types of stdole have their names without it, and its basic interfaces no members that can be called.
        if (!StdoleTypeOf(library, type) && std::none_of(missing_.begin(), missing_.end(), isSame))
            missing_.push_back(imported);
        return {};
    }
    if (type.id.empty())
        return type.index >= 0 && static_cast<std::size_t>(type.index) < found->types.size()
                   ? FoundType{found, static_cast<std::size_t>(type.index)}
                   : FoundType();
    for (std::size_t i = 0; i < found->types.size(); ++i)
        if (found->types[i].id == type.id)
            return {found, i};
    return {};
}

LibraryDataType TypeNames::TypeOf(const ValueType& type) {
    LibraryDataType result;
    if (type.base == typelib::UserDefined)
        result = ReferenceType(type.reference);
    else
        result = SimpleType(library_, type.base);
    if (type.base == typelib::Void && !type.levels.empty())
        result.shown = "Any";
    result.array = ArrayText(type);
    return result;
}

LibraryDataType TypeNames::ReferenceType(const TypeReference& reference) {
    if (reference.own >= library_.types.size())
        return ImportedType(reference);
    // An alias keeps its name where code shows it, and means what it stands for.
    std::size_t at = reference.own;
    std::string shown = names_[at];
    for (int step = 0; step < kMaxAliases && library_.types[at].kind == TypeKind::Alias; ++step) {
        const std::optional<ValueType>& target = library_.types[at].aliasOf;
        if (!target)
            break;
        LibraryDataType result;
        if (target->base != typelib::UserDefined) {
            result = SimpleType(library_, target->base);
        } else if (target->reference.own >= library_.types.size()) {
            result = ImportedType(target->reference);
        } else {
            at = target->reference.own;
            if (IsInvented(shown))
                shown = names_[at];
            continue;
        }
        if (!IsInvented(shown))
            result.shown = shown;
        return result;
    }
    if (const std::size_t coclass = ClassOf(at); coclass != TypeReference::kNone)
        return {names_[coclass], ascii::LowerCase(names_[coclass]), {}};
    return {shown, ascii::LowerCase(names_[at]), {}};
}

LibraryDataType TypeNames::ImportedType(const TypeReference& reference) {
    if (reference.imported >= library_.importedTypes.size())
        return {"?", "", {}};
    const typelib::ImportedType& type = library_.importedTypes[reference.imported];
    if (const StdoleType* const known = StdoleTypeOf(library_, type)) {
        const std::string qualified = "stdole." + std::string(known->shownAs.empty() ? known->name : known->shownAs);
        if (known->aliasOf != typelib::Empty)
            return {qualified, std::string(GetDatenTyp(NamedLike(known->aliasOf))), {}};
        return {qualified, ascii::LowerCase(qualified.substr(qualified.find('.') + 1)), {}};
    }
    const FoundType found = Find(library_, reference);
    if (!found.library)
        return {ReferenceText(library_, reference), "", {}};
    std::unique_ptr<TypeNames>& names = imported_[found.library];
    if (!names)
        names = std::make_unique<TypeNames>(*found.library, find_);
    const std::size_t coclass = names->ClassOf(found.index);
    const std::string& name = names->NameOf(coclass != TypeReference::kNone ? coclass : found.index);
    return {found.library->name + '.' + name, ascii::LowerCase(name), {}};
}

bool TypeNames::IsObject(const ValueType& type) {
    if (type.base == typelib::Dispatch || type.base == typelib::Unknown)
        return true;
    if (type.base != typelib::UserDefined)
        return false;
    if (const FoundType found = Find(library_, type.reference); found.library)
        return IsInterface(found.Get()->kind);
    if (type.reference.imported >= library_.importedTypes.size())
        return false;
    const StdoleType* const known = StdoleTypeOf(library_, library_.importedTypes[type.reference.imported]);
    // Of what a pointer leads to without being known, nearly all are interfaces.
    return known ? !known->shownAs.empty() || IsInterface(known->kind) : Pointers(type) > 0;
}

bool TypeNames::IsByRef(const ValueType& type) {
    // An interface is always reached over a pointer, which the simple types for objects have built in.
    const bool hasOwnPointer = type.base == typelib::UserDefined && IsObject(type);
    return Pointers(type) > (hasOwnPointer ? 1U : 0U);
}
