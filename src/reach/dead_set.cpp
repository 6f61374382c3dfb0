// Rings are the strongly connected parts of the graph, found by Tarjan's walk with an explicit stack.
#include "reach/dead_set.h"

#include <algorithm>
#include <string>
#include <unordered_set>
#include <utility>

#include "reach/mentions.h"
#include "reach/side_by_side.h"

namespace {

// The modules that classes implement.
class InterfaceModules {
public:
    explicit InterfaceModules(const Reach& reach) {
        for (const CodeMarks& marks : reach.Marks())
            for (const NamePlace& place : marks.implements)
                if (const clsModul* modul = reach.Projekt().Klassenmodule.Item(place.name))
                    modules_.insert(modul);
    }
    [[nodiscard]] bool Contains(const clsModul& modul) const { return modules_.contains(&modul); }

private:
    std::unordered_set<const clsModul*> modules_;
};

// Whether all code of the project was read: property pages, documents and designers are not.
bool IsWhole(const clsProjekt& projekt) {
    if (std::ranges::any_of(projekt.OwnedModules(),
                            [](const auto& modul) { return modul->fileError != FileError::None; }))
        return false;
    const FileText file = projekt.TheFiles().ReadText(projekt.FullPath);
    for (const std::string_view key : {"PropertyPage=", "UserDocument=", "Designer="})
        if (file.text.starts_with(key) || file.text.find(std::string(vbCrLf).append(key)) != std::string::npos)
            return false;
    return true;
}

bool IsDesignerProperty(const CodeObject& object) {
    return object.Class() == ObjectClass::Prozedur && object.Modul->ModulTyp == ModuleKind::UserControl &&
           object.Zugriff == Access::Public && static_cast<const clsProzedur&>(object).IsProperty();
}

// Whether a Declare statement takes the type.
bool IsPassedOut(const Links& links, const clsType& type) {
    bool isPassedOut = false;
    links.ForEachTo(type, [&](const Link& link) {
        isPassedOut |=
            link.from->Class() == ObjectClass::Prozedur && static_cast<const clsProzedur*>(link.from)->isDeclare;
    });
    return isPassedOut;
}

}  // namespace

DeadObjects::DeadObjects(const Reach& reach) : reach_(reach), placeOf_(reach.Projekt().ObjectCount()) {
    using Objects = std::vector<const CodeObject*>;
    for (const Objects& dead : OfEachModule<Objects>(reach.Projekt(), [&reach](const clsModul& modul) {
             Objects found;
             ForEachDeclared(modul, [&](const CodeObject& object) {
                 if (reach.StateOf(object.Number()) == ReachState::None)
                     found.push_back(&object);
             });
             return found;
         }))
        for (const CodeObject* object : dead)
            if (std::uint32_t& place = placeOf_[object->Number()]; place == 0) {
                objects_.push_back(object);
                place = static_cast<std::uint32_t>(objects_.size());
            }
    FindRings();
    Grades();
}

void DeadObjects::FindRings() {
    struct Step {
        std::uint32_t place;
        Links::Leaving leaving;
    };
    constexpr std::uint32_t kNone = UINT32_MAX;
    std::vector<std::uint32_t> order(objects_.size(), kNone);
    std::vector<std::uint32_t> lowest(objects_.size());
    std::vector<std::uint32_t> open;  // visited, and not yet in a ring
    std::vector<Step> path;
    std::uint32_t visited = 0;
    ringOf_.assign(objects_.size(), kNone);
    const auto visit = [&](std::uint32_t place) {
        order[place] = lowest[place] = visited++;
        open.push_back(place);
        path.push_back({place, reach_.TheLinks().From(objects_[place]->Number())});
    };
    // The next dead object that a step leads to, from 1, or 0.
    const auto next = [&](Step& step) {
        CallGraph::Range& edges = step.leaving.edges;
        while (edges.first < edges.end)
            if (const std::uint32_t target = placeOf_[reach_.Projekt().calls.TargetOf(edges.first++)])
                return target;
        return placeOf_[std::exchange(step.leaving.owner, 0)];
    };
    for (std::uint32_t start = 0; start < objects_.size(); ++start) {
        if (order[start] != kNone)
            continue;
        visit(start);
        while (!path.empty()) {
            Step& step = path.back();
            const std::uint32_t place = step.place;
            if (const std::uint32_t found = next(step)) {
                const std::uint32_t target = found - 1;
                if (order[target] == kNone)
                    visit(target);
                else if (ringOf_[target] == kNone)
                    lowest[place] = std::min(lowest[place], order[target]);
                continue;
            }
            path.pop_back();
            if (!path.empty())
                lowest[path.back().place] = std::min(lowest[path.back().place], lowest[place]);
            if (lowest[place] != order[place])
                continue;
            for (bool isLast = false; !isLast; open.pop_back()) {
                ringOf_[open.back()] = place;
                isLast = open.back() == place;
            }
        }
    }
}

