// Ways between two objects are found by a search that always goes on with the way that can become the shortest: its
// links so far and the distance of its end from the target, which a walk backwards has found first. So ways are
// complete in the order of their lengths.
#include "reach/paths.h"

#include <algorithm>
#include <functional>
#include <map>
#include <queue>
#include <tuple>
#include <unordered_set>

namespace {

constexpr int kFar = -1;

// What stands for an object in a walk.
std::vector<const CodeObject*> PartsOf(const CodeObject& object) {
    std::vector<const CodeObject*> parts;
    const auto add = [&parts](const clsCollection<clsVariable>& members) {
        for (const clsVariable* member : members)
            parts.push_back(member);
    };
    if (object.Class() == ObjectClass::Modul) {
        ForEachDeclared(static_cast<const clsModul&>(object), [&](const CodeObject& part) { parts.push_back(&part); });
        if (const clsVariable* form = static_cast<const clsModul&>(object).FormInstance)
            parts.push_back(form);
    } else if (object.Class() == ObjectClass::Type) {
        add(static_cast<const clsType&>(object).MyVars);
    } else if (object.Class() == ObjectClass::Enum) {
        add(static_cast<const clsEnum&>(object).MyVars);
    }
    parts.push_back(&Answering(object));
    return parts;
}

// Objects in the order of their distance from some, against the direction of the links.
class WalkBack {
public:
    WalkBack(const Links& links, const std::vector<const CodeObject*>& targets, bool certainOnly)
        : distance_(links.Projekt().ObjectCount(), kFar) {
        for (const CodeObject* target : targets)
            if (distance_[target->Number()] == kFar) {
                distance_[target->Number()] = 0;
                found_.push_back({target, 0, {}});
            }
        for (std::size_t at = 0; at < found_.size(); ++at)
            links.ForEachTo(*found_[at].object, [&](const Link& link) {
                int& distance = distance_[link.from->Number()];
                if (distance != kFar || (certainOnly && !link.IsCertain()))
                    return;
                distance = found_[at].distance + 1;
                found_.push_back({link.from, distance, link});
            });
    }
    [[nodiscard]] int DistanceOf(const CodeObject& object) const { return distance_[object.Number()]; }
    /// The targets themselves first, with distance 0.
    [[nodiscard]] const std::vector<Dependent>& Found() const { return found_; }

private:
    std::vector<int> distance_;
    std::vector<Dependent> found_;
};

// The same without the links, by numbers, which takes a tenth of the time where nearly everything leads to an object.
class NumbersBack {
public:
    NumbersBack(const Links& links, std::uint32_t target, bool certainOnly)
        : distance_(links.Projekt().ObjectCount(), kFar), found_{target} {
        distance_[target] = 0;
        for (std::size_t at = 0; at < found_.size(); ++at)
            for (const Links::Origin origin : links.OriginsOf(found_[at]))
                if (distance_[origin.Number()] == kFar && (!certainOnly || origin.IsCertain())) {
                    distance_[origin.Number()] = distance_[found_[at]] + 1;
                    found_.push_back(origin.Number());
                }
    }
    [[nodiscard]] int DistanceOf(std::uint32_t number) const { return distance_[number]; }
    [[nodiscard]] const std::vector<std::uint32_t>& Found() const { return found_; }

private:
    std::vector<int> distance_;
    std::vector<std::uint32_t> found_;
};

// One entry for each target, in the order of the code.
std::vector<Link> StepsFrom(const Links& links, const CodeObject& object) {
    std::vector<Link> steps;
    std::map<const CodeObject*, std::size_t> placeOf;
    links.ForEachFrom(object, [&](const Link& link) {
        const auto [at, isNew] = placeOf.emplace(link.to, steps.size());
        if (isNew)
            steps.push_back(link);
        else if (link.IsCertain() && !steps[at->second].IsCertain())
            steps[at->second] = link;
    });
    return steps;
}

class PathSearch {
public:
    PathSearch(const Links& links, const std::vector<const CodeObject*>& from,
               const std::vector<const CodeObject*>& targets, std::size_t most)
        : links_(links), back_(links, targets, false), most_(most) {
        for (const CodeObject* start : from)
            if (back_.DistanceOf(*start) > 0)
                Push(start, kNoStep, {}, 0, false);
    }

    std::vector<ReachPath> Find() {
        std::vector<ReachPath> paths;
        // Where most ways run in circles, the search ends before it has seen them all.
        for (std::size_t looked = 0; !open_.empty() && paths.size() < most_ && looked < kMostLooks; ++looked) {
            const std::size_t at = open_.top().step;
            open_.pop();
            if (back_.DistanceOf(*steps_[at].object) == 0)
                paths.push_back(PathTo(at));
            else
                GoOn(at);
        }
        return paths;
    }

private:
    static constexpr std::size_t kNoStep = SIZE_MAX;
    static constexpr std::size_t kMostLooks = 20000;
    struct Step {
        const CodeObject* object;
        std::size_t before;  // among the steps, or kNoStep
        Link link;           // that leads here
        int length;
        bool hasPossible;
    };
    struct Open {
        int length;  // that the way will have at least
        bool hasPossible;
        std::size_t step;
        bool operator>(const Open& other) const {
            return std::tie(length, hasPossible, step) > std::tie(other.length, other.hasPossible, other.step);
        }
    };

