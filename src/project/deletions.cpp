#include "project/deletions.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <unordered_map>
#include <utility>

#include "model/clsProjekt.h"
#include "platform/text_bytes.h"
#include "project/file_stretches.h"
#include "project/module_cutter.h"
#include "source/lines.h"
#include "source/module_text.h"

namespace {

/// Where the modules are that were read from files.
class ModulesByPath {
public:
    explicit ModulesByPath(const clsProjekt& projekt) : modules_(projekt.OwnedModules()) {
        for (std::size_t place = 0; place < modules_.size(); ++place)
            places_.emplace(modules_[place]->FullPath, place);
    }
    /// Index in OwnedModules.
    [[nodiscard]] std::optional<std::size_t> PlaceOf(std::string_view path) const {
        const auto found = places_.find(path);
        return found == places_.end() ? std::nullopt : std::optional(found->second);
    }
    [[nodiscard]] clsModul* ModuleOf(std::string_view path) const {
        const std::optional<std::size_t> place = PlaceOf(path);
        return place ? modules_[*place].get() : nullptr;
    }

private:
    const std::vector<std::unique_ptr<clsModul>>& modules_;
    std::unordered_map<std::string_view, std::size_t> places_;
};

/// One stretch of a deletion.
struct Part {
    Stretch stretch;
    Deletion* deletion;
};

/// Notes the enclosing deletions in those of one file. Its stretches are apart or one inside of the other, and then
/// the outer one is the later.
void NoteEnclosing(std::vector<Part>& parts) {
    std::ranges::sort(parts, [](const Part& a, const Part& b) {
        return a.stretch.start != b.stretch.start ? a.stretch.start < b.stretch.start
                                                  : a.stretch.End() > b.stretch.End();
    });
    std::vector<const Part*> around;
    for (const Part& part : parts) {
        while (!around.empty() && around.back()->stretch.End() < part.stretch.End())
            around.pop_back();
        if (!around.empty())
            part.deletion->enclosedBy.push_back(around.back()->deletion->nr);
        around.push_back(&part);
    }
}

/// Whether a stretch lies in one of some that are as Merged gives them.
bool IsIn(const std::vector<Stretch>& merged, const Stretch& stretch) {
    const auto next = std::ranges::upper_bound(merged, stretch.start, {}, &Stretch::start);
    return next != merged.begin() && stretch.End() <= next[-1].End();
}

int LinesIn(std::string_view bytes, const std::vector<Stretch>& stretches) {
    int lines = 0;
    for (const Stretch& stretch : stretches) {
        const auto part =
            bytes.substr(static_cast<std::size_t>(stretch.start), static_cast<std::size_t>(stretch.length));
        lines += LineOf(part, Len(part));
    }
    return lines;
}

/// Keeps what a file is before it is written, beside it, under a name that no other file has.
FileError KeepBackup(Files& files, Deletions::Saved& saved, std::string_view bytes) {
    saved.backup = saved.path + ".bak";
    for (int nr = 2; files.FileExists(saved.backup); ++nr) {
        if (files.ReadBytes(saved.backup, kMaxTextBytes).bytes == bytes)
            return FileError::None;  // of an attempt that failed
        saved.backup = saved.path + ".bak" + std::to_string(nr);
    }
    return files.WriteWhole(saved.backup, bytes);
}

}  // namespace

Deletions::Deleted Deletions::Delete(clsProjekt& projekt, const std::vector<const CodeObject*>& objects) {
    Deleted deleted;
    std::vector<std::pair<clsModul*, std::vector<const CodeObject*>>> ofModules;
    std::unordered_map<const clsModul*, std::size_t> places;
    for (const CodeObject* object : objects) {
        const auto [place, isNew] = places.emplace(object->Modul, ofModules.size());
        if (isNew)
            ofModules.push_back({object->Modul, {}});
        ofModules[place->second].second.push_back(object);
    }
    const std::size_t before = all_.size();
    for (const auto& [modul, own] : ofModules) {
        const Text why = modul ? Begin(projekt, *modul) : Text::PartOfOther;
        if (why == Text::None)
            Take(files_.find(modul->FullPath)->second, own, projekt, deleted);
        else
            for (const CodeObject* object : own)
                deleted.refused.push_back({object->CodePathOrg(), why});
    }
    std::vector<std::string> changed;
    for (std::size_t nr = before; nr < all_.size(); ++nr)
        if (changed.empty() || changed.back() != all_[nr].path)
            changed.push_back(all_[nr].path);
    Settle();
    ReplaceModules(projekt, changed);
    return deleted;
}

