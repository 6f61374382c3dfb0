#include "calls/driver.h"

#include "calls/declaration_calls.h"
#include "calls/edges.h"
#include "calls/keywords.h"
#include "calls/module_names.h"
#include "calls/procedure_calls.h"
#include "model/clsControl.h"
#include "model/clsEnum.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"
#include "platform/memory.h"
#include "shell/clsText.h"
#include "shell/errors.h"
#include "shell/operations.h"
#include "shell/timing.h"
#include "shell/work_ahead.h"
#include "source/module_text.h"
#include "structure/module_reader.h"

namespace {

void Clear(CodeObject& object) {
    object.IsDeath = 0;
    object.Incoming(false).Clear();
    object.Incoming(true).Clear();
}

void Clear(const clsCollection<clsVariable>& variables) {
    for (clsVariable* variable : variables)
        Clear(*variable);
}

// The members are walked even when their owner was dropped: they stand in the name spaces all the same.
void Clear(clsModul& modul) {
    for (const auto& owned : modul.Owned()) {
        Clear(*owned);
        switch (owned->Class()) {
            case ObjectClass::Prozedur: {
                auto& prozedur = static_cast<clsProzedur&>(*owned);
                prozedur.Outgoing(false).Clear();
                prozedur.Outgoing(true).Clear();
                prozedur.LocalCallsChecked = false;
                Clear(prozedur.MyVars);
                break;
            }
            case ObjectClass::Type: {
                auto& type = static_cast<clsType&>(*owned);
                for (const auto& member : type.Members())
                    Clear(*member);
                break;
            }
            case ObjectClass::Enum: {
                auto& einEnum = static_cast<clsEnum&>(*owned);
                for (const auto& member : einEnum.Members())
                    Clear(*member);
                break;
            }
            default:
                break;
        }
    }
    Clear(static_cast<CodeObject&>(modul));
    modul.OutgoingOfDeclarations().Clear();
}

// Reads the model and writes nothing but what it returns, so that modules can be walked side by side.
FoundCalls CallsOf(clsProjekt& projekt, clsModul& modul, ModuleNames& names) {
    FoundCalls found;
    ModuleReader reader(projekt, modul);
    found.Reserve(static_cast<std::size_t>(reader.tokens.Count()) / 8);
    names.TurnTo(modul);
    int first = modul.TokNrBeginnVarBereich;
    Analyse_CallsVarBereich(reader, names, first, modul.TokNrBeginnProcBereich - 1, found);
    // What a procedure's walk begins with is fetched in steps while those before it are walked.
    const int count = modul.MyProcs.Count();
    const auto procedure = [&](int nr) { return nr <= count ? modul.MyProcs.ItemNr(nr) : nullptr; };
    for (int nr = 1; nr <= count; ++nr) {
        if (const clsProzedur* third = procedure(nr + 3))
            Prefetch(third, sizeof *third);
        if (const clsProzedur* second = procedure(nr + 2))
            second->MyVars.PrefetchAll();
        if (const clsProzedur* next = procedure(nr + 1))
            for (int local = 1; local <= next->MyVars.Count(); ++local)
                next->MyVars.KeyNr(local).FetchAhead();
        clsProzedur& at = *procedure(nr);
        for (int local = 1; local <= at.MyVars.Count(); ++local)
            names.Expect(at.MyVars.KeyNr(local));
        Analyse_CallsProc(reader, names, at, found);
    }
    modul.text->ReleaseModulText();
    return found;
}

}  // namespace

void Who_Calls_Who(clsProjekt& projekt) {
    gAbort = false;
    NumberKeywords();
    clsQueryTimer timer;
    timer.Calibrieren();
    timer.Start();
    gProgress().Label(gText.TextNr(Text::ReadingCalls));
    gProgress().Range(0, projekt.CountAllModules());
    const std::vector<clsModul*> modules = projekt.AllModules();
    std::vector<ModuleNames> names(WorkAhead<FoundCalls>::Workers());
    WorkAhead<FoundCalls> walks(modules.size(), [&](std::size_t nr, std::size_t worker) {
        return CallsOf(projekt, *modules[nr], names[worker]);
    });
    for (clsModul* modul : modules) {
        if (gAbort)
            break;
        const ErrorSubject subject(modul->FullPath);
        gProgress().Label(modul->myNameOrg());
        DoEvents();
        walks.Next().Join(projekt);
        gProgress().Progressiere_mal();
    }
    timer.Halt();
    projekt.TimeForCalls = timer.Get_TotalStr();
}

void Analyse_Calls(clsProjekt& projekt, clsModul& modul) {
    NumberKeywords();
    ModuleNames names;
    CallsOf(projekt, modul, names).Join(projekt);
}

void Remove_All_Calls(clsProjekt& projekt) {
    gProgress().Label(gText.TextNr(Text::RemovingCalls));
    gProgress().Range(0, projekt.CountAllModules());
    for (const auto& modul : projekt.OwnedModules()) {
        Clear(*modul);
        gProgress().Progressiere_mal();
    }
    for (const auto& library : projekt.OwnedLibraries())
        Clear(static_cast<CodeObject&>(*library));
    projekt.calls.Clear();
}
