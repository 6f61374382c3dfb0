#include "model/clsVariable.h"

#include "model/clsEnum.h"
#include "model/clsModul.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsTypeLib.h"

std::string clsVariable::CodePathOrg() const {
    if (isFormInstance)
        return Modul->CodePathOrg();
    const std::string library = myLibrary ? std::string(myLibrary->myNameOrg()) : std::string();
    if (Prozedur)
        // The accessor's suffix stays out: the locals of a property's accessors share their paths.
        return JoinPath(JoinPath(JoinPath(library, Modul->CodePathOrg()), Prozedur->myNameOrg()), myNameOrg());
    if (MyType || MyEnum) {
        const CodeObject& owner = MyType ? static_cast<const CodeObject&>(*MyType) : *MyEnum;
        const std::string place = owner.myLibrary || !Modul ? std::string() : Modul->CodePathOrg();
        return JoinPath(JoinPath(JoinPath(library, place), owner.myNameOrg()), myNameOrg());
    }
    return Modul ? JoinPath(JoinPath(library, Modul->CodePathOrg()), myNameOrg()) : std::string();
}

std::string_view clsVariable::GetImageKey() const {
    const bool dead = IsDeath == 1;
    if (MyType)
        return dead ? "TypeDeath" : "type";
    if (MyEnum)
        return dead ? "EnumDeath" : "enum";
    if (IsConst)
        return dead ? "ConstDeath" : "const";
    return dead ? "VariableDeath" : "variable";
}