// Prepares the file of a module. The text must be that of the file, or else the stretches would mean other bytes.
Text Deletions::Begin(const clsProjekt& projekt, const clsModul& modul) {
    const Files& files = projekt.TheFiles();
    if (const EditedFile* known = FileOf(modul.FullPath))
        return files.DateLastModified(known->path) == known->date ? Text::None : Text::RefreshBeforeDeleting;
    if (!modul.text)
        return Text::PartOfOther;
    FileBytes bytes = files.ReadBytes(modul.FullPath, kMaxTextBytes);
    FileText file;
    SetText(file, std::string_view(bytes.bytes));
    if (bytes.error != FileError::None || file.text != modul.text->ModulTextOrg())
        return Text::RefreshBeforeDeleting;
    if (file.convertedFromUtf16)
        return Text::FileInUtf16;
    files_[modul.FullPath] = {++lastFileNr_, modul.FullPath, std::move(bytes.bytes), modul.DateLastModified, {}, {}};
    return Text::None;
}

void Deletions::Take(EditedFile& file, const std::vector<const CodeObject*>& objects, clsProjekt& projekt,
                     Deleted& deleted) {
    const ReadingContext context{projekt.TheFiles(), projekt.TheNames(), projekt.Memory(), projekt.condComps};
    ModuleCutter cutter(context, *objects.front()->Modul, file.bytes, file.gone);
    const std::vector<ModuleCutter::Result> results = cutter.Cut(objects);
    std::vector<std::size_t> taken;
    for (std::size_t nr = 0; nr < objects.size(); ++nr) {
        if (results[nr].whyNot != Text::None) {
            deleted.refused.push_back({objects[nr]->CodePathOrg(), results[nr].whyNot});
            continue;
        }
        ++deleted.objects;
        if (!results[nr].cut.empty())
            taken.push_back(nr);
    }
    std::ranges::stable_sort(taken, {}, [&results](std::size_t nr) { return results[nr].round; });
    for (const std::size_t nr : taken)
        all_.push_back({++lastNr_,
                        file.path,
                        objects[nr]->CodePathOrg(),
                        objects[nr]->GetImageKey(),
                        LinesIn(file.bytes, results[nr].cut),
                        results[nr].cut,
                        {}});
    if (taken.empty() && file.IsAsItWas())
        files_.erase(files_.find(file.path));
}

// Works out what follows from the deletions: what is gone from each file, and which ones enclose others.
void Deletions::Settle() {
    std::unordered_map<std::string_view, std::vector<Part>> ofFiles;
    for (Deletion& deletion : all_) {
        deletion.enclosedBy.clear();
        for (const Stretch& stretch : deletion.stretches)
            ofFiles[deletion.path].push_back({stretch, &deletion});
    }
    for (auto& [path, file] : files_) {
        std::vector<Part>& parts = ofFiles[path];
        NoteEnclosing(parts);
        file.gone.clear();
        for (const Part& part : parts)
            file.gone.push_back(part.stretch);
        file.gone = Merged(std::move(file.gone));
    }
}

const Deletion* Deletions::Find(int nr) const {
    const auto found = std::ranges::lower_bound(all_, nr, {}, &Deletion::nr);
    return found == all_.end() || found->nr != nr ? nullptr : &*found;
}

const Deletion* Deletions::Encloses(const Deletion& deletion) const {
    return deletion.enclosedBy.empty() ? nullptr : Find(std::ranges::min(deletion.enclosedBy));
}

bool Deletions::IsSaved(const Deletion& deletion) const {
    const EditedFile* const file = FileOf(deletion.path);
    return file && std::ranges::all_of(deletion.stretches,
                                       [file](const Stretch& stretch) { return IsIn(file->onDisk, stretch); });
}

bool Deletions::Undo(clsProjekt& projekt, std::vector<int> numbers) {
    std::sort(numbers.rbegin(), numbers.rend());  // what encloses others is later
    std::set<int> undone;
    std::set<std::string> changed;
    for (const int nr : numbers) {
        const Deletion* const deletion = Find(nr);
        if (!deletion || !std::ranges::all_of(deletion->enclosedBy, [&](int other) { return undone.contains(other); }))
            continue;
        undone.insert(nr);
        changed.insert(deletion->path);
    }
    std::erase_if(all_, [&undone](const Deletion& deletion) { return undone.contains(deletion.nr); });
    Settle();
    ReplaceModules(projekt, {changed.begin(), changed.end()});
    return !changed.empty();
}

