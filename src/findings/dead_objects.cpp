// The procedures are marked in one walk from the living ones over their calls, with a list of what is still to be
// looked at in place of recursion; whatever the walk has not reached is dead or undead by whether it has a caller.
#include "findings/dead_objects.h"

#include <unordered_set>
#include <vector>

#include "calls/edges.h"
#include "model/clsEnum.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"
#include "source/module_text.h"
#include "source/words.h"

namespace {

int CountNotCalled(const clsCollection<clsVariable>& variables) {
    int count = 0;
    for (const clsVariable* variable : variables)
        count += variable->CalledByAll().Count() == 0;
    return count;
}

void MarkNotCalled(const clsCollection<clsVariable>& variables) {
    for (clsVariable* variable : variables)
        variable->IsDeath = variable->CalledByAll().Count() == 0;
}

template <class Owner>
void MarkWithMembers(const clsCollection<Owner>& owners) {
    for (Owner* owner : owners) {
        MarkNotCalled(owner->MyVars);
        const int members = owner->MyVars.Count();
        owner->IsDeath = members > 0 && CountNotCalled(owner->MyVars) == members;
    }
}

// Everything of a module but its procedures.
void MarkDeclarations(const clsModul& modul) {
    for (clsVariable* variable : modul.MyVars)
        if (variable->MyName() != "me")
            variable->IsDeath = variable->CalledByAll().Count() == 0;
    MarkWithMembers(modul.myTypes);
    MarkWithMembers(modul.myEnums);
}

bool IsRoot(const clsProzedur& prozedur) {
    return prozedur.IsEvent || prozedur.Modul->ModulTyp == ModuleKind::Class ||
           prozedur.Modul->ModulTyp == ModuleKind::UserControl;
}

void MarkProcedures(const std::vector<clsModul*>& modules) {
    constexpr std::int16_t kNotReached = 2;
    std::vector<const clsProzedur*> open;
    for (const clsModul* modul : modules)
        for (clsProzedur* prozedur : modul->MyProcs) {
            prozedur->IsDeath = IsRoot(*prozedur) ? 0 : kNotReached;
            if (prozedur->IsDeath == 0)
                open.push_back(prozedur);
        }
    while (!open.empty()) {
        const clsProzedur* prozedur = open.back();
        open.pop_back();
        for (const clsCall* call : prozedur->CallsAll()) {
            if (call->Parent->Class() != ObjectClass::Prozedur || call->Parent->IsDeath != kNotReached)
                continue;
            call->Parent->IsDeath = 0;
            open.push_back(static_cast<const clsProzedur*>(call->Parent));
        }
    }
    for (const clsModul* modul : modules)
        for (clsProzedur* prozedur : modul->MyProcs)
            if (prozedur->IsDeath == kNotReached && prozedur->CalledByAll().Count() == 0)
                prozedur->IsDeath = 1;
}

// The next place of a variable's name after `from`, or 0; `counts` tells whether it is a call of the variable.
Pos Here_OneCall_Var(const ModuleText& text, const clsProzedur& prozedur, const clsVariable& variable, Pos from,
                     bool& counts) {
    const Pos place = Suche_CallWort_Im_Code(text, from, variable.MyName());
    counts = place != 0 && place <= prozedur.DeclareEnd;
    return place;
}

}  // namespace

void Tote_Untote_Kennzeichnen(clsProjekt& projekt) {
    // A module that has left the collections, because another one has its name now, keeps no mark.
    projekt.ClearMarks();
    const std::vector<clsModul*> modules = projekt.AllModules();
    for (const clsModul* modul : modules)
        MarkDeclarations(*modul);
    MarkProcedures(modules);
    projekt.marksKnown = true;
}

int Anz_NotCalled_Vars(const clsType& type) {
    return CountNotCalled(type.MyVars);
}

int Anz_NotCalled_Vars(const clsEnum& einEnum) {
    return CountNotCalled(einEnum.MyVars);
}

std::vector<LocalUse> Check_ProcVars_Calls(const clsProzedur& prozedur) {
    std::vector<LocalUse> uses;
    if (prozedur.isDeclare || !prozedur.Modul->text)
        return uses;
    const ModuleText& text = *prozedur.Modul->text;
    for (clsVariable* variable : prozedur.MyVars) {
        bool counts = false;
        Pos place = prozedur.ArgListEnd;
        while ((place = Here_OneCall_Var(text, prozedur, *variable, place + 1, counts)) != 0 &&
               place <= prozedur.DeclareEnd)
            if (counts && place != variable->DeclareStart)
                uses.push_back({variable, place});
    }
    return uses;
}
