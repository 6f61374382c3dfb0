// The walk over what a module declares.
#pragma once

#include "model/clsEnum.h"
#include "model/clsModul.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"

/// Calls `use` for each of `owners`, which are types or enumerations, and after it for its members.
template <class Owner, class Use>
void ForEachWithMembers(const clsCollection<Owner>& owners, const Use& use) {
    for (const Owner* owner : owners) {
        use(*owner);
        for (const clsVariable* member : owner->MyVars)
            use(*member);
    }
}

/// Calls `use` for the types and enumerations of a module with their members, its variables and constants, and its
/// procedures. `Me` is left out: it is the module itself.
template <class Use>
void ForEachDeclared(const clsModul& modul, const Use& use) {
    ForEachWithMembers(modul.myTypes, use);
    ForEachWithMembers(modul.myEnums, use);
    for (const clsVariable* variable : modul.MyVars)
        if (!variable->MyEnum && variable->MyName() != "me")  // the members of enumerations are among them
            use(*variable);
    for (const clsProzedur* prozedur : modul.MyProcs)
        use(*prozedur);
}
