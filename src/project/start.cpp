#include "project/start.h"

#include "model/clsProjekt.h"
#include "platform/code_page.h"
#include "platform/registry.h"
#include "shell/clsText.h"
#include "shell/errors.h"
#include "shell/operations.h"
#include "shell/program.h"
#include "shell/settings.h"
#include "source/tokens.h"

std::unique_ptr<clsProjekt> gProjekt;

clsProjekt& NewProject(Files& files, const std::string& path) {
    CloseProject();
    gProjekt = std::make_unique<clsProjekt>(files, ActiveCodePage());
    gProjekt->FullPath = path;
    SetProblems(&gProjekt->problems);
    return *gProjekt;
}

void CloseProject() {
    SetProblems(nullptr);
    gProjekt.reset();
    ReleaseTokeniserArrays();
}

void InitGlobals() {
    CloseProject();
    gText = {};
    gAbort = false;
}

Settings StartProgram(const Files& files, SettingsFile& settings, Registry* registry,
                      const std::string& programDirectory) {
    InitGlobals();
    Settings options = Optionen_Ini_Load(settings);
    gText.Language = options.Language;
    SetActiveCodePage(CodePage(options.CodePage));
    gText.SetLanguage(files, programDirectory);
    if (registry)
        Version_Record(*registry, ProgramVersion());
    return options;
}
