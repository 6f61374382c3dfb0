#include "findings/start_up.h"

#include <unordered_set>
#include <vector>

#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "platform/code_page.h"

const clsProzedur* StartUpProcedure(const clsProjekt& projekt) {
    if (LowerCase(projekt.Startup) != "sub main")
        return nullptr;
    for (const clsModul* modul : projekt.Modules)
        for (const clsProzedur* prozedur : modul->MyProcs)
            if (prozedur->MyName() == "main" && prozedur->ProzedurTyp == ProcKind::Sub && !prozedur->isDeclare)
                return prozedur;
    return nullptr;
}

bool LeadsTo(const clsProzedur& caller, const clsProzedur& target) {
    std::vector<const clsProzedur*> open{&target};
    std::unordered_set<const clsProzedur*> known{&target};
    while (!open.empty()) {
        const clsProzedur* const at = open.back();
        open.pop_back();
        for (const clsCall* call : at->CalledByAll()) {
            const clsProzedur* const from = call->CallProcedure();
            if (from == &caller)
                return true;
            if (from && known.insert(from).second)
                open.push_back(from);
        }
    }
    return false;
}