    void Push(const CodeObject* object, std::size_t before, const Link& link, int length, bool hasPossible) {
        steps_.push_back({object, before, link, length, hasPossible});
        open_.push({length + back_.DistanceOf(*object), hasPossible, steps_.size() - 1});
    }
    void GoOn(std::size_t at) {
        for (const Link& link : StepsFrom(links_, *steps_[at].object))
            if (back_.DistanceOf(*link.to) != kFar && !IsOnTheWay(at, *link.to))
                Push(link.to, at, link, steps_[at].length + 1, steps_[at].hasPossible || !link.IsCertain());
    }
    [[nodiscard]] bool IsOnTheWay(std::size_t at, const CodeObject& object) const {
        for (; at != kNoStep; at = steps_[at].before)
            if (steps_[at].object == &object)
                return true;
        return false;
    }
    [[nodiscard]] ReachPath PathTo(std::size_t at) const {
        ReachPath path;
        for (; steps_[at].before != kNoStep; at = steps_[at].before)
            path.links.push_back(steps_[at].link);
        std::ranges::reverse(path.links);
        return path;
    }

    const Links& links_;
    WalkBack back_;
    std::size_t most_;
    std::vector<Step> steps_;
    std::priority_queue<Open, std::vector<Open>, std::greater<>> open_;
};

class PartMaker {
public:
    PartMaker(const Reach& reach, const CodeObject& object, Impact::Part& part)
        : reach_(reach),
          own_(object.Class() == ObjectClass::Modul ? &static_cast<const clsModul&>(object) : nullptr),
          part_(part) {}

    void Add(const Dependent& dependent) {
        const clsModul* const modul = ModuleOf(*dependent.object);
        if (dependent.distance == 0 || (own_ && modul == own_))
            return;
        part_.objects.push_back(dependent);
        if (modul && known_.insert(modul).second)
            part_.modules.push_back(modul);
        if (const EntryPoint* entry = reach_.EntryPointAt(*dependent.object))
            part_.entries.push_back(entry);
    }

private:
    const Reach& reach_;
    const clsModul* own_;
    Impact::Part& part_;
    std::unordered_set<const clsModul*> known_;  // those of the part
};

}  // namespace

bool ReachPath::IsCertain() const {
    return std::ranges::all_of(links, &Link::IsCertain);
}

std::vector<ReachPath> PathsBetween(const Links& links, const CodeObject& from, const CodeObject& to,
                                    std::size_t most) {
    return PathSearch(links, PartsOf(from), PartsOf(to), most).Find();
}

Impact ImpactOf(const Reach& reach, const CodeObject& object) {
    Impact impact;
    const std::vector<const CodeObject*> parts = PartsOf(object);
    const WalkBack certain(reach.TheLinks(), parts, true);
    const WalkBack any(reach.TheLinks(), parts, false);
    PartMaker certainPart(reach, object, impact.certain);
    for (const Dependent& dependent : certain.Found())
        certainPart.Add(dependent);
    PartMaker possiblePart(reach, object, impact.possible);
    for (const Dependent& dependent : any.Found())
        if (certain.DistanceOf(*dependent.object) == kFar)
            possiblePart.Add(dependent);
    return impact;
}

// First everything that the object leads to is taken for dying; then what something else keeps is taken out again, and
// what that leads to.
std::vector<const CodeObject*> DiesWith(const Reach& reach, const CodeObject& object) {
    enum : char { Untouched, Dying, Kept, NotCovered };
    const Links& links = reach.TheLinks();
    const CodeObject& gone = Answering(object);
    const bool countsDeadKeepers = reach.StateOf(gone) == ReachState::None;
    std::vector<char> stateOf(reach.Projekt().ObjectCount(), Untouched);
    std::vector<const CodeObject*> dying{&gone};
    stateOf[gone.Number()] = Dying;
    for (std::size_t at = 0; at < dying.size(); ++at) {
        const CodeObject& from = *dying[at];
        const std::uint32_t fromNumber = from.Number();
        links.ForEachStep(fromNumber, [&](std::uint32_t number, Links::Step step, bool) {
            if (stateOf[number] != Untouched || reach.EntryPointAt(number) ||
                (reach.StateOf(number) == ReachState::None) != countsDeadKeepers)
                return;
            const CodeObject& to = links.TargetOfStep(step, from);
            stateOf[number] = Reach::Covers(to) ? Dying : NotCovered;
            if (stateOf[number] == Dying)
                dying.push_back(&to);
        });
    }
    std::vector<std::uint32_t> kept;
    for (const CodeObject* candidate : dying) {
        const std::uint32_t number = candidate->Number();
        if (candidate != &gone && std::ranges::any_of(links.OriginsOf(number), [&](Links::Origin origin) {
                return stateOf[origin.Number()] == Untouched &&
                       (countsDeadKeepers || reach.StateOf(origin.Number()) != ReachState::None);
            }))
            kept.push_back(number);
    }
    for (const std::uint32_t number : kept)
        stateOf[number] = Kept;
    for (std::size_t at = 0; at < kept.size(); ++at)
        links.ForEachStep(kept[at], [&](std::uint32_t number, Links::Step, bool) {
            if (stateOf[number] == Dying && number != gone.Number()) {
                stateOf[number] = Kept;
                kept.push_back(number);
            }
        });
    std::erase_if(dying, [&](const CodeObject* candidate) {
        return candidate == &gone || stateOf[candidate->Number()] != Dying;
    });
    return dying;
}

std::vector<EntryReaching> EntryPointsReaching(const Reach& reach, const CodeObject& object) {
    const std::uint32_t target = Answering(object).Number();
    const NumbersBack certain(reach.TheLinks(), target, true);
    const NumbersBack any(reach.TheLinks(), target, false);
    std::vector<EntryReaching> entries;
    for (const std::uint32_t number : any.Found())
        if (const EntryPoint* entry = reach.EntryPointAt(number))
            entries.push_back(
                {entry, any.DistanceOf(number), entry->IsCertain() && certain.DistanceOf(number) != kFar});
    std::ranges::stable_sort(entries, std::greater<>(), &EntryReaching::isCertain);
    return entries;
}
