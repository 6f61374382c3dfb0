#include "findings/object_counts.h"

#include "model/clsControl.h"
#include "model/clsProjekt.h"
#include "model/module_walk.h"

void ModuleCounts::Add(const clsModul& modul) {
    procedures += modul.MyProcs.Count();
    variables += modul.MyVars.Count();
    types += modul.myTypes.Count();
    enums += modul.myEnums.Count();
    controls += modul.MyControls.Count();
    for (const clsType* type : modul.myTypes)
        variables += type->MyVars.Count();
    for (const clsEnum* einEnum : modul.myEnums)
        variables += einEnum->MyVars.Count();
    for (const clsProzedur* prozedur : modul.MyProcs)
        variables += prozedur->MyVars.Count();
}

void ForEachMarked(const clsProjekt& projekt, const std::function<void(const CodeObject&)>& use) {
    for (const clsModul* modul : projekt.AllModules()) {
        for (const clsProzedur* prozedur : modul->MyProcs)
            use(*prozedur);
        for (const clsVariable* variable : modul->MyVars)
            if (variable->MyName() != "me")
                use(*variable);
        ForEachWithMembers(modul->myTypes, use);
        // The members of enumerations are among the module's variables.
        for (const clsEnum* einEnum : modul->myEnums)
            use(*einEnum);
    }
}

CallCounts CountCalls(const clsProjekt& projekt) {
    CallCounts counts;
    projekt.calls.ForEach([&](const clsCall& call) {
        ++(call.Type() == CallType::Really  ? counts.really
           : call.Type() == CallType::MayBe ? counts.mayBe
                                            : counts.uses);
    });
    ForEachMarked(projekt, [&](const CodeObject& object) {
        ++counts.marked;
        counts.dead += object.IsDeath == 1;
        counts.undead += object.IsDeath == 2;
    });
    return counts;
}
