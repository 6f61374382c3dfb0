#include "display/object_search.h"

#include <algorithm>
#include <bit>

#include "model/clsControl.h"
#include "model/clsProjekt.h"
#include "model/kind_of.h"
#include "model/module_walk.h"
#include "platform/ascii.h"
#include "platform/code_page.h"

namespace {

// Bit of a score, above all lengths of names: users look for objects of the project first.
constexpr std::uint64_t kOfLibrary = std::uint64_t{1} << 31;

constexpr std::size_t kHumpBits = 64;

bool IsUpper(char c) {
    return c >= 'A' && c <= 'Z';
}
bool IsLower(char c) {
    return c >= 'a' && c <= 'z';
}
bool IsNumber(char c) {
    return c >= '0' && c <= '9';
}

// A hump begins at the first character, after "_", at a capital after a small letter or a digit, at the last of several
// capitals if a small letter follows ("XMLFile"), and at the first digit of a number.
bool BeginsHump(std::string_view name, std::size_t at) {
    const char c = name[at];
    if (c == '_')
        return false;
    if (at == 0)
        return true;
    const char before = name[at - 1];
    if (before == '_')
        return true;
    if (IsNumber(c))
        return !IsNumber(before);
    if (!IsUpper(c))
        return false;
    return !IsUpper(before) || (at + 1 < name.size() && IsLower(name[at + 1]));
}

std::uint64_t HumpsOf(std::string_view spelling) {
    std::uint64_t humps = 0;
    for (std::size_t i = 0; i < std::min(spelling.size(), kHumpBits); ++i)
        if (BeginsHump(spelling, i))
            humps |= std::uint64_t{1} << i;
    return humps;
}

// One bit for each letter and digit; all other characters share the remaining ones.
std::uint64_t LettersOf(std::string_view lower) {
    std::uint64_t letters = 0;
    for (const char c : lower) {
        const auto byte = static_cast<unsigned char>(c);
        const unsigned bit = IsLower(c) ? byte - 'a' : IsNumber(c) ? 26U + byte - '0' : 36U + byte % 28U;
        letters |= std::uint64_t{1} << bit;
    }
    return letters;
}

std::uint64_t PlacesOf(std::string_view lower, char c) {
    std::uint64_t places = 0;
    for (std::size_t i = 0; i < std::min(lower.size(), kHumpBits); ++i)
        places |= static_cast<std::uint64_t>(lower[i] == c) << i;
    return places;
}

// All bits above the lowest one that is set.
std::uint64_t Above(std::uint64_t bits) {
    return ~((bits & -bits) | ((bits & -bits) - 1));
}

// Possible places of the last typed character if each of them either begins a hump or directly follows the one before.
// Zero when the name does not fit. `reached`, when given, gets the places of each character.
std::uint64_t MatchHumps(std::string_view lower, std::uint64_t humps, std::string_view typed,
                         std::vector<std::uint64_t>* reached = nullptr) {
    std::uint64_t at = humps & PlacesOf(lower, typed[0]);
    for (std::size_t i = 1; at != 0; ++i) {
        if (reached)
            reached->push_back(at);
        if (i == typed.size())
            break;
        at = PlacesOf(lower, typed[i]) & ((at << 1) | (humps & Above(at)));
    }
    return at;
}

std::vector<MatchedRange> HumpRanges(std::string_view lower, std::uint64_t humps, std::string_view typed) {
    std::vector<std::uint64_t> reached;
    std::uint64_t at = MatchHumps(lower, humps, typed, &reached);
    std::vector<MatchedRange> ranges;
    for (std::size_t i = typed.size(); i-- > 0;) {
        const auto place = static_cast<std::size_t>(std::countr_zero(at));
        if (!ranges.empty() && ranges.back().from == place + 1) {
            ranges.back().from = place;
            ++ranges.back().length;
        } else {
            ranges.push_back({place, 1});
        }
        if (i == 0)
            break;
        const std::uint64_t bit = std::uint64_t{1} << place;
        const std::uint64_t before = reached[i - 1];
        at = (before & (bit >> 1)) != 0 ? bit >> 1 : before & (bit - 1);
    }
    std::ranges::reverse(ranges);
    return ranges;
}

const CodeObject* OwnerOf(const CodeObject& object) {
    if (object.Class() == ObjectClass::Variable) {
        const auto& variable = static_cast<const clsVariable&>(object);
        if (variable.Prozedur)
            return variable.Prozedur;
        if (variable.MyType)
            return variable.MyType;
        if (variable.MyEnum)
            return variable.MyEnum;
    }
    return object.Modul ? static_cast<const CodeObject*>(object.Modul) : object.myLibrary;
}

// Compares as the paths of the owners would, without making them.
int ComparePlaces(const CodeObject& a, const CodeObject& b) {
    const CodeObject* ownerA = OwnerOf(a);
    const CodeObject* ownerB = OwnerOf(b);
    if (!ownerA || !ownerB)
        return (ownerA != nullptr) - (ownerB != nullptr);
    const auto moduleOf = [](const CodeObject& owner) {
        return owner.Modul ? owner.Modul->MyName() : std::string_view();
    };
    const std::string_view moduleA = ownerA->Modul ? moduleOf(*ownerA) : ownerA->MyName();
    const std::string_view moduleB = ownerB->Modul ? moduleOf(*ownerB) : ownerB->MyName();
    if (const int order = moduleA.compare(moduleB))
        return order;
    return (ownerA->Modul ? ownerA->MyName() : std::string_view())
        .compare(ownerB->Modul ? ownerB->MyName() : std::string_view());
}

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r\n";
    const auto first = text.find_first_not_of(kBlanks);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

}  // namespace

