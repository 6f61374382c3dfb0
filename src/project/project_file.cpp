#include "project/project_file.h"

#include "libraries/project_entry.h"
#include "model/clsProjekt.h"
#include "model/counters.h"
#include "platform/code_page.h"
#include "platform/memory.h"
#include "project/module_file.h"
#include "shell/clsText.h"
#include "shell/errors.h"
#include "shell/operations.h"
#include "shell/settings.h"
#include "shell/timing.h"
#include "shell/words.h"
#include "shell/work_ahead.h"
#include "source/cond_compile.h"
#include "source/module_text.h"
#include "structure/add_objects.h"
#include "structure/module_reader.h"
#include "structure/sections.h"

namespace {

std::string KeyOf(std::string_view line) {
    return modMain::GetWortNrAusString(line, 1);
}

bool IsModuleKey(std::string_view key) {
    return key == "Module" || key == "Form" || key == "Class" || key == "UserControl";
}

ModuleKind KindOf(std::string_view key) {
    return key == "Form"          ? ModuleKind::Form
           : key == "Class"       ? ModuleKind::Class
           : key == "UserControl" ? ModuleKind::UserControl
                                  : ModuleKind::Module;
}

// How many module files behind the line at hand are missing. The lines are gone through once, at the first file that
// is missing; from then on each question has one less before it.
class MissingBehind {
public:
    MissingBehind(const Files& files, std::string_view projektDir, std::string_view projectText)
        : files_(files), projektDir_(projektDir), text_(projectText) {}

    [[nodiscard]] int Count(std::string_view line) {
        if (count_ >= 0)
            return count_ = std::max(count_ - 1, 0);
        count_ = 0;
        ForEachLine(text_.substr(static_cast<std::size_t>(line.data() + line.size() - text_.data())),
                    [this](std::string_view behind) {
                        if (IsModuleKey(KeyOf(behind)))
                            count_ += !files_.FileExists(Get_Pfad_Aus_ModulEintrag(projektDir_, behind));
                    });
        return count_;
    }

private:
    const Files& files_;
    std::string_view projektDir_;
    std::string_view text_;
    int count_ = -1;
};

// One module line of the project file.
struct ModuleLine {
    ModuleKind kind;
    std::string path;
};

std::vector<ModuleLine> ModuleLines(std::string_view projektDir, std::string_view projectText) {
    std::vector<ModuleLine> lines;
    ForEachLine(projectText, [&](std::string_view line) {
        if (const std::string key = KeyOf(line); IsModuleKey(key))
            lines.push_back({KindOf(key), Get_Pfad_Aus_ModulEintrag(projektDir, line)});
    });
    return lines;
}

void LoadModule(clsProjekt& projekt, const ModuleLine& line, WorkAhead<ModuleFile>& files,
                const std::function<int()>& moreMissing) {
    clsModul& modul = projekt.Own(std::make_unique<clsModul>());
    modul.number = static_cast<int>(projekt.OwnedModules().size());
    modul.ModulTyp = line.kind;
    modul.FullPath = line.path;
    const ErrorSubject subject(modul.FullPath);
    ModuleFile file = files.Next();
    Read_MyCodeName(projekt, modul, file, moreMissing);
    gProgress().Label(modul.myNameOrg());
    DoEvents();
    Modul_Einlesen(projekt, modul, file);
    projekt.AnzCodeZeilen += modul.AnzLineCode;
    projekt.AnzCommentZeilen += modul.AnzLineComment;
    projekt.AnzBlankZeilen += modul.AnzLineBlank;
    gProgress().Progressiere_mal();
}

void LoadLibrary(clsProjekt& projekt, bool isReference, std::string_view line) {
    clsTypeLib& library = projekt.Own(std::make_unique<clsTypeLib>());
    if (isReference)
        FillPropertysRef(library, line);
    else
        FillPropertys(library, line);
    auto& libraries = isReference ? projekt.myProjectReferences : projekt.myProjectObjects;
    libraries.AddUnlessPresent(library.NameKey(), &library);
    gProgress().Progressiere_mal();
}

// Each module and library that the project file lists. The files are read, and cut into tokens, on all processors ahead
// of the walk over the lines.
void LoadLines(clsProjekt& projekt, std::string_view projektDir, std::string_view projectText) {
    MissingBehind missing(projekt.TheFiles(), projektDir, projectText);
    const std::vector<ModuleLine> moduleLines = ModuleLines(projektDir, projectText);
    auto moduleLine = moduleLines.begin();
    WorkAhead<ModuleFile> files(moduleLines.size(), [&](std::size_t nr, std::size_t) {
        return Read_ModuleFile(projekt.TheFiles(), moduleLines[nr].path, moduleLines[nr].kind);
    });
    ForEachLine(projectText, [&](std::string_view line) {
        if (gAbort)
            return;
        const std::string key = KeyOf(line);
        if (IsModuleKey(key))
            LoadModule(projekt, *moduleLine++, files, [&] { return missing.Count(line); });
        else if (key == "Reference" || key == "Object")
            LoadLibrary(projekt, key == "Reference", line);
    });
}

// What a module's procedures bring to the project.
struct ModuleProcs {
    std::vector<clsProzedur*> procs;
    ObjectCounts counts;
};

// Changes the module alone.
ModuleProcs ReadProcs(clsProjekt& projekt, clsModul& modul) {
    UseLargePages();
    const CountedApart counted;
    ModuleProcs read;
    ModuleReader reader(projekt, modul);
    reader.joinLater = &read.procs;
    Analyse_BereichProc(reader);
    modul.text->ReleaseModulText();
    read.counts = counted.Counts();
    return read;
}

int CountLines(std::string_view text, const std::function<bool(std::string_view key)>& counts) {
    int count = 0;
    ForEachLine(text, [&](std::string_view line) { count += counts(KeyOf(line)); });
    return count;
}

}  // namespace

