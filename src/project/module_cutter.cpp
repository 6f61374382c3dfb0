// Objects are cut in rounds: in each as many as are apart in the text, then the module is read again, as a cut depends
// on what is beside it. If a round changes another object, its objects are tried one by one.
#include "project/module_cutter.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "model/clsControl.h"
#include "model/clsEnum.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"
#include "platform/text_bytes.h"
#include "project/file_stretches.h"
#include "shell/errors.h"

namespace {

/// What must stay of an object.
struct Seen {
    ObjectClass objectClass;
    Pos pos;
    std::string_view name, type, kind;
    Access access;
    bool operator==(const Seen&) const = default;
};

Seen SeenIn(const CodeObject& object) {
    Seen seen{object.Class(), object.DeclareStart, object.MyName(), {}, {}, object.Zugriff};
    if (object.Class() == ObjectClass::Prozedur) {
        const auto& prozedur = static_cast<const clsProzedur&>(object);
        seen.type = prozedur.DatenTyp();
        seen.kind = prozedur.ProzedurTypText();
    } else if (object.Class() == ObjectClass::Variable) {
        seen.type = static_cast<const clsVariable&>(object).DatenTyp();
    } else if (object.Class() == ObjectClass::Control) {
        seen.type = static_cast<const clsControl&>(object).DatenTyp();
    }
    return seen;
}

/// Calls `use` for all objects that are in the text. Left out are those that stand for something else, and locals of
/// a ReDim, which depend on the variables of the module.
template <class Use>
void ForEachInText(const clsModul& modul, const Use& use) {
    const auto variables = [&use](const clsCollection<clsVariable>& all) {
        for (const clsVariable* variable : all)
            if (!variable->isRedim && !variable->isResult)
                use(*variable);
    };
    for (const CodeObject* object : modul.Owned()) {
        if (object->MyName() == "me" ||
            (object->Class() == ObjectClass::Control && object->DeclareStart == modul.BeginnVarBereich))
            continue;
        use(*object);
        if (object->Class() == ObjectClass::Prozedur)
            variables(static_cast<const clsProzedur*>(object)->MyVars);
        else if (object->Class() == ObjectClass::Type)
            variables(static_cast<const clsType*>(object)->MyVars);
        else if (object->Class() == ObjectClass::Enum)
            variables(static_cast<const clsEnum*>(object)->MyVars);
    }
}

/// Where a position is without some stretches; nothing if it lies in one of them.
std::optional<Pos> Shifted(Pos pos, const std::vector<Stretch>& without) {
    Pos shift = 0;
    for (const Stretch& stretch : without) {
        if (stretch.start > pos)
            break;
        if (stretch.End() > pos)
            return {};
        shift += stretch.length;
    }
    return pos - shift;
}

bool IsAsBefore(const clsModul& before, const clsModul& after, const std::vector<Stretch>& without) {
    std::vector<Seen> expected, found;
    ForEachInText(before, [&](const CodeObject& object) {
        Seen seen = SeenIn(object);
        if (const std::optional<Pos> pos = Shifted(seen.pos, without)) {
            seen.pos = *pos;
            expected.push_back(seen);
        }
    });
    ForEachInText(after, [&found](const CodeObject& object) { found.push_back(SeenIn(object)); });
    return before.MyName() == after.MyName() && expected == found;
}

const CodeObject* ObjectThere(const clsModul& modul, ObjectClass objectClass, Pos pos) {
    const CodeObject* there = nullptr;
    ForEachInText(modul, [&](const CodeObject& object) {
        if (!there && object.Class() == objectClass && object.DeclareStart == pos)
            there = &object;
    });
    return there;
}

}  // namespace

ModuleCutter::ModuleCutter(const ReadingContext& context, const clsModul& modul, std::string_view bytes,
                           std::vector<Stretch> gone)
    : context_(context), modul_(&modul), bytes_(bytes), gone_(std::move(gone)) {}

std::vector<ModuleCutter::Result> ModuleCutter::Cut(const std::vector<const CodeObject*>& objects) {
    std::vector<Result> results(objects.size());
    std::vector<Target> targets;
    targets.reserve(objects.size());
    for (const CodeObject* object : objects)
        targets.push_back({object, {}});
    bool oneByOne = false;
    for (;;) {
        const std::vector<std::size_t> taken = FitTogether(targets, oneByOne, results);
        if (taken.empty())
            return results;
        if (Take(targets, taken, results))
            continue;
        if (taken.size() == 1) {
            results[taken.front()].whyNot = Text::CutUnclear;
            targets[taken.front()].object = nullptr;
        }
        oneByOne = true;
    }
}

// Those that share no line with another one; what encloses others comes first.
std::vector<std::size_t> ModuleCutter::FitTogether(std::vector<Target>& targets, bool oneByOne,
                                                   std::vector<Result>& results) const {
    std::vector<std::size_t> open;
    for (std::size_t nr = 0; nr < targets.size(); ++nr) {
        if (!targets[nr].object)
            continue;
        targets[nr].cut = DeleteMe(*targets[nr].object);
        if (targets[nr].cut.whyNot == Text::None) {
            open.push_back(nr);
        } else {
            results[nr].whyNot = targets[nr].cut.whyNot;
            targets[nr].object = nullptr;
        }
    }
    const auto first = [&targets](std::size_t nr) { return targets[nr].cut.stretches.front().start; };
    const auto end = [&targets](std::size_t nr) { return targets[nr].cut.stretches.back().End(); };
    std::stable_sort(open.begin(), open.end(), [&](std::size_t a, std::size_t b) {
        return first(a) != first(b) ? first(a) < first(b) : end(a) > end(b);
    });
    std::vector<std::size_t> taken;
    Pos free = 1;
    for (const std::size_t nr : open) {
        if (first(nr) < free || (oneByOne && !taken.empty()))
            continue;
        taken.push_back(nr);
        const ModuleText& text = *modul_->text;
        const bool endsLine = text.ModulText()[static_cast<std::size_t>(end(nr)) - 2] == '\n';
        free = endsLine ? end(nr) : std::max(end(nr), text.Get_VBZeilenEnde(end(nr) - 1));
    }
    return taken;
}

bool ModuleCutter::Take(std::vector<Target>& targets, const std::vector<std::size_t>& taken,
                        std::vector<Result>& results) {
    std::vector<Stretch> inText;
    for (const std::size_t nr : taken)
        inText.insert(inText.end(), targets[nr].cut.stretches.begin(), targets[nr].cut.stretches.end());
    const std::vector<Stretch> inFile = InFile(bytes_, gone_, inText);
    std::vector<Stretch> gone = gone_;
    gone.insert(gone.end(), inFile.begin(), inFile.end());
    gone = Merged(std::move(gone));
    FileText file;
    SetText(file, Without(bytes_, gone));
    const MutedErrors again;
    auto read = Read_Module(context_, {modul_->ModulTyp, modul_->FullPath, std::move(file), true});
    if (!IsAsBefore(*modul_, *read, inText))
        return false;

    ++round_;
    auto next = inFile.begin();
    for (const std::size_t nr : taken) {
        const auto end = next + static_cast<std::ptrdiff_t>(targets[nr].cut.stretches.size());
        results[nr] = {{next, end}, Text::None, round_};
        targets[nr].object = nullptr;
        next = end;
    }
    for (Target& target : targets)
        if (target.object) {
            const std::optional<Pos> pos = Shifted(target.object->DeclareStart, inText);
            target.object = pos ? ObjectThere(*read, target.object->Class(), *pos) : nullptr;
        }
    read_ = std::move(read);
    modul_ = read_.get();
    gone_ = std::move(gone);
    return true;
}