void ObjectSearch::Add(const CodeObject& object) {
    const std::string_view lower = object.MyName();
    if (lower.empty())
        return;
    entries_.push_back({&object, HumpsOf(object.myNameOrg()), static_cast<std::uint32_t>(names_.size()),
                        static_cast<std::uint32_t>(lower.size())});
    letters_.push_back(LettersOf(lower));
    names_.append(lower);
}

// Without arguments, of which there are more than of all else.
void ObjectSearch::AddLibrary(const clsTypeLib& library) {
    const auto add = [this](const CodeObject& object) { Add(object); };
    Add(library);
    ForEachWithMembers(library.myTypes, add);
    ForEachWithMembers(library.myEnums, add);
    for (const clsModul* modul : library.myCoClasses) {
        Add(*modul);
        for (const clsVariable* constant : modul->MyVars)
            Add(*constant);
        for (const auto* procedures : {&modul->MyProcs, &modul->MyEvents})
            for (const clsProzedur* prozedur : *procedures)
                Add(*prozedur);
    }
}

void ObjectSearch::Build(const clsProjekt& projekt) {
    Clear();
    projekt_ = &projekt;
    for (const auto* libraries : {&projekt.myProjectReferences, &projekt.myProjectObjects})
        for (const clsTypeLib* library : *libraries)
            AddLibrary(*library);
    for (const clsModul* modul : projekt.AllModules()) {
        Add(*modul);
        for (const clsControl* control : modul->MyControls)
            Add(*control);
        ForEachDeclared(*modul, [this](const CodeObject& object) {
            Add(object);
            if (object.Class() == ObjectClass::Prozedur)
                for (const clsVariable* variable : static_cast<const clsProzedur&>(object).MyVars)
                    if (!variable->isResult)
                        Add(*variable);
        });
    }
}

void ObjectSearch::Clear() {
    *this = {};
}

bool ObjectSearch::IsBetter(const Scored& a, const Scored& b) const {
    if (a.score != b.score)
        return a.score < b.score;
    const Entry& first = entries_[a.entry];
    const Entry& second = entries_[b.entry];
    if (const int order = NameOf(first).compare(NameOf(second)))
        return order < 0;
    if (const int order = ComparePlaces(*first.object, *second.object))
        return order < 0;
    return a.entry < b.entry;
}

