#include "project/project_file.h"

#include "libraries/library_loader.h"

#include "libraries/project_entry.h"
#include "model/clsProjekt.h"
#include "platform/code_page.h"
#include "project/replace.h"
#include "project/start.h"
#include "shell/clsText.h"
#include "shell/errors.h"
#include "shell/operations.h"
#include "shell/timing.h"
#include "shell/words.h"
#include "source/cond_compile.h"

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

// Number of missing module files after the current line, for the choice "same answer for all". Counted once, at the
// first missing file; each further question has one less.
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

struct ModuleLine {
    std::string_view line;
    ModuleSource source;
};

std::vector<ModuleLine> ModuleLines(std::string_view projektDir, std::string_view projectText) {
    std::vector<ModuleLine> lines;
    ForEachLine(projectText, [&](std::string_view line) {
        if (const std::string key = KeyOf(line); IsModuleKey(key))
            lines.push_back({line, {KindOf(key), Get_Pfad_Aus_ModulEintrag(projektDir, line)}});
    });
    return lines;
}

// The registry is read here, and not at the start of the program: it can be large, and many projects need none.
void FindLibraries(clsProjekt& projekt, LibrarySearch& search) {
    search.Begin(projekt.FullPath);
    if (!search.TheRegistry().IsRead())
        gCLSIDKeys = search.TheRegistry().SubKeys(RegistryRoot::ClassesRoot, "CLSID");
    LibraryLoader(projekt, search).LoadAll();
}

void LoadLibraries(clsProjekt& projekt, std::string_view projectText, LibrarySearch* search) {
    ForEachLine(projectText, [&](std::string_view line) {
        const std::string key = KeyOf(line);
        if (key == "Reference")
            FillPropertysRef(projekt, projekt.NewLibrary(), line);
        else if (key == "Object")
            FillPropertys(projekt, projekt.NewLibrary(), line);
        else
            return;
        gProgress().Progressiere_mal();
    });
    if (search && !projekt.OwnedLibraries().empty())
        FindLibraries(projekt, *search);
}

// Reports a file that could not be read. Asks about one that does not exist ("Laden abbrechen?"); Yes sets gAbort.
void TellUnreadable(const clsProjekt& projekt, const clsModul& modul, const std::function<int()>& moreMissing) {
    if (projekt.TheFiles().FileExists(modul.FullPath)) {
        ShowError("clsModul: Read_MyCodeName", 75, Describe(modul.fileError));
        return;
    }
    NoteProblem("clsModul: Read_MyCodeName", "File not found: " + modul.FullPath);
    if (AskMissingFile("File not found: " + modul.FullPath + "\r\n\r\nLaden abbrechen?", moreMissing()))
        gAbort = true;
}

// Each module that the project file lists. After a cancel, the modules not yet taken are omitted.
void LoadModules(clsProjekt& projekt, std::string_view projektDir, std::string_view projectText) {
    MissingBehind missing(projekt.TheFiles(), projektDir, projectText);
    const std::vector<ModuleLine> lines = ModuleLines(projektDir, projectText);
    std::vector<ModuleChange> changes;
    changes.reserve(lines.size());
    for (const ModuleLine& line : lines)
        changes.push_back({{}, line.source});
    Replace(projekt, changes, [&](std::size_t nr, const clsModul& modul) {
        if (gAbort)
            return false;
        if (modul.fileError != FileError::None)
            TellUnreadable(projekt, modul, [&] { return missing.Count(lines[nr].line); });
        gProgress().Label(modul.myNameOrg());
        DoEvents();
        gProgress().Progressiere_mal();
        return true;
    });
}

// Indices in OwnedModules.
std::vector<std::size_t> ChangedModules(const clsProjekt& projekt) {
    std::vector<std::size_t> changed;
    for (std::size_t place = 0; place < projekt.OwnedModules().size(); ++place) {
        const clsModul& modul = *projekt.OwnedModules()[place];
        if (modul.DateLastModified != 0 &&
            projekt.TheFiles().DateLastModified(modul.FullPath) != modul.DateLastModified)
            changed.push_back(place);
    }
    return changed;
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

void CondComp_Init(clsProjekt& projekt, std::string_view projectText) {
    ForEachLine(projectText, [&projekt](std::string_view line) {
        if (KeyOf(line) != "CondComp")
            return;
        const std::vector<CondConstant> constants = CondCompsOfLine(line);
        if (constants.empty())
            return;
        projekt.condComps.resize(3);
        projekt.condComps.insert(projekt.condComps.end(), constants.begin(), constants.end());
    });
    projekt.condComps.insert(projekt.condComps.end(), projekt.definedCondComps.begin(), projekt.definedCondComps.end());
}

void Projekt_Laden(clsProjekt& projekt, LibrarySearch* search) {
    const ErrorSubject subject(projekt.FullPath);
    clsQueryTimer timer;
    timer.Start();
    gAbort = false;
    const FileText file = projekt.TheFiles().ReadText(projekt.FullPath);
    if (file.error != FileError::None) {
        ShowError("clsProjekt: Projekt_Laden", file.error == FileError::NotFound ? 53 : 75, Describe(file.error));
        return;
    }
    projekt.MyName = Get_ProjektName(projekt);
    const int modules = GetAnzahlModule(file.text);
    if (modules == 0)
        return;
    CondComp_Init(projekt, file.text);
    gProgress().Caption(projekt.MyName);
    gProgress().Label(gText.TextNr(Text::LoadingProject));
    gProgress().Range(0, modules + GetAnzahlComponents(file.text) + GetAnzahlReferences(file.text));
    LoadLibraries(projekt, file.text, search);
    LoadModules(projekt, modMain::DirOrFileName(projekt.FullPath, 1), file.text);
    timer.Halt();
    projekt.TimeForStructure = timer.Get_TotalStr();
}

int CountChangedModules(const clsProjekt& projekt) {
    return static_cast<int>(ChangedModules(projekt).size());
}

int ChangedModule_Regenerieren(clsProjekt& projekt) {
    gAbort = false;
    std::vector<ModuleChange> changes;
    for (const std::size_t place : ChangedModules(projekt)) {
        const clsModul& modul = *projekt.OwnedModules()[place];
        projekt.problems.ForgetOf(modul.FullPath);
        changes.push_back({place, ModuleSource{modul.ModulTyp, modul.FullPath}});
    }
    gProgress().Label(gText.TextNr(Text::LoadingProject));
    gProgress().Range(0, static_cast<int>(changes.size()));
    if (!changes.empty())
        Replace(projekt, changes, [&](std::size_t, const clsModul& modul) {
            if (modul.fileError != FileError::None)
                TellUnreadable(projekt, modul, [] { return 0; });
            gProgress().Progressiere_mal();
            return !gAbort;
        });
    return static_cast<int>(changes.size());
}
