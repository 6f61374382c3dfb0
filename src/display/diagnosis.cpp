#include "display/diagnosis.h"

#include "findings/object_counts.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/counters.h"

namespace {

int Count(const clsProjekt* projekt, clsCollection<clsModul> clsProjekt::*modules) {
    return projekt ? (projekt->*modules).Count() : 0;
}

}  // namespace

std::string DiagnosticSummary(const clsProjekt* projekt) {
    ModuleCounts totals;
    int really = 0;
    int mayBe = 0;
    if (projekt)
        for (const clsCollection<clsModul>* modules : {&projekt->Formulare, &projekt->Klassenmodule, &projekt->Modules})
            for (const clsModul* modul : *modules) {
                totals.Add(*modul);
                for (const clsProzedur* prozedur : modul->MyProcs)
                    for (const clsCall* call : prozedur->CallsAll())
                        ++(call->Type() == CallType::MayBe ? mayBe : really);
            }

    std::string text = "Projektstruktur\t\tCode-Objekte\n";
    const auto pair = [&text](const char* left, int leftCount, const char* right, int rightCount) {
        text += left + std::to_string(leftCount) + "\t\t" + right + std::to_string(rightCount) + "\n";
    };
    const auto line = [&text](const char* label, long long count) { text += label + std::to_string(count) + "\n"; };
    pair("Module: ", Count(projekt, &clsProjekt::Modules), "Prozeduren: ", totals.procedures);
    pair("Klassenmodule: ", Count(projekt, &clsProjekt::Klassenmodule), "Variablen: ", totals.variables);
    pair("Formulare: ", Count(projekt, &clsProjekt::Formulare), "Strukturen: ", totals.types);
    line("Enums: ", totals.enums);
    text += "\n";
    line("Really-Aufrufe: ", really);
    line("MayBe-Aufrufe: ", mayBe);
    text += "\n\n\nObjektinstanzen\n";
    const ObjectCounts instances = projekt ? projekt->Counts() : ObjectCounts();
    line("clsModul: ", instances.modul);
    line("clsProzedur: ", instances.prozedur);
    line("clsType: ", instances.type);
    line("clsEnum: ", instances.einEnum);
    line("clsVariable: ", instances.variable);
    line("clsCall: ", instances.call);
    line("clsCollection: ", instances.collection);
    return text;
}
