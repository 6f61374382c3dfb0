#include "project/deletions.h"

#include <algorithm>
#include <set>
#include <utility>

#include "model/clsProjekt.h"
#include "platform/text_bytes.h"
#include "project/file_stretches.h"
#include "project/module_cutter.h"
#include "source/lines.h"
#include "source/module_text.h"

namespace {

/// Index in OwnedModules of the module that was read from a file; their number if there is none.
std::size_t PlaceOf(const clsProjekt& projekt, std::string_view path) {
    const auto& modules = projekt.OwnedModules();
    const auto found =
        std::find_if(modules.begin(), modules.end(), [path](const auto& modul) { return modul->FullPath == path; });
    return static_cast<std::size_t>(found - modules.begin());
}

bool IsInside(const Stretch& inner, const Stretch& outer) {
    return outer.start <= inner.start && inner.End() <= outer.End();
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
    for (const CodeObject* object : objects) {
        auto found = std::find_if(ofModules.begin(), ofModules.end(),
                                  [object](const auto& each) { return each.first == object->Modul; });
        if (found == ofModules.end())
            found = ofModules.insert(found, {object->Modul, {}});
        found->second.push_back(object);
    }
    const std::size_t before = all_.size();
    for (const auto& [modul, own] : ofModules) {
        const Text why = modul ? Begin(projekt, *modul) : Text::PartOfOther;
        if (why == Text::None)
            Take(*FileOf(modul->FullPath), own, projekt, deleted);
        else
            for (const CodeObject* object : own)
                deleted.refused.push_back({object->CodePathOrg(), why});
    }
    std::vector<std::string> changed;
    for (std::size_t nr = before; nr < all_.size(); ++nr)
        if (changed.empty() || changed.back() != all_[nr].path)
            changed.push_back(all_[nr].path);
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
    files_.push_back({modul.FullPath, std::move(bytes.bytes), modul.DateLastModified, {}});
    return Text::None;
}

void Deletions::Take(const EditedFile& file, const std::vector<const CodeObject*>& objects, clsProjekt& projekt,
                     Deleted& deleted) {
    const ReadingContext context{projekt.TheFiles(), projekt.TheNames(), projekt.Memory(), projekt.condComps};
    ModuleCutter cutter(context, *objects.front()->Modul, file.bytes, GoneFrom(file));
    const std::vector<ModuleCutter::Result> results = cutter.Cut(objects);
    std::vector<Deletion> taken;
    for (std::size_t nr = 0; nr < objects.size(); ++nr) {
        const CodeObject& object = *objects[nr];
        const ModuleCutter::Result& result = results[nr];
        if (result.whyNot != Text::None) {
            deleted.refused.push_back({object.CodePathOrg(), result.whyNot});
            continue;
        }
        ++deleted.objects;
        if (!result.cut.empty())
            taken.push_back({0, lastRound_ + result.round, file.path, object.CodePathOrg(), object.GetImageKey(),
                             LinesIn(file.bytes, result.cut), result.cut});
    }
    std::stable_sort(taken.begin(), taken.end(), [](const auto& a, const auto& b) { return a.round < b.round; });
    for (Deletion& deletion : taken) {
        deletion.nr = ++lastNr_;
        all_.push_back(std::move(deletion));
    }
    if (!taken.empty())
        lastRound_ = all_.back().round;
    else if (GoneFrom(file).empty() && file.onDisk.empty())
        Drop(std::string(file.path));
}

const Deletion* Deletions::Find(int nr) const {
    const auto found = std::find_if(all_.begin(), all_.end(), [nr](const Deletion& each) { return each.nr == nr; });
    return found == all_.end() ? nullptr : &*found;
}

const Deletion* Deletions::Encloses(const Deletion& deletion) const {
    for (const Deletion& other : all_)
        if (other.round > deletion.round && other.path == deletion.path)
            for (const Stretch& outer : other.stretches)
                if (std::any_of(deletion.stretches.begin(), deletion.stretches.end(),
                                [&outer](const Stretch& inner) { return IsInside(inner, outer); }))
                    return &other;
    return nullptr;
}

bool Deletions::IsSaved(const Deletion& deletion) const {
    const EditedFile* const file = FileOf(deletion.path);
    return file && std::all_of(deletion.stretches.begin(), deletion.stretches.end(), [file](const Stretch& stretch) {
               return std::any_of(file->onDisk.begin(), file->onDisk.end(),
                                  [&stretch](const Stretch& gone) { return IsInside(stretch, gone); });
           });
}

bool Deletions::Undo(clsProjekt& projekt, std::vector<int> numbers) {
    std::sort(numbers.rbegin(), numbers.rend());  // what encloses others is later
    std::set<std::string> changed;
    for (const int nr : numbers) {
        const Deletion* const deletion = Find(nr);
        if (!deletion || Encloses(*deletion))
            continue;
        changed.insert(deletion->path);
        all_.erase(all_.begin() + (deletion - all_.data()));
    }
    ReplaceModules(projekt, {changed.begin(), changed.end()});
    return !changed.empty();
}

Pos Deletions::PositionOf(const Deletion& deletion) const {
    const EditedFile* const file = FileOf(deletion.path);
    return file ? InText(file->bytes, GoneFrom(*file), deletion.stretches.front().start) : 1;
}

std::vector<std::string> Deletions::Unsaved() const {
    std::vector<std::string> paths;
    for (const EditedFile& file : files_)
        if (IsEdited(file))
            paths.push_back(file.path);
    return paths;
}

std::vector<Deletions::Saved> Deletions::Save(clsProjekt& projekt) {
    std::vector<Saved> saved;
    for (EditedFile& file : files_)
        if (IsEdited(file))
            saved.push_back(SaveFile(projekt, file));
    return saved;
}

Deletions::Saved Deletions::SaveFile(clsProjekt& projekt, EditedFile& file) {
    Files& files = projekt.TheFiles();
    Saved saved{file.path, {}};
    const FileBytes now = files.ReadBytes(file.path, kMaxTextBytes);
    saved.error = now.error;
    saved.fileHasChanged = now.error == FileError::None && now.bytes != Without(file.bytes, file.onDisk);
    if (!saved.Ok())
        return saved;
    const std::vector<Stretch> gone = GoneFrom(file);
    saved.error = KeepBackup(files, saved, now.bytes);
    if (saved.Ok())
        saved.error = files.WriteWhole(file.path, Without(file.bytes, gone));
    if (!saved.Ok())
        return saved;
    file.onDisk = gone;
    file.date = files.DateLastModified(file.path);
    if (const std::size_t place = PlaceOf(projekt, file.path); place < projekt.OwnedModules().size()) {
        clsModul& modul = *projekt.OwnedModules()[place];
        modul.isEdited = false;
        modul.DateLastModified = file.date;
    }
    return saved;
}

void Deletions::Forget(clsProjekt& projekt, std::string_view path) {
    if (const std::size_t place = PlaceOf(projekt, path); place < projekt.OwnedModules().size())
        projekt.OwnedModules()[place]->isEdited = false;
    Drop(path);
}

void Deletions::ModulesRead(clsProjekt& projekt) {
    std::vector<std::string> lost, again;
    for (const EditedFile& file : files_) {
        const std::size_t place = PlaceOf(projekt, file.path);
        const clsModul* const modul =
            place < projekt.OwnedModules().size() ? projekt.OwnedModules()[place].get() : nullptr;
        if (!modul || (!IsEdited(file) && modul->DateLastModified != file.date))
            lost.push_back(file.path);
        else if (IsEdited(file) && !modul->isEdited)
            again.push_back(file.path);
    }
    for (const std::string& path : lost)
        Drop(path);
    ReplaceModules(projekt, again);
}

void Deletions::Clear() {
    all_.clear();
    files_.clear();
}

const Deletions::EditedFile* Deletions::FileOf(std::string_view path) const {
    const auto found =
        std::find_if(files_.begin(), files_.end(), [path](const EditedFile& file) { return file.path == path; });
    return found == files_.end() ? nullptr : &*found;
}

std::vector<Stretch> Deletions::GoneFrom(const EditedFile& file) const {
    std::vector<Stretch> gone;
    for (const Deletion& deletion : all_)
        if (deletion.path == file.path)
            gone.insert(gone.end(), deletion.stretches.begin(), deletion.stretches.end());
    return Merged(std::move(gone));
}

// Reads modules from what is left of their files.
void Deletions::ReplaceModules(clsProjekt& projekt, const std::vector<std::string>& paths) {
    std::vector<ModuleChange> changes;
    for (const std::string& path : paths) {
        const EditedFile& file = *FileOf(path);
        const std::size_t place = PlaceOf(projekt, path);
        if (place == projekt.OwnedModules().size())
            continue;
        const clsModul& modul = *projekt.OwnedModules()[place];
        FileText text;
        SetText(text, Without(file.bytes, GoneFrom(file)));
        text.dateLastModified = file.date;
        changes.push_back({place, ModuleSource{modul.ModulTyp, modul.FullPath, std::move(text), IsEdited(file)}});
        projekt.problems.ForgetOf(path);
        if (GoneFrom(file).empty() && file.onDisk.empty())
            Drop(path);
    }
    if (!changes.empty())
        Replace(projekt, changes);
}

// With all that was deleted from it.
void Deletions::Drop(std::string_view path) {
    const std::string gone(path);
    std::erase_if(all_, [&gone](const Deletion& deletion) { return deletion.path == gone; });
    std::erase_if(files_, [&gone](const EditedFile& file) { return file.path == gone; });
}
