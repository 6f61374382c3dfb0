#include "model/clsEnum.h"

#include "model/clsModul.h"
#include "model/clsTypeLib.h"
#include "model/clsVariable.h"

clsEnum::~clsEnum() = default;

std::string clsEnum::CodePathOrg() const {
    const std::string place = myLibrary ? myLibrary->CodePathOrg() : Modul ? Modul->CodePathOrg() : std::string();
    return JoinPath(place, myNameOrg()) + " [Enum]";
}

std::string_view clsEnum::GetImageKey() const {
    return IsDeath == 1 ? "EnumDeath" : "enum";
}

clsVariable& clsEnum::Own(std::unique_ptr<clsVariable> member) {
    owned_.push_back(std::move(member));
    return *owned_.back();
}
