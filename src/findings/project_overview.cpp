#include "findings/project_overview.h"

#include <algorithm>

#include "findings/object_counts.h"
#include "findings/start_up.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"

namespace {

constexpr std::size_t kLargest = 10;

// The word of the project file, as the development environment calls it.
std::string_view TypeOf(std::string_view word) {
    const std::string type = LowerCase(word);
    if (type == "exe")
        return "Standard EXE";
    if (type == "oleexe")
        return "ActiveX EXE";
    if (type == "oledll")
        return "ActiveX DLL";
    return type == "control" ? "ActiveX Control" : word;
}

const CodeObject* StartUpObject(const clsProjekt& projekt) {
    if (const clsProzedur* const main = StartUpProcedure(projekt))
        return main;
    const std::string name = LowerCase(projekt.Startup);
    const clsModul* const modul = projekt.GetModuleFromCodePath(name);
    return modul && modul->MyName() == name ? modul : nullptr;
}

std::vector<ProjectOverview::Module> LargestModules(const clsProjekt& projekt) {
    std::vector<const clsModul*> modules;
    for (const clsModul* modul : projekt.AllModules())
        modules.push_back(modul);
    // Of two with as many lines, the one that the project lists first.
    std::ranges::stable_sort(modules, std::greater<>(), [](const clsModul* modul) { return modul->AnzLineCode; });
    modules.resize(std::min(modules.size(), kLargest));
    std::vector<ProjectOverview::Module> largest;
    largest.reserve(modules.size());
    for (const clsModul* modul : modules)
        largest.push_back({modul->CodePath(), std::string(modul->myNameOrg()), modul->ModulTyp, modul->AnzLineCode});
    return largest;
}

}  // namespace

ProjectOverview OverviewOf(const clsProjekt& projekt) {
    ProjectOverview overview;
    overview.name = projekt.MyName;
    overview.type = TypeOf(projekt.Type);
    if (projekt.Startup.find("(None)") == std::string::npos)
        overview.startUp = projekt.Startup;
    if (const CodeObject* object = StartUpObject(projekt))
        overview.startUpPath = object->CodePath();
    overview.standardModules = projekt.Modules.Count();
    overview.forms = projekt.Formulare.Count();
    overview.classModules = projekt.Klassenmodule.Count();
    overview.userControls = projekt.UserControls.Count();
    ModuleCounts objects;
    for (const clsModul* modul : projekt.AllModules())
        objects.Add(*modul);
    for (const auto& modul : projekt.OwnedModules())
        overview.filesMissing += modul->fileError != FileError::None;
    overview.procedures = objects.procedures;
    overview.codeLines = projekt.AnzCodeZeilen;
    overview.commentLines = projekt.AnzCommentZeilen;
    overview.blankLines = projekt.AnzBlankZeilen;
    if (projekt.callsKnown && projekt.marksKnown) {
        const CallCounts calls = CountCalls(projekt);
        overview.deaths = {calls.dead, calls.undead, calls.marked};
    }
    overview.problems = static_cast<int>(projekt.problems.All().size());
    overview.libraries = static_cast<int>(projekt.OwnedLibraries().size());
    overview.librariesMissing = static_cast<int>(
        std::ranges::count_if(projekt.OwnedLibraries(), [](const auto& library) { return library->file.IsMissing(); }));
    overview.largest = LargestModules(projekt);
    return overview;
}
