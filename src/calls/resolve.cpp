#include "calls/resolve.h"

#include "calls/module_names.h"
#include "model/clsControl.h"
#include "model/clsEnum.h"
#include "model/clsModul.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"

namespace {

std::span<CodeObject* const> Objects(const clsSpaceName* entry) {
    return entry ? entry->Objects() : std::span<CodeObject* const>();
}

std::string_view LastPart(std::string_view type) {
    const auto point = type.rfind('.');
    return point == std::string_view::npos ? type : type.substr(point + 1);
}

// The name after the last point of a type name.
Name LastPart(Name type, const Names& pool) {
    const std::string_view last = LastPart(type.View());
    return last.size() == type.View().size() ? type : pool.Find(last);
}

// The module whose name space an object uses to look up types.
const clsModul* ModuleOf(const CodeObject* context) {
    if (!context)
        return nullptr;
    return context->Class() == ObjectClass::Modul ? static_cast<const clsModul*>(context) : context->Modul;
}

const clsVariable* AsVariable(const CodeObject* object) {
    return object->Class() == ObjectClass::Variable ? static_cast<const clsVariable*>(object) : nullptr;
}

CodeObject* PublicObject(std::span<CodeObject* const> holders, AccessMode mode) {
    for (CodeObject* object : holders) {
        switch (object->Class()) {
            case ObjectClass::Variable:
                if (mode != AccessMode::Call && !static_cast<clsVariable*>(object)->MyType)
                    return object;
                break;
            case ObjectClass::Prozedur: {
                const auto& prozedur = *static_cast<clsProzedur*>(object);
                const bool isFree = !prozedur.Modul->myLibrary && prozedur.Modul->ModulTyp == ModuleKind::Module;
                const bool isSub = prozedur.ProzedurTyp == ProcKind::Sub && mode == AccessMode::Call;
                const bool isFunction = prozedur.ProzedurTyp == ProcKind::Function &&
                                        (mode == AccessMode::Call || mode == AccessMode::Read);
                if (isFree && (isSub || isFunction))
                    return object;
                break;
            }
            case ObjectClass::Modul:
            case ObjectClass::TypeLib:
                if (mode == AccessMode::Read)
                    return object;
                break;
            default:
                break;
        }
    }
    return nullptr;
}

CodeObject* OwnObject(std::span<CodeObject* const> holders, AccessMode mode) {
    for (CodeObject* object : holders) {
        if (const clsVariable* variable = AsVariable(object)) {
            if (!variable->MyType)
                return object;
        } else if (object->Class() == ObjectClass::Control || (object->Class() == ObjectClass::Prozedur &&
                                                               MatchesMode(*static_cast<clsProzedur*>(object), mode))) {
            return object;
        }
    }
    return nullptr;
}

}  // namespace

bool MatchesMode(const clsProzedur& prozedur, AccessMode mode) {
    const ProcKind typ = prozedur.ProzedurTyp;
    switch (mode) {
        case AccessMode::Call:
            return typ == ProcKind::Sub || typ == ProcKind::Function;
        case AccessMode::Read:
            return typ == ProcKind::Function || typ == ProcKind::PropertyGet;
        case AccessMode::Assign:
            return typ == ProcKind::PropertyLet;
        case AccessMode::Set:
            return typ == ProcKind::PropertySet;
    }
    return false;
}

CodeObject* modMain::Get_Objekt_AusName(const ModuleNames& names, WordMeaning& word, AccessMode mode) {
    CodeObject* object = OwnObject(Objects(names.Own(word)), mode);
    return object ? object : PublicObject(Objects(names.Everywhere(word)), mode);
}

clsModul* modMain::Get_Typ_VonControl(const clsProjekt& projekt, const clsControl& control) {
    const Name key = LastPart(control.type, projekt.TheNames());
    if (!key.Known())
        return nullptr;
    if (clsModul* userControl = projekt.UserControls.Item(key))
        return userControl;
    clsModul* found = nullptr;  // of several components the last one serves
    for (const clsTypeLib* component : projekt.myProjectObjects)
        if (clsModul* oneClass = component->myCoClasses.Item(key))
            found = oneClass;
    return found;
}

CodeObject* modMain::Get_Typ_AusName(const CodeObject* context, Name typeName, ModuleNames& names) {
    if (const clsModul* modul = ModuleOf(context))
        for (CodeObject* object : Objects(names.In(modul->PrivNameSpace, typeName)))
            if (object->Class() == ObjectClass::Enum || object->Class() == ObjectClass::Type)
                return object;
    const Name last = typeName.Known() ? LastPart(typeName, names.Pool()) : typeName;
    for (CodeObject* object : Objects(names.InPublic(last))) {
        switch (object->Class()) {
            case ObjectClass::Enum:
            case ObjectClass::Type:
            case ObjectClass::TypeLib:
                return object;
            case ObjectClass::Modul:
                if (static_cast<clsModul*>(object)->ModulTyp != ModuleKind::Module)
                    return object;
                break;
            default:
                break;
        }
    }
    return nullptr;
}

CodeObject* modMain::Get_Child(const clsProjekt& projekt, CodeObject* object, Name member, AccessMode mode,
                               ModuleNames& names) {
    if (!object || !member.Known())
        return nullptr;
    CodeObject* type = nullptr;
    switch (object->Class()) {
        case ObjectClass::Variable:
            type = Get_Typ_AusName(object->Modul, static_cast<clsVariable*>(object)->type, names);
            break;
        case ObjectClass::Prozedur:
            type = Get_Typ_AusName(object->Modul, static_cast<clsProzedur*>(object)->type, names);
            break;
        case ObjectClass::Modul:
            type = object;
            break;
        case ObjectClass::Control:
            type = Get_Typ_VonControl(projekt, *static_cast<clsControl*>(object));
            break;
        default:
            break;
    }
    if (!type)
        return nullptr;
    switch (type->Class()) {
        case ObjectClass::Enum:
            return static_cast<clsEnum*>(type)->MyVars.Item(member);
        case ObjectClass::Type:
            return static_cast<clsType*>(type)->MyVars.Item(member);
        case ObjectClass::Modul:
            return OwnObject(Objects(names.In(static_cast<clsModul*>(type)->PrivNameSpace, member)), mode);
        default:
            return nullptr;
    }
}
