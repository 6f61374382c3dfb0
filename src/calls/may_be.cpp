#include "calls/may_be.h"

#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"

namespace {

// Forms, classes and user controls: the modules that an object variable can refer to.
bool IsObjectModule(const clsModul& modul) {
    return modul.ModulTyp == ModuleKind::Form || modul.ModulTyp == ModuleKind::Class ||
           modul.ModulTyp == ModuleKind::UserControl;
}

bool IsTarget(const clsProzedur& prozedur, AccessMode mode) {
    return IsObjectModule(*prozedur.Modul) && MatchesMode(prozedur, mode);
}

// Only private objects of the calling module; its public ones come from the public name space.
bool IsPrivateTarget(const CodeObject& object, const clsModul& callingModule, AccessMode mode) {
    if (object.Class() == ObjectClass::Variable) {
        const auto& variable = static_cast<const clsVariable&>(object);
        const bool isPrivateMember = variable.MyType && variable.MyType->Zugriff == Access::Private;
        if (variable.Zugriff != Access::Private && !isPrivateMember)
            return false;
        if (variable.IsConst && mode != AccessMode::Read)
            return false;
        return IsObjectModule(callingModule) || variable.MyType;
    }
    return object.Class() == ObjectClass::Prozedur && object.Zugriff == Access::Private &&
           IsTarget(static_cast<const clsProzedur&>(object), mode);
}

bool IsPublicTarget(const CodeObject& object, AccessMode mode) {
    switch (object.Class()) {
        case ObjectClass::Variable: {
            const auto& variable = static_cast<const clsVariable&>(object);
            // A constant is not a target, though a private one may be read.
            return !variable.IsConst && (!variable.Modul || IsObjectModule(*variable.Modul) || variable.MyType);
        }
        case ObjectClass::Prozedur:
            return IsTarget(static_cast<const clsProzedur&>(object), mode);
        case ObjectClass::Control:
            return true;
        default:
            return false;
    }
}

}  // namespace

void Analyse_SetMayBeCalls(FoundCalls& found, clsProzedur& prozedur, const ModuleNames& names, WordMeaning& member,
                           AccessMode mode, Pos pos) {
    if (const clsSpaceName* own = names.Own(member))
        for (CodeObject* object : own->Objects())
            if (IsPrivateTarget(*object, *prozedur.Modul, mode))
                found.CallCreate(*object, prozedur, CallType::MayBe, pos);
    if (const clsSpaceName* everywhere = names.Everywhere(member))
        for (CodeObject* object : everywhere->Objects())
            if (IsPublicTarget(*object, mode))
                found.CallCreate(*object, prozedur, CallType::MayBe, pos);
}
