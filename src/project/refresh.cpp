#include "project/refresh.h"

#include <algorithm>
#include <optional>

#include "model/clsProjekt.h"
#include "platform/clock.h"
#include "platform/code_page.h"
#include "project/project_file.h"
#include "project/replace.h"
#include "shell/clsText.h"
#include "shell/errors.h"
#include "shell/operations.h"
#include "shell/words.h"

namespace {

constexpr FileTime kSettled = 1'000'000'000;  // a file that has rested so long is whole

// A date ahead of the clock comes from another machine and says nothing.
bool IsBeingWritten(FileTime date, FileTime now) {
    return date <= now && now - date < kSettled;
}

// Nothing if the file is as it was.
std::optional<ChangedFile> ChangeOf(const Files& files, const clsModul& modul, FileTime now) {
    const FileTime date = files.DateLastModified(modul.FullPath);
    const bool isKnownBroken = modul.fileError != FileError::None || modul.staleBecause != FileError::None;
    ChangedFile changed{modul.FullPath, date, FileChange::Changed};
    // A change of permissions has no date, so such a file is tried each time.
    if (isKnownBroken ? date == 0 || files.ReadText(modul.FullPath).error != FileError::None
                      : date == modul.DateLastModified)
        return {};
    if (modul.isEdited)
        changed.what = FileChange::Edited;
    else if (date == 0)
        changed.what = FileChange::Gone;
    else if (IsBeingWritten(date, now))
        changed.what = FileChange::BeingWritten;
    return changed;
}

std::string_view FileNameOf(std::string_view path) {
    return modMain::DirOrFileName(path, 0);
}

bool SameFile(std::string_view one, std::string_view other) {
    return LowerCase(one) == LowerCase(other);
}

// What the modules become with a project file of that text.
struct ModulePlan {
    std::vector<ModuleChange> changes;
    std::vector<std::size_t> order;  // as Replace takes it
    std::vector<std::size_t> added;  // indices of `changes`
    std::vector<std::size_t> removed;
};

ModulePlan PlanOf(const clsProjekt& projekt, const std::vector<ModuleSource>& listed) {
    const auto& modules = projekt.OwnedModules();
    ModulePlan plan;
    std::vector<bool> stays(modules.size());
    for (const ModuleSource& source : listed) {
        // The search continues after the last one found: nearly all lines are where they were.
        std::size_t place = plan.order.empty() || plan.order.back() >= modules.size() ? 0 : plan.order.back() + 1;
        const auto isIt = [&](std::size_t nr) {
            return !stays[nr] && modules[nr]->ModulTyp == source.kind && modules[nr]->FullPath == source.path;
        };
        if (place >= modules.size() || !isIt(place))
            for (place = 0; place < modules.size() && !isIt(place);)
                ++place;
        if (place < modules.size()) {
            stays[place] = true;
        } else {
            place = modules.size() + plan.added.size();
            plan.added.push_back(plan.changes.size());
            plan.changes.push_back({{}, source});
        }
        plan.order.push_back(place);
    }
    for (std::size_t place = 0; place < modules.size(); ++place)
        if (!stays[place]) {
            plan.removed.push_back(plan.changes.size());
            plan.changes.push_back({place, {}});
        }
    if (plan.changes.empty() && std::ranges::is_sorted(plan.order))
        plan.order.clear();
    return plan;
}

// Adds the modules that stay and are to be read: all of them, or those whose files have changed.
void AddReadAgain(const clsProjekt& projekt, ModulePlan& plan, bool all) {
    const FileTime now = SystemTime();
    for (std::size_t place = 0; place < projekt.OwnedModules().size(); ++place) {
        const clsModul& modul = *projekt.OwnedModules()[place];
        if (std::ranges::any_of(plan.removed, [&](std::size_t nr) { return plan.changes[nr].place == place; }))
            continue;
        const std::optional<ChangedFile> changed = ChangeOf(projekt.TheFiles(), modul, now);
        const bool isRead = changed && (changed->what == FileChange::Changed || changed->what == FileChange::Gone);
        const bool isWhole = !changed || changed->what == FileChange::Edited;
        if (isRead || (all && isWhole && modul.fileError == FileError::None))
            plan.changes.push_back({place, ModuleSource{modul.ModulTyp, modul.FullPath}});
    }
}

bool ConstantsDiffer(const clsProjekt& projekt, std::string_view projectText) {
    return projekt.condComps != ConstantsListed(projekt, projectText);
}

std::vector<std::string> LinesOfLibraries(const clsProjekt& projekt) {
    std::vector<std::string> lines;
    for (const auto& library : projekt.OwnedLibraries())
        lines.push_back(library->ProjektEintrag);
    return lines;
}

// "Reference=*\G{...}#2.0#0#C:\w\stdole2.tlb#OLE Automation": the last part that names a file, else the whole line.
std::string NameInLine(std::string_view line) {
    const std::size_t end = line.rfind('#');
    const bool isReference = line.starts_with("Reference") && end != std::string_view::npos;
    const std::string_view name = isReference ? line.substr(end + 1) : line.substr(line.rfind(';') + 1);
    return std::string(Trim(name.empty() ? line : name));
}

void TellModules(const clsProjekt& projekt, const ModulePlan& plan, std::vector<ProjectFileChange>& changes) {
    using enum ProjectFileChange::What;
    std::vector<std::size_t> gone = plan.removed;
    const auto pathOf = [&](std::size_t nr) -> std::string_view {
        const ModuleChange& change = plan.changes[nr];
        return change.source ? change.source->path : projekt.OwnedModules()[*change.place]->FullPath;
    };
    const auto kindOf = [&](std::size_t nr) {
        const ModuleChange& change = plan.changes[nr];
        return change.source ? change.source->kind : projekt.OwnedModules()[*change.place]->ModulTyp;
    };
    for (const std::size_t nr : plan.added) {
        const std::string name(FileNameOf(pathOf(nr)));
        const auto before = [&](auto fits) {
            const auto found = std::ranges::find_if(
                gone, [&](std::size_t other) { return kindOf(other) == kindOf(nr) && fits(other); });
            const bool isFound = found != gone.end();
            if (isFound)
                gone.erase(found);
            return isFound;
        };
        const bool isOnly = plan.added.size() == 1 && plan.removed.size() == 1;
        if (before([&](std::size_t other) { return SameFile(FileNameOf(pathOf(other)), name); }))
            changes.push_back({ModuleMoved, name});
        else if (isOnly && before([](std::size_t) { return true; }))
            changes.push_back({ModuleRenamed, name});
        else
            changes.push_back({ModuleAdded, name});
    }
    for (const std::size_t nr : gone)
        changes.push_back({ModuleRemoved, std::string(FileNameOf(pathOf(nr)))});
}

void NoteUnreadable(clsProjekt& projekt, const clsModul& modul, const char* tag, FileError error) {
    projekt.problems.Add({.tag = tag,
                          .text = std::string(Describe(error)) + " (" + modul.FullPath + ")",
                          .subject = modul.FullPath,
                          .file = error});
}

class Refresh {
public:
    explicit Refresh(clsProjekt& projekt) : projekt_(projekt) {}

