// An enumeration with its members.
#pragma once

#include "model/clsCollection.h"
#include "model/code_object.h"

class clsEnum final : public CodeObject {
public:
    explicit clsEnum(std::pmr::memory_resource* memory = std::pmr::get_default_resource())
        : CodeObject(ObjectClass::Enum), MyVars(memory) {}

    Pos NamePos = 0;
    clsCollection<clsVariable> MyVars;  // members by name
};
