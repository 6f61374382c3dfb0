#include "calls/driver.h"

#include "calls/declaration_calls.h"
#include "calls/edges.h"
#include "calls/keywords.h"
#include "calls/module_names.h"
#include "calls/procedure_calls.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "shell/clsText.h"
#include "shell/errors.h"
#include "shell/operations.h"
#include "shell/timing.h"
#include "shell/work_ahead.h"
#include "structure/module_reader.h"

namespace {

struct WalkedModule {
    std::vector<clsCall> calls;
    PassedWords passedWords;
};

// Reads the model and changes nothing that other threads see, so that modules can be walked side by side.
WalkedModule Walk(const clsProjekt& projekt, clsModul& modul, ModuleNames& names, FoundCalls& found) {
    ModuleReader reader(modul);
    names.TurnTo(modul);
    int first = modul.TokNrBeginnVarBereich;
    Analyse_CallsVarBereich(reader, names, first, modul.TokNrBeginnProcBereich - 1, found);
    for (clsProzedur* prozedur : modul.MyProcs) {
        for (int local = 1; local <= prozedur->MyVars.Count(); ++local)
            names.Expect(prozedur->MyVars.KeyNr(local));
        Analyse_CallsProc(projekt, reader, names, *prozedur, found);
    }
    modul.text->ReleaseModulText();
    return {found.Take(), names.Passed()};
}

}  // namespace

void Who_Calls_Who(clsProjekt& projekt) {
    gAbort = false;
    NumberKeywords(projekt.TheNames());
    clsQueryTimer timer;
    timer.Calibrieren();
    timer.Start();
    gProgress().Label(gText.TextNr(Text::ReadingCalls));
    gProgress().Range(0, projekt.CountAllModules());
    const std::vector<clsModul*> modules = projekt.AllModules();
    std::vector<ModuleNames> names;
    std::vector<FoundCalls> foundBy(WorkAhead<int>::Workers());
    for (std::size_t worker = 0; worker < WorkAhead<int>::Workers(); ++worker)
        names.emplace_back(projekt);
    std::vector<std::vector<clsCall>> found;
    {
        WorkAhead<WalkedModule> walks(modules.size(), [&](std::size_t nr, std::size_t worker) {
            return Walk(projekt, *modules[nr], names[worker], foundBy[worker]);
        });
        for (clsModul* modul : modules) {
            if (gAbort)
                break;
            const ErrorSubject subject(modul->FullPath);
            gProgress().Label(modul->myNameOrg());
            DoEvents();
            WalkedModule walked = walks.Next();
            found.push_back(std::move(walked.calls));
            modul->passedWords = std::move(walked.passedWords);
            gProgress().Progressiere_mal();
        }
    }
    projekt.calls.Make(std::move(found), projekt.ObjectCount());
    projekt.callsKnown = !gAbort;
    timer.Halt();
    projekt.TimeForCalls = timer.Get_TotalStr();
}

void Remove_All_Calls(clsProjekt& projekt) {
    gProgress().Label(gText.TextNr(Text::RemovingCalls));
    gProgress().Range(0, 1);
    projekt.calls.Clear();
    projekt.callsKnown = false;
    projekt.ClearMarks();
    gProgress().Progressiere_mal();
}
