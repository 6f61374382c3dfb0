#include "display/refresh_changes.h"

#include <algorithm>
#include <functional>

#include "display/node_objects.h"
#include "display/object_search.h"
#include "display/project_file_words.h"
#include "display/shown_text.h"
#include "findings/module_statistics.h"
#include "model/clsControl.h"
#include "model/clsProjekt.h"
#include "model/module_walk.h"
#include "shell/clsText.h"
#include "shell/words.h"
#include "source/module_text.h"

namespace {

// The order of the list.
enum Rank : std::uint8_t { OfProject, NotReadable, Changed, New, Gone, MarkedOnly };

template <class Use>
void ForEachListed(const clsModul& modul, const Use& use) {
    use(static_cast<const CodeObject&>(modul));
    for (const clsControl* control : modul.MyControls)
        use(*control);
    ForEachDeclared(modul, use);
}

bool IsMember(const CodeObject& object) {
    if (object.Class() != ObjectClass::Variable)
        return false;
    const auto& variable = static_cast<const clsVariable&>(object);
    return variable.MyType || variable.MyEnum;
}

// Its own text, wherever it is. A module as such has none: what it declares is compared by itself.
std::size_t TextOfObject(const CodeObject& object) {
    if (object.Class() == ObjectClass::Modul || IsMember(object))
        return 0;
    const std::hash<std::string_view> hash;
    if (object.Class() == ObjectClass::Variable)
        return hash(DeclarationText(object)) ^ static_cast<std::size_t>(object.Zugriff);
    if (object.Class() == ObjectClass::Control)
        return hash(static_cast<const clsControl&>(object).DatenTyp());
    const std::string_view text = object.Modul->text->ModulTextOrg();
    const Pos from = std::clamp<Pos>(object.DeclareStart, 1, Len(text) + 1);
    const Pos end = std::clamp<Pos>(object.DeclareEnd, from, Len(text) + 1);
    return hash(Mid(text, from, end - from));
}

std::string KeyOf(const CodeObject& object, const std::string& path) {
    return path + static_cast<char>(object.Class());
}

void Join(std::string& words, Text word) {
    words.append(words.empty() ? "" : ", ").append(Utf8TextNr(word));
}

}  // namespace

GenerationRecord::Known GenerationRecord::KnownOf(const CodeObject& object, bool marksKnown) {
    const bool isModul = object.Class() == ObjectClass::Modul;
    const clsModul& modul = isModul ? static_cast<const clsModul&>(object) : *object.Modul;
    const std::string path = object.CodePath();
    std::string name(object.myNameOrg());
    if (IsMember(object)) {
        const std::string whole = object.CodePathOrg();
        name = whole.substr(std::min(modul.myNameOrg().size() + 1, whole.size()));
    }
    ListedObject row{NodeKeyOf(object), Utf8Of(&modul, name), ObjectKind(object),
                     isModul ? Utf8Of(nullptr, ShownPath(modul.FullPath)) : Utf8Of(&modul, modul.myNameOrg()),
                     isModul ? modul.AnzLineCode : LinesOf(object)};
    return {KeyOf(object, path),
            std::move(row),
            TextOfObject(object),
            marksKnown && object.IsDeath == 1,
            object.Class() == ObjectClass::Prozedur,
            IsMember(object)};
}

GenerationRecord::GenerationRecord(const clsProjekt& projekt, const std::vector<const clsModul*>& changing)
    : marksKnown_(projekt.callsKnown && projekt.marksKnown) {
    for (const clsModul* modul : projekt.AllModules()) {
        if (std::ranges::find(changing, modul) != changing.end()) {
            changingPaths_.push_back(modul->CodePath());
            ForEachListed(*modul, [&](const CodeObject& object) { objects_.push_back(KnownOf(object, marksKnown_)); });
        } else {
            std::vector<std::int16_t>& marks = marks_[modul];
            ForEachListed(*modul, [&](const CodeObject& object) { marks.push_back(object.IsDeath); });
        }
    }
}

std::vector<GenerationRecord::Marked> GenerationRecord::MarkedOtherwise(const clsProjekt& now) const {
    std::vector<Marked> objects;
    for (const clsModul* modul : now.AllModules())
        if (const auto marks = marks_.find(modul); marks != marks_.end()) {
            auto mark = marks->second.begin();
            ForEachListed(*modul, [&](const CodeObject& object) {
                if (mark == marks->second.end())
                    return;
                if (const std::int16_t before = *mark++; before != object.IsDeath)
                    objects.push_back({&object, before == 1});
            });
        }
    return objects;
}

