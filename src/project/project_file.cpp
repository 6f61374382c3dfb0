#include "project/project_file.h"

#include <algorithm>
#include <array>

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
class MissingAfter {
public:
    MissingAfter(const Files& files, std::string_view projektDir, std::string_view projectText)
        : files_(files), projektDir_(projektDir), text_(projectText) {}

    [[nodiscard]] int Count(std::string_view line) {
        if (count_ >= 0)
            return count_ = std::max(count_ - 1, 0);
        count_ = 0;
        ForEachLine(text_.substr(static_cast<std::size_t>(line.data() + line.size() - text_.data())),
                    [this](std::string_view after) {
                        if (IsModuleLine(after))
                            count_ += !files_.FileExists(Get_Pfad_Aus_ModulEintrag(projektDir_, after));
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
        ShowFileError("clsModul: Read_MyCodeName", modul.fileError);
        return;
    }
    NoteProblem("clsModul: Read_MyCodeName", "File not found: " + modul.FullPath);
    if (AskMissingFile("File not found: " + modul.FullPath + "\r\n\r\nLaden abbrechen?", moreMissing()))
        gAbort = true;
}

// Each module that the project file lists. After a cancel, the modules not yet taken are omitted.
void LoadModules(clsProjekt& projekt, std::string_view projektDir, std::string_view projectText) {
    MissingAfter missing(projekt.TheFiles(), projektDir, projectText);
    const std::vector<ModuleLine> lines = ModuleLines(projektDir, projectText);
    std::vector<ModuleChange> changes;
    changes.reserve(lines.size());
    for (const ModuleLine& line : lines)
        changes.push_back({{}, line.source});
    Replace(projekt, changes, [&](std::size_t nr, const clsModul& modul) {
        if (gAbort)
            return Taken::NoMore;
        if (modul.fileError != FileError::None)
            TellUnreadable(projekt, modul, [&] { return missing.Count(lines[nr].line); });
        gProgress().Label(modul.myNameOrg());
        DoEvents();
        gProgress().Progressiere_mal();
        return Taken::Yes;
    });
}

// Whether a line is one of those that Visual Basic writes into every project file, or lists a module.
bool IsProjectLine(std::string_view line) {
    static constexpr std::array<std::string_view, 16> kKeys{
        "Type",         "Name",     "Startup",   "Form",   "Module",    "Class",    "UserControl", "PropertyPage",
        "UserDocument", "Designer", "Reference", "Object", "ExeName32", "CondComp", "MajorVer",    "Title"};
    const std::string key = KeyOf(line);
    return line.substr(std::min(key.size(), line.size())).starts_with('=') &&
           std::find(kKeys.begin(), kKeys.end(), key) != kKeys.end();
}

std::string NameListed(std::string_view projectText) {
    std::string name;
    ForEachLine(projectText, [&](std::string_view line) {
        if (KeyOf(line) == "Name")
            name = modMain::GetStringContent(line);
    });
    return name;
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

bool IsModuleLine(std::string_view line) {
    return IsModuleKey(KeyOf(line));
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

void ReadProjectLines(clsProjekt& projekt, std::string_view projectText) {
    projekt.MyName = NameListed(projectText);
    projekt.Type.clear();
    projekt.Startup.clear();
    ForEachLine(projectText, [&projekt](std::string_view line) {
        const std::string key = KeyOf(line);
        if (key == "Type")
            projekt.Type = Trim(line.substr(line.find('=') + 1));
        else if (key == "Startup")
            projekt.Startup = modMain::GetStringContent(line);
    });
}

Text WhyNoProject(const FileText& file) {
    if (file.error != FileError::None)
        return CauseAndRemedy(file.error);
    if (file.text.find_first_not_of(" \t\r\n") == std::string::npos)
        return Text::ProjectEmpty;
    std::string_view before = file.text;  // what precedes the first line of a project
    ForEachLine(file.text, [&](std::string_view line) {
        if (before.size() == file.text.size() && IsProjectLine(line))
            before = before.substr(0, static_cast<std::size_t>(line.data() - file.text.data()));
    });
    if (before.find('\0') != std::string_view::npos)
        return Text::ProjectBinary;
    if (before.size() < file.text.size())
        return Text::None;
    return before.starts_with("VBGROUP") ? Text::ProjectGroup : Text::ProjectForeign;
}

std::vector<CondConstant> ConstantsListed(const clsProjekt& projekt, std::string_view projectText) {
    std::vector<CondConstant> all = projekt.condComps;
    all.resize(3);
    ForEachLine(projectText, [&all](std::string_view line) {
        if (KeyOf(line) != "CondComp")
            return;
        const std::vector<CondConstant> constants = CondCompsOfLine(line);
        if (constants.empty())
            return;
        all.resize(3);
        all.insert(all.end(), constants.begin(), constants.end());
    });
    all.insert(all.end(), projekt.definedCondComps.begin(), projekt.definedCondComps.end());
    return all;
}

void CondComp_Init(clsProjekt& projekt, std::string_view projectText) {
    projekt.condComps = ConstantsListed(projekt, projectText);
}

std::vector<ModuleSource> ModulesListed(const clsProjekt& projekt, std::string_view projectText) {
    std::vector<ModuleSource> modules;
    for (ModuleLine& line : ModuleLines(modMain::DirOrFileName(projekt.FullPath, 1), projectText))
        modules.push_back(std::move(line.source));
    return modules;
}

std::vector<std::string> LibraryLines(std::string_view projectText) {
    std::vector<std::string> lines;
    ForEachLine(projectText, [&lines](std::string_view line) {
        if (const std::string key = KeyOf(line); key == "Reference" || key == "Object")
            lines.emplace_back(line);
    });
    return lines;
}

void Projekt_Laden(clsProjekt& projekt, LibrarySearch* search) {
    const ErrorSubject subject(projekt.FullPath);
    clsQueryTimer timer;
    timer.Start();
    gAbort = false;
    const FileText file = projekt.TheFiles().ReadText(projekt.FullPath);
    if (file.error != FileError::None) {
        ShowFileError("clsProjekt: Projekt_Laden", file.error);
        return;
    }
    projekt.DateLastModified = file.dateLastModified;
    ReadProjectLines(projekt, file.text);
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
