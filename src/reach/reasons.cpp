#include "reach/reasons.h"

#include <algorithm>

#include "reach/dead_set.h"

namespace {

// Whether the objects of this call can be none of the project's: their type is a class of a library.
bool IsForeign(const Reach& reach, const Link& link) {
    if (link.kind != LinkKind::PossibleCall)
        return false;
    const Doubt doubt = DoubtOf(reach.Projekt(), link);
    return doubt.kind == DoubtKind::UnknownType;
}

// Of a procedure whose mark says that it lives because of where it is.
bool LivesByRule(const CodeObject& object) {
    if (object.Class() != ObjectClass::Prozedur || object.IsDeath != 0)
        return false;
    return static_cast<const clsProzedur&>(object).IsEvent || object.Modul->ModulTyp == ModuleKind::Class ||
           object.Modul->ModulTyp == ModuleKind::UserControl;
}

}  // namespace

Reasons::Reasons(const Reach& reach) : reach_(reach) {}
Reasons::~Reasons() = default;

const DeadObjects& Reasons::TheDead() const {
    if (!dead_)
        dead_ = std::make_unique<DeadObjects>(reach_);
    return *dead_;
}

Reason Reasons::ReasonOf(const CodeObject& given) const {
    Reason reason;
    if (!Reach::Covers(given))
        return reason;
    const CodeObject& object = Answering(given);
    reason.chain = reach_.ChainTo(object);
    switch (reach_.StateOf(object)) {
        case ReachState::Certain:
            reason.kind = reason.chain.links.empty() ? ReasonKind::EntryPoint : ReasonKind::Kept;
            break;
        case ReachState::Possible: {
            reason.kind = ReasonKind::OnlyPossible;
            const auto possible = std::ranges::find_if_not(reason.chain.links, &Link::IsCertain);
            if (possible == reason.chain.links.end()) {
                reason.doubt.kind = DoubtKind::NamedInString;
            } else {
                reason.firstPossible = static_cast<int>(possible - reason.chain.links.begin());
                reason.doubt = DoubtOf(reach_.Projekt(), *possible);
            }
            break;
        }
        case ReachState::None:
            // Not among the dead is an object that no collection holds, as of two with the same name the second.
            reason.objects = TheDead().Contains(object) ? TheDead().RingOf(object) : std::vector<const CodeObject*>();
            reason.kind = ReasonKind::Ring;
            if (reason.objects.empty()) {
                reason.objects = TheDead().CallersOf(object);
                reason.kind = reason.objects.empty() ? ReasonKind::NoCaller : ReasonKind::DeadCallers;
            }
            reason.keptByRule = LivesByRule(object);
            break;
    }
    return reason;
}

Grading Reasons::GradeOfPossible(const CodeObject& object) const {
    const Declaration* const said =
        reach_.TheDeclared().All().empty() ? nullptr : reach_.TheDeclared().Of(object.CodePath());
    const Declaration* const leftAlone = said && said->kind == DeclaredKind::LeaveAlone ? said : nullptr;
    if (const EntryPoint* entry = reach_.EntryPointAt(object))
        return {Grade::CannotTell, GradeReason::NamedInString, nullptr, entry->modul, entry->pos, leftAlone};
    Grading grading{Grade::Likely, GradeReason::OnlyForeignTypes};
    reach_.TheLinks().ForEachTo(object, [&](const Link& link) {
        if (grading.grade == Grade::CannotTell || reach_.StateOf(*link.from) == ReachState::None ||
            IsForeign(reach_, link))
            return;
        const bool isCall = link.kind == LinkKind::PossibleCall;
        grading = {Grade::CannotTell, isCall ? GradeReason::PossibleCalls : GradeReason::UsedByUncertain,
                   isCall ? nullptr : link.from, ModuleOf(*link.from), link.pos};
    });
    grading.leftAlone = leftAlone;
    return grading;
}

Grading Reasons::GradeOf(const CodeObject& given) const {
    const CodeObject& object = Answering(given);
    if (!Reach::Covers(object) || reach_.StateOf(object) == ReachState::Certain)
        return {};
    if (reach_.StateOf(object) == ReachState::Possible)
        return GradeOfPossible(object);
    return TheDead().Contains(object) ? TheDead().GradeOf(object) : Grading{Grade::Sure};
}