class GenerationRecord::Comparison {
public:
    Comparison(const GenerationRecord& before, const clsProjekt& now)
        : before_(before), now_(now), marksKnown_(before.marksKnown_ && now.callsKnown && now.marksKnown) {}

    RefreshChanges Take(const FilesRead& read) {
        TakeProjectFile(read);
        TakeObjects();
        std::ranges::stable_sort(rows_, {}, &Ranked::rank);
        for (Ranked& row : rows_)
            changes_.rows.push_back(std::move(row.row));
        return std::move(changes_);
    }

private:
    struct Ranked {
        Rank rank;
        ListedObject row;
    };

    void Add(Rank rank, ListedObject row, std::string words) {
        row.change = std::move(words);
        rows_.push_back({rank, std::move(row)});
    }

    void TakeProjectFile(const FilesRead& read) {
        const std::string file = Utf8Of(nullptr, modMain::DirOrFileName(now_.FullPath, 0));
        for (const ProjectFileChange& change : read.project) {
            std::string words;
            Join(words, WordOf(change.what));
            Add(OfProject, {{}, NameOf(change), {}, file, 0}, std::move(words));
            ++changes_.others;
        }
        changes_.unreadable = read.unreadable;
        for (const auto& modul : now_.OwnedModules())
            if (read.unreadable > 0 && modul->staleBecause != FileError::None) {
                std::string words;
                Join(words, Text::WordNotReadable);
                Add(NotReadable, KnownOf(*modul, false).row, std::move(words));
            }
    }

    void TakeObjects() {
        std::unordered_map<std::string_view, const Known*> gone;
        for (const Known& known : before_.objects_)
            gone.emplace(known.key, &known);
        for (const clsModul* modul : now_.AllModules()) {
            if (before_.Has(*modul))
                continue;
            ForEachListed(*modul, [&](const CodeObject& object) {
                const Known known = KnownOf(object, marksKnown_);
                const auto found = gone.find(known.key);
                Compare(found == gone.end() ? nullptr : found->second, known);
                if (found != gone.end())
                    gone.erase(found);
            });
        }
        for (const Known& known : before_.objects_)
            if (const auto left = gone.find(known.key); left != gone.end() && left->second == &known)
                AddGone(known);
        for (const Marked& marked : before_.MarkedOtherwise(now_)) {
            std::string words;
            JoinMark(words, marked.wasDead, marked.object->IsDeath == 1);
            if (!words.empty())
                Add(MarkedOnly, KnownOf(*marked.object, true).row, std::move(words));
        }
    }

    void Compare(const Known* known, const Known& now) {
        std::string words;
        Rank rank = MarkedOnly;
        if (!known && !now.isMember) {
            Join(words, Text::WordNew);
            rank = New;
            ++(now.isProcedure ? changes_.added : changes_.others);
        } else if (known && known->text != now.text) {
            Join(words, Text::WordChanged);
            rank = Changed;
            ++(now.isProcedure ? changes_.changed : changes_.others);
        }
        JoinMark(words, known && known->isDead, now.isDead);
        if (!words.empty())
            Add(rank, now.row, std::move(words));
    }

    void JoinMark(std::string& words, bool wasDead, bool isDead) {
        if (!marksKnown_ || wasDead == isDead)
            return;
        Join(words, isDead ? Text::WordNewlyDead : Text::WordNoLongerDead);
        ++(isDead ? changes_.newlyDead : changes_.noLongerDead);
    }

    // What is left of it is its module.
    void AddGone(const Known& known) {
        if (known.isMember)
            return;
        ListedObject row = known.row;
        row.key = row.key.substr(0, row.key.find('.'));
        if (!now_.GetModuleFromCodePath(row.key))
            row.key.clear();
        row.lines = 0;
        std::string words;
        Join(words, Text::WordGone);
        ++(known.isProcedure ? changes_.gone : changes_.others);
        Add(Gone, std::move(row), std::move(words));
    }

    const GenerationRecord& before_;
    const clsProjekt& now_;
    const bool marksKnown_;
    RefreshChanges changes_;
    std::vector<Ranked> rows_;
};

RefreshChanges GenerationRecord::ChangesTo(const clsProjekt& now, const FilesRead& read) const {
    return Comparison(*this, now).Take(read);
}