std::vector<Hit> ObjectSearch::Find(std::string_view typed, std::size_t limit) {
    found_ = 0;
    typed = Trimmed(typed);
    // A copied path of an accessor ends in " [Get]".
    if (typed.ends_with(']') && typed.find(" [") != std::string_view::npos)
        typed = typed.substr(0, typed.rfind(" ["));
    // Until the name after a point is typed, the point is ignored: the hits would otherwise vanish for one key stroke.
    while (typed.ends_with('.'))
        typed.remove_suffix(1);
    const std::string whole = LowerCase(typed);
    const auto point = whole.rfind('.');
    const std::string name = point == std::string::npos ? whole : whole.substr(point + 1);
    const std::string place = point == std::string::npos ? std::string() : whole.substr(0, point);
    if (!projekt_ || name.empty()) {
        lastName_.clear();
        return {};
    }

    std::vector<std::uint32_t> fitting;
    std::vector<Scored> scored;
    const std::uint64_t letters = LettersOf(name);
    const auto look = [&](std::uint32_t nr) {
        if ((letters_[nr] & letters) != letters)
            return;
        const Entry& entry = entries_[nr];
        const std::string_view candidate = NameOf(entry);
        const auto at = candidate.find(name);
        std::uint64_t rank = 0;
        if (at == 0) {
            rank = static_cast<std::uint64_t>(candidate.size() == name.size() ? HitRank::Exact : HitRank::Prefix) << 1;
        } else if (const std::uint64_t humps = MatchHumps(candidate, entry.humps, name)) {
            // Beginning at the first hump is better than at a later one.
            const bool fromFirst = candidate[0] == name[0];
            rank = static_cast<std::uint64_t>(HitRank::Humps) << 1 | (fromFirst ? 0 : 1);
        } else if (at != std::string_view::npos) {
            rank = static_cast<std::uint64_t>(HitRank::Inside) << 1;
        } else {
            return;
        }
        fitting.push_back(nr);
        if (place.empty() || LowerCase(ObjectPlace(*entry.object)).find(place) != std::string::npos)
            scored.push_back({rank << 32 | (entry.object->myLibrary ? kOfLibrary : 0) | entry.length, nr});
    };
    if (!lastName_.empty() && name.starts_with(lastName_)) {
        for (const std::uint32_t nr : lastCandidates_)
            look(nr);
    } else {
        for (std::uint32_t nr = 0; nr < entries_.size(); ++nr)
            look(nr);
    }
    lastName_ = name;
    lastCandidates_ = std::move(fitting);
    found_ = scored.size();

    const auto end = scored.begin() + static_cast<std::ptrdiff_t>(std::min(limit, scored.size()));
    const auto better = [this](const Scored& a, const Scored& b) { return IsBetter(a, b); };
    if (end != scored.end())
        std::nth_element(scored.begin(), end, scored.end(), better);
    std::sort(scored.begin(), end, better);
    std::vector<Hit> hits;
    for (auto hit = scored.begin(); hit != end; ++hit) {
        const Entry& entry = entries_[hit->entry];
        const auto rank = static_cast<HitRank>(hit->score >> 33);
        hits.push_back({entry.object, rank,
                        rank == HitRank::Humps ? HumpRanges(NameOf(entry), entry.humps, name)
                                               : std::vector<MatchedRange>{{NameOf(entry).find(name), name.size()}}});
    }
    return hits;
}

std::string ObjectKind(const CodeObject& object) {
    if (object.Class() == ObjectClass::Prozedur) {
        const auto& prozedur = static_cast<const clsProzedur&>(object);
        return (prozedur.isDeclare ? "declare " : "") + std::string(prozedur.ProzedurTypText());
    }
    if (object.Class() == ObjectClass::Variable) {
        const auto& variable = static_cast<const clsVariable&>(object);
        if (!variable.MyType && !variable.MyEnum && variable.Zugriff != Access::Argument)
            return (variable.Prozedur ? "local " : "") + std::string(variable.IsConst ? "const" : "variable");
    }
    return std::string(KindOf(object));
}

std::string ObjectPlace(const CodeObject& object) {
    const CodeObject* owner = OwnerOf(object);
    return owner ? owner->CodePathOrg() : std::string();
}
