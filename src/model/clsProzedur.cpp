#include "model/clsProzedur.h"

#include "model/clsModul.h"
#include "model/clsTypeLib.h"
#include "model/clsVariable.h"

clsProzedur::clsProzedur(clsModul& owner) : CodeObject(ObjectClass::Prozedur) {
    Modul = &owner;
}

clsProzedur::~clsProzedur() = default;

std::string clsProzedur::CodePathOrg() const {
    const std::string place = myLibrary ? JoinPath(myLibrary->myNameOrg(), Modul->CodePathOrg()) : Modul->CodePathOrg();
    return JoinPath(place, myNameOrg()).append(AccessorSuffix());
}

std::string_view clsProzedur::AccessorSuffix() const {
    if (ProzedurTyp == ProcKind::PropertyGet)
        return " [Get]";
    if (ProzedurTyp == ProcKind::PropertyLet)
        return " [Let]";
    return ProzedurTyp == ProcKind::PropertySet ? " [Set]" : "";
}

Name clsProzedur::LocalKey() const {
    const std::string_view suffix = AccessorSuffix();
    return suffix.empty() ? NameKey() : Name(std::string(MyName()).append(suffix)).Lower();
}

std::string_view clsProzedur::GetImageKey() const {
    const bool dead = IsDeath == 1;
    const ProcKind typ = ProzedurTyp;
    if (typ == ProcKind::PropertyGet || typ == ProcKind::PropertyLet || typ == ProcKind::PropertySet)
        return dead ? "PropertyDeath" : "property";
    if (typ != ProcKind::Sub && typ != ProcKind::Function)
        return {};
    if (isDeclare)
        return dead ? "DeclareDeath" : "declare";
    if (IsEvent)
        return "event";  // something outside calls it, so it never looks dead
    if (IsUserEvent)
        return dead ? "UserEventDeath" : "userevent";
    return dead ? "ProcedureDeath" : "procedure";
}
