#include "findings/object_counts.h"

#include "model/clsControl.h"
#include "model/clsEnum.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"

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

CallCounts CountCalls(const clsProjekt& projekt) {
    CallCounts counts;
    projekt.calls.ForEach([&](const clsCall& call) {
        ++(call.Type() == CallType::Really  ? counts.really
           : call.Type() == CallType::MayBe ? counts.mayBe
                                            : counts.uses);
    });
    const auto count = [&](const CodeObject& object) {
        counts.dead += object.IsDeath == 1;
        counts.undead += object.IsDeath == 2;
    };
    for (const clsModul* modul : projekt.AllModules()) {
        for (const clsProzedur* prozedur : modul->MyProcs)
            count(*prozedur);
        for (const clsVariable* variable : modul->MyVars)
            count(*variable);
        for (const clsType* type : modul->myTypes) {
            count(*type);
            for (const clsVariable* member : type->MyVars)
                count(*member);
        }
        // The members of enumerations stand among the module's variables.
        for (const clsEnum* einEnum : modul->myEnums)
            count(*einEnum);
    }
    return counts;
}
