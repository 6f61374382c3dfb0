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
    if (ProzedurTyp() == "property get")
        return " [Get]";
    if (ProzedurTyp() == "property let")
        return " [Let]";
    return ProzedurTyp() == "property set" ? " [Set]" : "";
}

Name clsProzedur::LocalKey() const {
    const std::string_view suffix = AccessorSuffix();
    return suffix.empty() ? NameKey() : Name(std::string(MyName()).append(suffix)).Lower();
}

std::string_view clsProzedur::GetImageKey() const {
    const bool dead = IsDeath == 1;
    const std::string_view typ = ProzedurTyp();
    if (typ == "property get" || typ == "property let" || typ == "property set")
        return dead ? "PropertyDeath" : "property";
    if (typ != "sub" && typ != "function")
        return {};
    if (isDeclare)
        return dead ? "DeclareDeath" : "declare";
    if (IsEvent)
        return "event";  // something outside calls it, so it never looks dead
    if (IsUserEvent)
        return dead ? "UserEventDeath" : "userevent";
    return dead ? "ProcedureDeath" : "procedure";
}
