#include "display/diagnosis.h"

#include "findings/object_counts.h"
#include "model/clsProjekt.h"
#include "model/counters.h"
#include "shell/clsText.h"

namespace {

int Count(const clsProjekt* projekt, clsCollection<clsModul> clsProjekt::*modules) {
    return projekt ? (projekt->*modules).Count() : 0;
}

// In the language of the program, or the fixed word if the language file lacks it.
std::string Label(Text text, const char* fixed) {
    const std::string label = Utf8TextNr(text);
    return label.empty() ? fixed : label;
}

}  // namespace

std::string DiagnosticSummary(const clsProjekt* projekt) {
    ModuleCounts totals;
    CallCounts calls;
    if (projekt) {
        for (const clsModul* modul : projekt->AllModules())
            totals.Add(*modul);
        calls = CountCalls(*projekt);
    }
    std::string text =
        Label(Text::ProjectStructure, "Projektstruktur") + "\t\t" + Label(Text::CodeObjects, "Code-Objekte") + "\n";
    const auto pair = [&text](const std::string& left, int leftCount, const std::string& right, int rightCount) {
        text += left + ": " + std::to_string(leftCount) + "\t\t" + right + ": " + std::to_string(rightCount) + "\n";
    };
    const auto line = [&text](const std::string& label, long long count) {
        text += label + ": " + std::to_string(count) + "\n";
    };
    pair(Label(Text::Modules, "Module"), Count(projekt, &clsProjekt::Modules), Label(Text::Procedures, "Prozeduren"),
         totals.procedures);
    pair(Label(Text::CountClassModules, "Klassenmodule"), Count(projekt, &clsProjekt::Klassenmodule),
         Label(Text::Variables, "Variablen"), totals.variables);
    pair(Label(Text::CountForms, "Formulare"), Count(projekt, &clsProjekt::Formulare),
         Label(Text::CountTypes, "Strukturen"), totals.types);
    pair(Label(Text::CountUserControls, "User Controls"), Count(projekt, &clsProjekt::UserControls),
         Label(Text::CountEnums, "Enums"), totals.enums);
    text += "\n";
    line(Label(Text::CountReallyCalls, "Really-Aufrufe"), calls.really);
    line(Label(Text::CountMayBeCalls, "MayBe-Aufrufe"), calls.mayBe);
    line(Label(Text::CountUses, "Verwendungen"), calls.uses);
    text += "\n\n\n" + Label(Text::ObjectInstances, "Objektinstanzen") + "\n";
    const ObjectCounts instances = projekt ? projekt->Counts() : ObjectCounts();
    line("clsModul", instances.modul);
    line("clsProzedur", instances.prozedur);
    line("clsType", instances.type);
    line("clsEnum", instances.einEnum);
    line("clsVariable", instances.variable);
    line("clsCall", instances.call);
    line("clsCollection", instances.collection);
    return text;
}
