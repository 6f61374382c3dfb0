#include "model/clsType.h"

#include "model/clsModul.h"
#include "model/clsTypeLib.h"
#include "model/clsVariable.h"

clsType::~clsType() = default;

std::string clsType::CodePathOrg() const {
    const std::string place = myLibrary ? myLibrary->CodePathOrg() : Modul ? Modul->CodePathOrg() : std::string();
    return JoinPath(place, myNameOrg()) + " [Type]";
}

std::string_view clsType::GetImageKey() const {
    return IsDeath == 1 ? "TypeDeath" : "type";
}

clsVariable& clsType::Own(std::unique_ptr<clsVariable> member) {
    owned_.push_back(std::move(member));
    return *owned_.back();
}