    FilesRead Run() {
        ReadProjectFile();
        const bool allAgain = !text_.empty() && ConstantsDiffer(projekt_, text_);
        ModulePlan plan = text_.empty() ? ModulePlan() : PlanOf(projekt_, ModulesListed(projekt_, text_));
        AddReadAgain(projekt_, plan, allAgain);
        const bool isDerivedAgain = !text_.empty() && TakeProjectLines(plan);
        gProgress().Label(gText.TextNr(Text::LoadingProject));
        gProgress().Range(0, static_cast<int>(plan.changes.size()));
        KeepProblems(plan.changes);
        if (!plan.changes.empty() || !plan.order.empty() || isDerivedAgain)
            Replace(
                projekt_, plan.changes, [&](std::size_t nr, const clsModul& modul) { return Take(plan, nr, modul); },
                plan.order);
        return read_;
    }

private:
    // The text stays empty if there is nothing to take from it.
    void ReadProjectFile() {
        const FileTime date = projekt_.TheFiles().DateLastModified(projekt_.FullPath);
        if (date == projekt_.DateLastModified || IsBeingWritten(date, SystemTime()))
            return;
        FileText file = projekt_.TheFiles().ReadText(projekt_.FullPath);
        if (WhyNoProject(file) != Text::None || NeedsWholeLoad(projekt_, file.text))
            return;
        text_ = std::move(file.text);
        date_ = file.dateLastModified;
    }

    // Returns whether the marks follow from the lines, so that they are to be derived again.
    bool TakeProjectLines(const ModulePlan& plan) {
        ++read_.files;
        read_.project = ChangesOfProjectFile(projekt_, text_);
        const auto startUp = [this] { return std::pair(projekt_.Type, projekt_.Startup); };
        const auto before = startUp();
        projekt_.condComps = ConstantsListed(projekt_, text_);
        ReadProjectLines(projekt_, text_);
        projekt_.DateLastModified = date_;
        for (const std::size_t nr : plan.removed)
            projekt_.problems.ForgetOf(projekt_.OwnedModules()[*plan.changes[nr].place]->FullPath);
        return before != startUp();
    }

