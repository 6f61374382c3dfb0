#include "model/clsTypeLib.h"

clsModul& clsTypeLib::NewClass() {
    constexpr std::size_t kBlock = 512;  // most classes have few members, and a library can have thousands of classes
    clsModul& oneClass = *classes_.emplace_back(std::make_unique<clsModul>(names_, Memory(), kBlock));
    GiveNumber(oneClass);
    return oneClass;
}

void clsTypeLib::GiveNumber(CodeObject& object) {
    object.myLibrary = this;
    object.numberInModule = ObjectCount();
    details_.emplace_back();
}

CodeObject* clsTypeLib::Get_Object_From_CodePath(std::string_view codePath) {
    std::string_view last = codePath.substr(codePath.rfind('.') + 1);
    last = last.substr(0, last.find(" ["));
    if (const clsSpaceName* const entry = PrivNameSpace.Item(last))
        for (CodeObject* object : entry->Objects())
            if (object->CodePath() == codePath)
                return object;
    for (clsModul* oneClass : myCoClasses)
        if (CodeObject* const object = oneClass->Get_Object_From_CodePath(codePath))
            return object;
    return nullptr;
}
