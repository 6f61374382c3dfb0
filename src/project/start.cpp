#include "project/start.h"

#include "model/clsProjekt.h"
#include "platform/code_page.h"
#include "platform/registry.h"
#include "shell/clsText.h"
#include "shell/errors.h"
#include "shell/operations.h"
#include "shell/program.h"
#include "shell/settings.h"
#include "shell/timing.h"

std::vector<std::string> gCLSIDKeys;

void CloseProject() {
    if (gProjekt)
        gProjekt->DestroyMe();
    gProjekt.reset();
}

void InitGlobals() {
    CloseProject();
    gPublicNameSpace.ClearAll();
    gText = {};
    gAbort = false;
    gAction.clear();
    gCondComps.clear();
    CondComps_Win32_Win16(Settings().Win32);
    gCLSIDKeys.clear();
    ClearProblems();
    for (TimingRecord* record : {&gTimerGetTypAusName, &gTimerGetChild, &gTimerSetMayBeCalls, &gTimerGetObjektAusName,
                                 &gTimerCallsProc, &gTimerProjektOeffnen})
        *record = {};
}

Settings StartProgram(const Files& files, SettingsFile& settings, Registry* registry,
                      const std::string& programDirectory) {
    InitGlobals();
    Settings options = Optionen_Ini_Load(settings);
    gText.Language = options.Language;
    SetActiveCodePage(CodePage(options.CodePage));
    gText.SetLanguage(files, programDirectory);
    if (!registry)
        return options;
    gCLSIDKeys = registry->SubKeys(RegistryRoot::ClassesRoot, "CLSID");
    Version_Record(*registry, ProgramVersion());
    return options;
}
