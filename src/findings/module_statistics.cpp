#include "findings/module_statistics.h"

#include <algorithm>

#include "model/clsEnum.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"
#include "source/module_text.h"

int DependenciesExtern_CalledBy_Count(const clsModul& modul) {
    int count = 0;
    // An edge that starts in a declarations section counts, even in that of the module itself.
    const auto add = [&](const CodeObject& object) {
        for (const clsCall* call : object.CalledByAll())
            count += !call->CallProcedure() || call->CallProcedure()->Modul != &modul;
    };
    const auto addProcedures = [&](const CodeObject& object) {
        for (const clsCall* call : object.CalledByAll())
            count += call->CallProcedure() && call->CallProcedure()->Modul != &modul;
    };
    for (const clsVariable* variable : modul.MyVars)
        add(*variable);
    for (const clsProzedur* prozedur : modul.MyProcs)
        addProcedures(*prozedur);
    for (const clsType* type : modul.myTypes)
        for (const clsVariable* member : type->MyVars)
            addProcedures(*member);
    for (const clsEnum* einEnum : modul.myEnums)
        for (const clsVariable* member : einEnum->MyVars)
            add(*member);
    return count;
}

int DependenciesExtern_Calls_Count(const clsModul& modul) {
    const auto isOutside = [&modul](const CodeObject& target) {
        if (target.Class() == ObjectClass::Modul)
            return &target != &modul;
        return target.Modul ? target.Modul != &modul : target.myLibrary != nullptr;
    };
    int count = 0;
    for (const clsProzedur* prozedur : modul.MyProcs)
        for (const clsCall* call : prozedur->CallsAll())
            count += isOutside(*call->Parent);
    return count;
}

int LinesOf(const CodeObject& object) {
    if (object.Class() == ObjectClass::Variable || !object.Modul || !object.Modul->text)
        return 1;
    const std::string_view text = object.Modul->text->ModulTextOrg();
    const Pos from = std::clamp<Pos>(object.DeclareStart, 1, Len(text) + 1);
    const Pos last = std::clamp<Pos>(object.DeclareEnd - 1, from, Len(text) + 1);
    return 1 + static_cast<int>(std::count(text.begin() + from - 1, text.begin() + last - 1, '\n'));
}

ModuleStatistics StatisticsOf(const clsProjekt& projekt, const clsModul& modul) {
    ModuleStatistics of;
    of.code = modul.AnzLineCode;
    of.comment = modul.AnzLineComment;
    of.blank = modul.AnzLineBlank;
    of.procedures = modul.MyProcs.Count();
    of.variables = modul.MyVars.Count();
    of.calledBy = DependenciesExtern_CalledBy_Count(modul);
    of.calls = DependenciesExtern_Calls_Count(modul);
    if (!projekt.callsKnown)
        return of;
    ProcedureLife& life = of.life.emplace();
    for (const clsProzedur* prozedur : modul.MyProcs) {
        const bool isDead = prozedur->IsDeath == 1;
        ++(isDead ? life.dead : prozedur->IsDeath == 2 ? life.undead : life.living);
        if (isDead)
            life.deadLines += LinesOf(*prozedur);
    }
    return of;
}