Pos Deletions::PositionOf(const Deletion& deletion) const {
    const EditedFile* const file = FileOf(deletion.path);
    return file ? InText(file->bytes, file->gone, deletion.stretches.front().start) : 1;
}

std::vector<std::string> Deletions::Unsaved() const {
    std::vector<const EditedFile*> edited;
    for (const auto& [path, file] : files_)
        if (file.IsEdited())
            edited.push_back(&file);
    std::ranges::sort(edited, {}, &EditedFile::nr);
    std::vector<std::string> paths;
    paths.reserve(edited.size());
    for (const EditedFile* file : edited)
        paths.push_back(file->path);
    return paths;
}

bool Deletions::HasUnsaved() const {
    return std::ranges::any_of(files_, [](const auto& file) { return file.second.IsEdited(); });
}

std::vector<Deletions::Saved> Deletions::Save(clsProjekt& projekt) {
    const ModulesByPath modules(projekt);
    std::vector<Saved> saved;
    for (const std::string& path : Unsaved())
        saved.push_back(SaveFile(files_.find(path)->second, projekt.TheFiles(), modules.ModuleOf(path)));
    return saved;
}

Deletions::Saved Deletions::SaveFile(EditedFile& file, Files& files, clsModul* modul) {
    Saved saved{file.path, {}};
    const FileBytes now = files.ReadBytes(file.path, kMaxTextBytes);
    saved.error = now.error;
    saved.fileHasChanged = now.error == FileError::None && now.bytes != Without(file.bytes, file.onDisk);
    if (!saved.Ok())
        return saved;
    saved.error = KeepBackup(files, saved, now.bytes);
    if (saved.Ok())
        saved.error = files.WriteWhole(file.path, Without(file.bytes, file.gone));
    if (!saved.Ok())
        return saved;
    file.onDisk = file.gone;
    file.date = files.DateLastModified(file.path);
    if (modul) {
        modul->isEdited = false;
        modul->DateLastModified = file.date;
    }
    return saved;
}

void Deletions::Forget(clsProjekt& projekt, std::string_view path) {
    if (clsModul* const modul = ModulesByPath(projekt).ModuleOf(path))
        modul->isEdited = false;
    Drop({std::string(path)});
}

void Deletions::ModulesRead(clsProjekt& projekt) {
    const ModulesByPath modules(projekt);
    std::set<std::string> lost;
    std::vector<std::string> again;
    for (const auto& [path, file] : files_) {
        const clsModul* const modul = modules.ModuleOf(path);
        if (!modul || (!file.IsEdited() && modul->DateLastModified != file.date))
            lost.insert(path);
        else if (file.IsEdited() && !modul->isEdited)
            again.push_back(path);
    }
    Drop(lost);
    ReplaceModules(projekt, again);
}

void Deletions::Clear() {
    all_.clear();
    files_.clear();
}

const Deletions::EditedFile* Deletions::FileOf(std::string_view path) const {
    const auto found = files_.find(path);
    return found == files_.end() ? nullptr : &found->second;
}

// Reads modules from what is left of their files.
void Deletions::ReplaceModules(clsProjekt& projekt, const std::vector<std::string>& paths) {
    const ModulesByPath modules(projekt);
    std::vector<ModuleChange> changes;
    for (const std::string& path : paths) {
        const auto file = files_.find(path);
        const std::optional<std::size_t> place = modules.PlaceOf(path);
        if (!place)
            continue;
        const clsModul& modul = *projekt.OwnedModules()[*place];
        FileText text;
        SetText(text, Without(file->second.bytes, file->second.gone));
        text.dateLastModified = file->second.date;
        changes.push_back(
            {place, ModuleSource{modul.ModulTyp, modul.FullPath, std::move(text), file->second.IsEdited()}});
        projekt.problems.ForgetOf(path);
        if (file->second.IsAsItWas())
            files_.erase(file);
    }
    if (!changes.empty())
        Replace(projekt, changes);
}

// With all that was deleted from it.
void Deletions::Drop(const std::set<std::string>& paths) {
    std::erase_if(all_, [&paths](const Deletion& deletion) { return paths.contains(deletion.path); });
    std::erase_if(files_, [&paths](const auto& file) { return paths.contains(file.first); });
}