std::vector<const CodeObject*> DeadObjects::CallersOf(const CodeObject& object) const {
    std::vector<const CodeObject*> callers;
    reach_.TheLinks().ForEachTo(object, [&](const Link& link) {
        if (link.from != &object && link.kind != LinkKind::Member)
            callers.push_back(link.from);
    });
    std::vector<const CodeObject*> sorted = callers;
    std::ranges::sort(sorted);
    std::vector<bool> isTaken(sorted.size());
    std::erase_if(callers, [&](const CodeObject* caller) {
        const auto nr = static_cast<std::size_t>(std::ranges::lower_bound(sorted, caller) - sorted.begin());
        const bool before = isTaken[nr];
        isTaken[nr] = true;
        return before;
    });
    return callers;
}

std::vector<const CodeObject*> DeadObjects::RingOf(const CodeObject& object) const {
    const std::uint32_t ring = ringOf_[placeOf_[object.Number()] - 1];
    std::vector<const CodeObject*> members{&object};
    bool isClosed = true;
    bool hasCaller = false;
    std::vector<bool> isTaken(objects_.size());
    isTaken[placeOf_[object.Number()] - 1] = true;
    for (std::size_t at = 0; at < members.size() && isClosed; ++at)
        reach_.TheLinks().ForEachTo(*members[at], [&](const Link& link) {
            hasCaller = true;
            const std::uint32_t place = placeOf_[link.from->Number()];
            if (place == 0 || ringOf_[place - 1] != ring) {
                isClosed = false;
            } else if (!isTaken[place - 1]) {
                isTaken[place - 1] = true;
                members.push_back(link.from);
            }
        });
    if (!isClosed || !hasCaller)
        members.clear();
    return members;
}

void DeadObjects::Grades() {
    grades_.assign(objects_.size(), {Grade::Sure});
    const Sought dead(reach_.Projekt().TheNames(), objects_);
    ByMentions(dead);
    ByStrings(dead);
    const bool isWhole = IsWhole(reach_.Projekt());
    const InterfaceModules interfaces(reach_);
    for (std::size_t place = 0; place < objects_.size(); ++place) {
        const CodeObject& object = *objects_[place];
        if (!isWhole && object.Zugriff != Access::Private)
            Lower(object, {Grade::CannotTell, GradeReason::UnreadModules});
        if (interfaces.Contains(*object.Modul) && object.Zugriff == Access::Public)
            Lower(object, {Grade::Likely, GradeReason::InterfaceMember});
        if (IsDesignerProperty(object))
            Lower(object, {Grade::Likely, GradeReason::DesignerProperty});
    }
    for (const Declaration& declaration : reach_.TheDeclared().All())
        if (declaration.kind == DeclaredKind::LeaveAlone)
            if (const CodeObject* object = reach_.Projekt().GetObjectFromCodePath(LowerCase(declaration.codePath));
                object && Contains(*object))
                grades_[placeOf_[object->Number()] - 1].leftAlone = &declaration;
    // Which members may go depends on which types and enumerations stay, and the other way round.
    do
        Spread();
    while (ByOwners());
}

// The worse grade counts, and of equal ones the first reason.
bool DeadObjects::Lower(const CodeObject& object, const Grading& to) {
    const std::uint32_t place = placeOf_[object.Number()];
    if (place == 0 || grades_[place - 1].grade >= to.grade)
        return false;
    const Declaration* const leftAlone = grades_[place - 1].leftAlone;
    grades_[place - 1] = to;
    grades_[place - 1].leftAlone = leftAlone;
    return true;
}