void ForEachLine(std::string_view text, const std::function<void(std::string_view line)>& line) {
    for (std::size_t from = 0; from < text.size();) {
        const auto end = std::min(text.find(vbCrLf, from), text.size());
        line(text.substr(from, end - from));
        from = end + vbCrLf.size();
    }
}

int GetAnzahlModule(std::string_view projectText) {
    return CountLines(projectText, [](std::string_view key) {
        return key == "Form" || key == "Module" || key == "Class" || key == "Usercontrol";
    });
}

int GetAnzahlComponents(std::string_view projectText) {
    return CountLines(projectText, [](std::string_view key) { return LowerCase(key) == "object"; });
}

int GetAnzahlReferences(std::string_view projectText) {
    return CountLines(projectText, [](std::string_view key) { return LowerCase(key) == "reference"; });
}

std::string Get_Pfad_Aus_ModulEintrag(std::string_view projektDir, std::string_view eintrag) {
    const bool isDirect = eintrag.starts_with("Form") || eintrag.starts_with("UserControl");
    const std::string_view separator = isDirect ? "=" : "; ";
    const auto found = eintrag.find(separator);
    const std::string_view rest =
        found == std::string_view::npos ? std::string_view() : eintrag.substr(found + separator.size());
    if (rest.find(":\\") != std::string_view::npos)
        return std::string(rest);
    return std::string(projektDir).append(rest);
}

std::string Get_ProjektName(const clsProjekt& projekt) {
    std::string name;
    if (!projekt.TheFiles().FileExists(projekt.FullPath))
        return name;
    const FileText file = projekt.TheFiles().ReadText(projekt.FullPath);
    if (file.error != FileError::None)
        ShowError("clsProjekt: Get_ProjektName", 75, Describe(file.error));
    ForEachLine(file.text, [&](std::string_view line) {
        if (KeyOf(line) == "Name")
            name = modMain::GetStringContent(line);
    });
    return name;
}

void CondComp_Init(const clsProjekt& projekt, std::string_view projectText) {
    ForEachLine(projectText, [](std::string_view line) {
        if (KeyOf(line) != "CondComp")
            return;
        const std::vector<CondConstant> constants = CondCompsOfLine(line);
        if (constants.empty())
            return;
        gCondComps.resize(3);
        gCondComps.insert(gCondComps.end(), constants.begin(), constants.end());
    });
    gCondComps.insert(gCondComps.end(), projekt.definedCondComps.begin(), projekt.definedCondComps.end());
}

void Projekt_Laden(clsProjekt& projekt) {
    const ErrorSubject subject(projekt.FullPath);
    clsQueryTimer timer;
    timer.Start();
    gAbort = false;
    const FileText file = projekt.TheFiles().ReadText(projekt.FullPath);
    if (file.error != FileError::None) {
        ShowError("clsProjekt: Projekt_Laden", file.error == FileError::NotFound ? 53 : 75, Describe(file.error));
        return;
    }
    const std::string_view projektDir = modMain::DirOrFileName(projekt.FullPath, 1);
    projekt.MyName = Get_ProjektName(projekt);
    const int modules = GetAnzahlModule(file.text);
    if (modules == 0)
        return;
    CondComp_Init(projekt, file.text);
    gProgress().Caption(projekt.MyName);
    gProgress().Label(gText.TextNr(Text::LoadingProject));
    gProgress().Range(0, modules + GetAnzahlComponents(file.text) + GetAnzahlReferences(file.text));
    LoadLines(projekt, projektDir, file.text);
    if (!gAbort)
        Alle_ModulStrukturen_Generieren(projekt);
    timer.Halt();
    projekt.TimeForStructure = timer.Get_TotalStr();
}

void Alle_ModulStrukturen_Generieren(clsProjekt& projekt) {
    const int count = projekt.CountAllModules();
    if (count < 1)
        return;
    gProgress().Caption(projekt.FullPath);
    gProgress().Label(gText.TextNr(Text::ReadingProcedures));
    gProgress().Range(1, count);
    // Modules are read side by side; what the project knows of their procedures is filed in order.
    const std::vector<clsModul*> modules = projekt.AllModules();
    WorkAhead<ModuleProcs> reading(modules.size(),
                                   [&](std::size_t nr, std::size_t) { return ReadProcs(projekt, *modules[nr]); });
    std::size_t last = modules.size();
    for (std::size_t nr = 0; nr < last; ++nr) {
        const ErrorSubject subject(modules[nr]->FullPath);
        gProgress().Label(modules[nr]->myNameOrg());
        DoEvents();
        if (gAbort)
            last = reading.Stop();
        if (nr >= last)
            return;
        const ModuleProcs read = reading.Next();
        for (clsProzedur* prozedur : read.procs)
            Add_Proc_ToProjekt(projekt, *prozedur);
        gCounts += read.counts;
        gProgress().Progressiere_mal();
    }
}
