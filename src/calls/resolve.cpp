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

std::span<CodeObject* const> PublicBearersOf(Name name) {
    return Objects(name.Known() ? gPublicNameSpace.Bearers(name) : nullptr);
}

std::span<CodeObject* const> BearersOf(const clsModul& modul, Name name, ModuleNames* names) {
    if (names)
        return Objects(names->Bearers(modul.PrivNameSpace, name));
    return Objects(name.Known() ? modul.PrivNameSpace.Bearers(name) : nullptr);
}

std::string_view LastPart(std::string_view type) {
    const auto point = type.rfind('.');
    return point == std::string_view::npos ? type : type.substr(point + 1);
}

// The name after the last point of a type name.
Name LastPart(Name type) {
    if (!type.Known())
        return type;
    const std::string_view last = LastPart(type.View());
    return last.size() == type.View().size() ? type : Name::Find(last);
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

CodeObject* PublicObject(std::span<CodeObject* const> bearers, AccessMode mode) {
    for (CodeObject* object : bearers) {
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

CodeObject* OwnObject(std::span<CodeObject* const> bearers, AccessMode mode) {
    for (CodeObject* object : bearers) {
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

CodeObject* TypeOfControl(const clsProjekt& projekt, const clsControl& control) {
    const Name key = LastPart(control.type);
    return key.Known() ? projekt.UserControls.Item(key) : nullptr;
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

CodeObject* Get_Object_Aus_NameM(const clsModul& modul, Name name, AccessMode mode, ModuleNames* names) {
    return OwnObject(BearersOf(modul, name, names), mode);
}

CodeObject* Get_Typ_AusNameM(const clsModul& modul, Name typeName, ModuleNames* names) {
    for (CodeObject* object : BearersOf(modul, typeName, names))
        if (object->Class() == ObjectClass::Enum || object->Class() == ObjectClass::Type)
            return object;
    return nullptr;
}

CodeObject* modMain::Get_Objekt_AusName(const CodeObject* context, Name name, AccessMode mode) {
    if (!context || (context->Class() != ObjectClass::Prozedur && context->Class() != ObjectClass::Modul))
        return nullptr;
    CodeObject* object = Get_Object_Aus_NameM(*ModuleOf(context), name, mode);
    return object ? object : PublicObject(PublicBearersOf(name), mode);
}

CodeObject* modMain::Get_Objekt_AusName(const ModuleNames& names, WordMeaning& word, AccessMode mode) {
    CodeObject* object = OwnObject(Objects(names.Own(word)), mode);
    return object ? object : PublicObject(Objects(ModuleNames::Everywhere(word)), mode);
}

CodeObject* modMain::Get_Typ_AusName(const CodeObject* context, Name typeName, ModuleNames* names) {
    if (const clsModul* modul = ModuleOf(context))
        if (CodeObject* type = Get_Typ_AusNameM(*modul, typeName, names))
            return type;
    for (CodeObject* object : PublicBearersOf(LastPart(typeName))) {
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
                               ModuleNames* names) {
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
            type = TypeOfControl(projekt, *static_cast<clsControl*>(object));
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
            return Get_Object_Aus_NameM(*static_cast<clsModul*>(type), member, mode, names);
        default:
            return nullptr;
    }
}

std::string_view modMain::Get_DatenTypStr(const CodeObject* object) {
    if (!object)
        return {};
    switch (object->Class()) {
        case ObjectClass::Modul:
            return object->MyName();
        case ObjectClass::Variable:
            return LastPart(static_cast<const clsVariable*>(object)->DatenTyp());
        case ObjectClass::Prozedur:
            return LastPart(static_cast<const clsProzedur*>(object)->DatenTyp());
        case ObjectClass::Control:
            return LastPart(static_cast<const clsControl*>(object)->DatenTyp());
        default:
            return {};
    }
}