void DeadObjects::ByMentions(const Sought& dead) {
    for (const Mention& mention : MentionsOf(reach_.Projekt(), dead)) {
        const GradeReason reason = mention.kind == MentionKind::Code          ? GradeReason::NamedInCode
                                   : mention.kind == MentionKind::NotCompiled ? GradeReason::NotCompiled
                                                                              : GradeReason::DefaultMember;
        Lower(*mention.object, {Grade::CannotTell, reason, nullptr, mention.modul, mention.pos});
    }
}

// Procedures, and the variables that CallByName finds. A name of one object can be in a literal of any module.
void DeadObjects::ByStrings(const Sought& dead) {
    const auto isCallable = [](const CodeObject& object) {
        return object.Class() == ObjectClass::Prozedur ||
               (object.Class() == ObjectClass::Variable && object.Zugriff == Access::Public &&
                object.Modul->ModulTyp != ModuleKind::Module);
    };
    for (const CodeMarks& marks : reach_.Marks())
        for (const NamePlace& place : marks.strings)
            for (const Sought::Entry* entry = dead.First(place.name.View()); entry; entry = dead.Next(*entry))
                if (entry->object->NameKey() == place.name && isCallable(*entry->object))
                    Lower(*entry->object,
                          {Grade::CannotTell, GradeReason::NamedInString, nullptr, marks.modul, place.pos});
}

// Members of types and enumerations that do not go themselves; false if none of them got a worse grade.
bool DeadObjects::ByOwners() {
    bool isAnyLower = false;
    for (std::size_t place = 0; place < objects_.size(); ++place) {
        if (objects_[place]->Class() != ObjectClass::Variable || grades_[place].grade == Grade::CannotTell)
            continue;
        const auto& member = static_cast<const clsVariable&>(*objects_[place]);
        if (member.MyType && !GoesForSure(*member.MyType)) {
            const auto [known, isNew] = passedOut_.try_emplace(member.MyType);
            if (isNew)
                known->second = IsPassedOut(reach_.TheLinks(), *member.MyType);
            isAnyLower |= Lower(member, known->second ? Grading{Grade::CannotTell, GradeReason::PassedOut}
                                                      : Grading{Grade::Likely, GradeReason::ChangesLayout});
        }
        if (member.MyEnum && !GoesForSure(*member.MyEnum) && OthersCountOn(member))
            isAnyLower |= Lower(member, {Grade::Likely, GradeReason::ShiftsMembers});
    }
    return isAnyLower;
}

// Whether a member after this one that stays gets its value from its place.
bool DeadObjects::OthersCountOn(const clsVariable& member) const {
    bool isAfter = false;
    const std::string_view text = member.Modul->text->ModulTextOrg();
    for (const clsVariable* other : member.MyEnum->MyVars) {
        if (isAfter) {
            const std::size_t at = text.find_first_not_of(" ]", static_cast<std::size_t>(other->DeclareEnd - 1));
            if (at != std::string_view::npos && text[at] == '=')
                return false;
            if (!GoesForSure(*other))
                return true;
        }
        isAfter |= other == &member;
    }
    return false;
}

// What something that may stay calls or uses has to stay as well.
void DeadObjects::Spread() {
    for (const Grade grade : {Grade::CannotTell, Grade::Likely}) {
        std::vector<const CodeObject*> open;
        for (std::size_t place = 0; place < objects_.size(); ++place)
            if (grades_[place].grade == grade || (grade == Grade::CannotTell && grades_[place].leftAlone))
                open.push_back(objects_[place]);
        while (!open.empty()) {
            const CodeObject& from = *open.back();
            open.pop_back();
            const bool isLeftAlone = GradeOf(from).leftAlone != nullptr;
            const GradeReason reason = isLeftAlone                  ? GradeReason::UsedByLeftAlone
                                       : grade == Grade::CannotTell ? GradeReason::UsedByUncertain
                                                                    : GradeReason::UsedByLikely;
            reach_.TheLinks().ForEachStep(from.Number(), [&](std::uint32_t target, Links::Step, bool) {
                const std::uint32_t place = placeOf_[target];
                if (place == 0 || grades_[place - 1].grade >= grade)
                    return;
                Lower(*objects_[place - 1], {grade, reason, &from});
                open.push_back(objects_[place - 1]);
            });
        }
    }
}
