// A user-defined type with its members.
#pragma once

#include "model/clsCollection.h"
#include "model/code_object.h"

class clsType final : public CodeObject {
public:
    explicit clsType(std::pmr::memory_resource* memory = std::pmr::get_default_resource())
        : CodeObject(ObjectClass::Type), MyVars(memory) {}

    Pos NamePos = 0;
    clsCollection<clsVariable> MyVars;  // members by name
};
