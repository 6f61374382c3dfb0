#include "model/code_object.h"

#include "model/clsEnum.h"
#include "model/clsModul.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsTypeLib.h"
#include "model/clsVariable.h"

namespace {

void Join(std::string& path, std::string_view part) {
    if (!path.empty() && !part.empty())
        path += '.';
    path += part;
}

std::string_view Suffix(std::string_view spelled, std::string_view lower, bool isLower) {
    return isLower ? lower : spelled;
}

std::string_view AccessorSuffixOf(const clsProzedur& prozedur, bool isLower) {
    switch (prozedur.ProzedurTyp) {
        case ProcKind::PropertyGet:
            return Suffix(" [Get]", " [get]", isLower);
        case ProcKind::PropertyLet:
            return Suffix(" [Let]", " [let]", isLower);
        case ProcKind::PropertySet:
            return Suffix(" [Set]", " [set]", isLower);
        default:
            return {};
    }
}

}  // namespace

std::string_view clsProzedur::AccessorSuffix() const {
    return AccessorSuffixOf(*this, false);
}

// `nameOf` gives every name in a path, so that a path is either all as spelled or all lower case.
std::string CodeObject::Path(NameOf nameOf) const {
    const bool isLower = nameOf == &CodeObject::MyName;
    const auto name = [nameOf](const CodeObject& object) { return (object.*nameOf)(); };
    std::string path;
    switch (class_) {
        case ObjectClass::Modul:
        case ObjectClass::TypeLib:
            if (myLibrary)
                path = name(*myLibrary);
            Join(path, name(*this));
            break;
        case ObjectClass::Control:
            Join(path, name(*Modul));
            Join(path, name(*this));
            break;
        case ObjectClass::Prozedur:
            if (myLibrary)
                Join(path, name(*myLibrary));
            Join(path, name(*Modul));
            Join(path, name(*this));
            path += AccessorSuffixOf(static_cast<const clsProzedur&>(*this), isLower);
            break;
        case ObjectClass::Type:
        case ObjectClass::Enum:
            if (myLibrary)
                Join(path, name(*myLibrary));
            else if (Modul)
                Join(path, name(*Modul));
            Join(path, name(*this));
            path += class_ == ObjectClass::Type ? Suffix(" [Type]", " [type]", isLower)
                                                : Suffix(" [Enum]", " [enum]", isLower);
            break;
        case ObjectClass::Variable: {
            const auto& variable = static_cast<const clsVariable&>(*this);
            if (variable.isFormInstance)
                return std::string(name(*Modul));
            const CodeObject* owner = variable.MyType ? static_cast<const CodeObject*>(variable.MyType)
                                                      : static_cast<const CodeObject*>(variable.MyEnum);
            if (myLibrary)
                Join(path, name(*myLibrary));
            if (variable.Prozedur) {
                // Without the accessor's suffix, so locals of the accessors of one property share their paths.
                Join(path, name(*Modul));
                Join(path, name(*variable.Prozedur));
            } else if (owner) {
                if (Modul && !owner->myLibrary)
                    Join(path, name(*Modul));
                Join(path, name(*owner));
            } else if (Modul) {
                Join(path, name(*Modul));
            } else {
                return {};
            }
            Join(path, name(*this));
            break;
        }
    }
    return path;
}

std::string CodeObject::Utf8(std::string_view bytes) const {
    const auto* const modul = class_ == ObjectClass::Modul ? static_cast<const clsModul*>(this) : Modul;
    const auto* const library = class_ == ObjectClass::TypeLib ? static_cast<const clsTypeLib*>(this) : myLibrary;
    const Names& names = library ? library->TheNames() : modul->TheNames();
    return names.Page().ToUtf8(bytes);
}

Name CodeObject::LocalKey() const {
    const auto* prozedur = class_ == ObjectClass::Prozedur ? static_cast<const clsProzedur*>(this) : nullptr;
    return prozedur && !prozedur->accessorKey.Empty() ? prozedur->accessorKey : name_;
}

std::string_view CodeObject::GetImageKey() const {
    const bool dead = IsDeath == 1;
    switch (class_) {
        case ObjectClass::Modul: {
            const ModuleKind kind = static_cast<const clsModul*>(this)->ModulTyp;
            return kind == ModuleKind::UserControl ? "control" : TextOf(kind);
        }
        case ObjectClass::TypeLib:
            return "Library";
        case ObjectClass::Control:
            return "control";
        case ObjectClass::Type:
            return dead ? "TypeDeath" : "type";
        case ObjectClass::Enum:
            return dead ? "EnumDeath" : "enum";
        case ObjectClass::Variable: {
            const auto& variable = static_cast<const clsVariable&>(*this);
            if (variable.MyType)
                return dead ? "TypeDeath" : "type";
            if (variable.MyEnum)
                return dead ? "EnumDeath" : "enum";
            if (variable.IsConst)
                return dead ? "ConstDeath" : "const";
            return dead ? "VariableDeath" : "variable";
        }
        case ObjectClass::Prozedur:
            break;
    }
    const auto& prozedur = static_cast<const clsProzedur&>(*this);
    switch (prozedur.ProzedurTyp) {
        case ProcKind::PropertyGet:
        case ProcKind::PropertyLet:
        case ProcKind::PropertySet:
            return dead ? "PropertyDeath" : "property";
        case ProcKind::OtherProperty:
        case ProcKind::Other:
            return {};
        case ProcKind::Sub:
        case ProcKind::Function:
            break;
    }
    if (prozedur.isDeclare)
        return dead ? "DeclareDeath" : "declare";
    if (prozedur.IsEvent)
        return "event";  // Visual Basic calls it, so it is never shown as dead
    if (prozedur.IsUserEvent)
        return dead ? "UserEventDeath" : "userevent";
    return dead ? "ProcedureDeath" : "procedure";
}

const CallGraph* CodeObject::Graph() const {
    if (myLibrary)
        return myLibrary->graph;
    if (Modul)
        return Modul->graph;
    if (class_ == ObjectClass::Modul)
        return static_cast<const clsModul*>(this)->graph;
    return class_ == ObjectClass::TypeLib ? static_cast<const clsTypeLib*>(this)->graph : nullptr;
}

std::uint32_t CodeObject::Number() const {
    if (myLibrary)
        return myLibrary->number + numberInModule;
    if (Modul)
        return Modul->firstNumber + numberInModule;
    if (class_ == ObjectClass::Modul)
        return static_cast<const clsModul*>(this)->firstNumber;
    return class_ == ObjectClass::TypeLib ? static_cast<const clsTypeLib*>(this)->number : 0;
}

IncomingEdges CodeObject::CalledByAll() const {
    const CallGraph* const graph = Graph();
    return graph ? graph->CalledBy(Number()) : IncomingEdges();
}

IncomingEdges CodeObject::UsedByAll() const {
    const CallGraph* const graph = Graph();
    return graph ? graph->UsedBy(Number()) : IncomingEdges();
}

std::string JoinPath(std::string_view first, std::string_view second) {
    std::string path(first);
    Join(path, second);
    return path;
}