    // Those of a module go when it is read again, and come back if it could not be.
    void KeepProblems(const std::vector<ModuleChange>& changes) {
        problems_.resize(changes.size());
        for (std::size_t nr = 0; nr < changes.size(); ++nr) {
            if (!changes[nr].source)
                continue;
            for (const Problem& problem : projekt_.problems.All())
                if (problem.subject == changes[nr].source->path)
                    problems_[nr].push_back(problem);
            if (!problems_[nr].empty())
                projekt_.problems.ForgetOf(changes[nr].source->path);
        }
    }

    Taken Take(const ModulePlan& plan, std::size_t nr, const clsModul& modul) {
        if (gAbort)
            return Taken::NoMore;
        ++read_.files;
        gProgress().Progressiere_mal();
        if (modul.fileError == FileError::None)
            return Taken::Yes;
        ++read_.unreadable;
        clsModul* const before =
            plan.changes[nr].place ? projekt_.OwnedModules()[*plan.changes[nr].place].get() : nullptr;
        if (before && before->fileError == FileError::None) {
            for (Problem& problem : problems_[nr])
                projekt_.problems.Add(std::move(problem));
            before->staleBecause = modul.fileError;
            NoteUnreadable(projekt_, *before, "clsProjekt: ChangedModule_Regenerieren", modul.fileError);
            return Taken::No;
        }
        NoteUnreadable(projekt_, modul, "clsModul: Read_MyCodeName", modul.fileError);
        return Taken::Yes;
    }

    clsProjekt& projekt_;
    std::string text_;  // of a project file that has changed
    FileTime date_ = 0;
    std::vector<std::vector<Problem>> problems_;  // for each change
    FilesRead read_;
};

}  // namespace

bool ChangedFiles::Has(FileChange what) const {
    return std::ranges::any_of(files, [what](const ChangedFile& file) { return file.what == what; });
}

ChangedFiles Files_Check(const clsProjekt& projekt) {
    const Files& files = projekt.TheFiles();
    const FileTime now = SystemTime();
    ChangedFiles changed;
    if (const FileTime date = files.DateLastModified(projekt.FullPath); date != projekt.DateLastModified) {
        changed.project = true;
        changed.whyNoProject = WhyNoProject(files.ReadText(projekt.FullPath));
        changed.files.push_back({projekt.FullPath, date,
                                 date == 0                   ? FileChange::Gone
                                 : IsBeingWritten(date, now) ? FileChange::BeingWritten
                                                             : FileChange::Changed});
    }
    for (const auto& modul : projekt.OwnedModules())
        if (std::optional<ChangedFile> file = ChangeOf(files, *modul, now))
            changed.files.push_back(std::move(*file));
    return changed;
}

std::vector<ProjectFileChange> ChangesOfProjectFile(const clsProjekt& projekt, std::string_view projectText) {
    using enum ProjectFileChange::What;
    std::vector<ProjectFileChange> changes;
    TellModules(projekt, PlanOf(projekt, ModulesListed(projekt, projectText)), changes);
    const std::vector<std::string> before = LinesOfLibraries(projekt);
    const std::vector<std::string> now = LibraryLines(projectText);
    const auto tellMissing = [&changes](const auto& lines, const auto& others, ProjectFileChange::What what) {
        for (const std::string& line : lines)
            if (std::ranges::find(others, line) == others.end())
                changes.push_back({what, NameInLine(line)});
    };
    tellMissing(now, before, LibraryAdded);
    tellMissing(before, now, LibraryRemoved);
    if (ConstantsDiffer(projekt, projectText))
        changes.push_back({Constants, {}});
    clsProjekt lines(projekt.TheFiles(), projekt.TheNames().Page());
    ReadProjectLines(lines, projectText);
    if (lines.Startup != projekt.Startup || lines.Type != projekt.Type)
        changes.push_back({StartUp, lines.Startup});
    return changes;
}

bool NeedsWholeLoad(const clsProjekt& projekt, std::string_view projectText) {
    // Without lines that count as modules, libraries are not loaded either.
    return GetAnzahlModule(projectText) == 0 || projekt.OwnedModules().empty() ||
           LinesOfLibraries(projekt) != LibraryLines(projectText);
}

std::vector<const clsModul*> ModulesToRead(const clsProjekt& projekt, std::string_view projectText) {
    ModulePlan plan = projectText.empty() ? ModulePlan() : PlanOf(projekt, ModulesListed(projekt, projectText));
    AddReadAgain(projekt, plan, !projectText.empty() && ConstantsDiffer(projekt, projectText));
    std::vector<const clsModul*> modules;
    for (const ModuleChange& change : plan.changes)
        if (change.place)
            modules.push_back(projekt.OwnedModules()[*change.place].get());
    return modules;
}

FilesRead ChangedModule_Regenerieren(clsProjekt& projekt) {
    gAbort = false;
    return Refresh(projekt).Run();
}
