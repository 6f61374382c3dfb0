#include "reach/reason_text.h"

#include "model/line_numbers.h"
#include "shell/clsText.h"

namespace {

constexpr std::size_t kMostNamed = 5;

std::string NamesOf(const std::vector<const CodeObject*>& objects) {
    std::string names;
    const std::size_t named = objects.size() > kMostNamed + 1 ? kMostNamed : objects.size();
    for (std::size_t nr = 0; nr < named; ++nr)
        names.append(nr == 0 ? "" : ", ").append(Utf8Path(*objects[nr]));
    return named == objects.size() ? names : Filled(Text::AndMore, {names, std::to_string(objects.size() - named)});
}

std::string PlaceOf(const clsModul* modul, Pos pos, LineNumbers& lines) {
    return modul ? PlaceText(*modul, lines.Of(*modul, pos)) : std::string();
}

std::string DoubtText(const Doubt& doubt, const CodeObject& target) {
    const std::string receiver = target.Utf8(doubt.receiver);
    const std::string type = target.Utf8(doubt.type);
    switch (doubt.kind) {
        case DoubtKind::Variant:
            return Filled(Text::DoubtVariant, {receiver});
        case DoubtKind::AnyObject:
            return Filled(Text::DoubtAnyObject, {receiver, type});
        case DoubtKind::UnknownType:
            return Filled(Text::DoubtUnknownType, {receiver, type});
        case DoubtKind::NotInType:
            return Filled(Text::DoubtNotInType, {receiver});
        case DoubtKind::With:
            return Utf8TextNr(Text::DoubtWith);
        case DoubtKind::UnknownName:
            return Filled(Text::DoubtUnknownName, {receiver});
        case DoubtKind::Expression:
        case DoubtKind::NamedInString:
        case DoubtKind::None:
            break;
    }
    return Utf8TextNr(Text::DoubtExpression);
}

std::string OnlyPossible(const Reason& reason, LineNumbers& lines) {
    const EntryPoint& entry = *reason.chain.entry;
    if (reason.firstPossible >= 0) {
        const Link& link = reason.chain.links[static_cast<std::size_t>(reason.firstPossible)];
        const std::string place = PlaceOf(ModuleOf(*link.from), link.pos, lines);
        return Filled(Text::ReasonPossible, {Utf8Path(*link.to), place, DoubtText(reason.doubt, *link.to)});
    }
    const std::string place = PlaceOf(entry.modul, entry.pos, lines);
    return reason.chain.links.empty() ? Filled(Text::ReasonInString, {place})
                                      : Filled(Text::ReasonFromString, {Utf8Path(*entry.object), place});
}

std::string Kept(const Reason& reason) {
    const std::string entry = Utf8Path(*reason.chain.entry->object);
    const std::string kind = TextOf(reason.chain.entry->kind);
    const std::size_t steps = reason.chain.links.size();
    return steps == 1 ? Filled(Text::ReasonKeptDirectly, {entry, kind})
                      : Filled(Text::ReasonKept, {entry, kind, std::to_string(steps)});
}

std::string Unreached(const Reason& reason) {
    switch (reason.kind) {
        case ReasonKind::NoCaller:
            return Utf8TextNr(Text::ReasonNoCaller);
        case ReasonKind::DeadCallers:
            return Filled(Text::ReasonDeadCallers, {NamesOf(reason.objects)});
        default:
            return reason.objects.size() == 1 ? Utf8TextNr(Text::ReasonOnlyItself)
                                              : Filled(Text::ReasonRing, {NamesOf(reason.objects)});
    }
}

std::string WhyNotBetter(const Grading& grading, LineNumbers& lines) {
    const std::string of = grading.of ? Utf8Path(*grading.of) : std::string();
    const std::string place = PlaceOf(grading.modul, grading.pos, lines);
    switch (grading.reason) {
        case GradeReason::ShiftsMembers:
            return Utf8TextNr(Text::GradeShifts);
        case GradeReason::ChangesLayout:
            return Utf8TextNr(Text::GradeLayout);
        case GradeReason::InterfaceMember:
            return Utf8TextNr(Text::GradeInterface);
        case GradeReason::DesignerProperty:
            return Utf8TextNr(Text::GradeDesigner);
        case GradeReason::OnlyForeignTypes:
            return Utf8TextNr(Text::GradeForeignTypes);
        case GradeReason::UsedByLikely:
        case GradeReason::UsedByUncertain:
            return Filled(Text::GradeUsedByLikely, {of});
        case GradeReason::PossibleCalls:
            return Utf8TextNr(Text::GradePossible);
        case GradeReason::NamedInString:
            return Filled(Text::GradeString, {place});
        case GradeReason::DefaultMember:
            return Utf8TextNr(Text::GradeDefault);
        case GradeReason::PassedOut:
            return Utf8TextNr(Text::GradePassedOut);
        case GradeReason::NotCompiled:
            return Filled(Text::GradeNotCompiled, {place});
        case GradeReason::NamedInCode:
            return Filled(Text::GradeNamed, {place});
        case GradeReason::UnreadModules:
            return Utf8TextNr(Text::GradeUnread);
        case GradeReason::UsedByLeftAlone:
            return Filled(Text::GradeUsedByLeftAlone, {of});
        case GradeReason::None:
            break;
    }
    return {};
}

}  // namespace

std::string SentenceOf(const Reason& reason, LineNumbers& lines) {
    switch (reason.kind) {
        case ReasonKind::None:
            return Utf8TextNr(Text::ReasonNone);
        case ReasonKind::EntryPoint:
            return Filled(Text::ReasonEntryPoint, {TextOf(reason.chain.entry->kind)});
        case ReasonKind::Kept:
            return Kept(reason);
        case ReasonKind::OnlyPossible:
            return OnlyPossible(reason, lines);
        case ReasonKind::NoCaller:
        case ReasonKind::DeadCallers:
        case ReasonKind::Ring:
            break;
    }
    return Unreached(reason) + (reason.keptByRule ? " " + Utf8TextNr(Text::ReasonKeptByRule) : std::string());
}

std::string TextOf(Grade grade) {
    switch (grade) {
        case Grade::Living:
            return Utf8TextNr(Text::GradeLiving);
        case Grade::Sure:
            return Utf8TextNr(Text::GradeSure);
        case Grade::Likely:
            return Utf8TextNr(Text::GradeLikely);
        case Grade::CannotTell:
            break;
    }
    return Utf8TextNr(Text::GradeCannotTell);
}

std::string SentenceOf(const CodeObject& object, const Grading& grading, LineNumbers& lines) {
    std::string sentence = grading.grade == Grade::Living ? Utf8TextNr(Text::IsAlive)
                           : grading.grade == Grade::Sure ? Utf8TextNr(Text::CanGoSurely)
                           : grading.grade == Grade::Likely
                               ? Filled(Text::CanGoLikely, {WhyNotBetter(grading, lines)})
                               : Filled(Text::CannotTellIfGo, {WhyNotBetter(grading, lines)});
    if (grading.leftAlone)
        sentence += " (" + Filled(Text::LeftAlone, {object.Utf8(grading.leftAlone->comment)}) + ")";
    return sentence;
}

std::string TextOf(EntryKind kind) {
    switch (kind) {
        case EntryKind::StartUp:
            return Utf8TextNr(Text::EntryStartUp);
        case EntryKind::ModuleEvent:
            return Utf8TextNr(Text::EntryModuleEvent);
        case EntryKind::ControlEvent:
            return Utf8TextNr(Text::EntryControlEvent);
        case EntryKind::VariableEvent:
            return Utf8TextNr(Text::EntryVariableEvent);
        case EntryKind::InterfaceMember:
            return Utf8TextNr(Text::EntryInterface);
        case EntryKind::ExportedClass:
            return Utf8TextNr(Text::EntryExportedClass);
        case EntryKind::ExportedControl:
            return Utf8TextNr(Text::EntryExportedControl);
        case EntryKind::AddressOf:
            return Utf8TextNr(Text::EntryAddressOf);
        case EntryKind::Declared:
            return Utf8TextNr(Text::EntryDeclared);
        case EntryKind::NamedInString:
            break;
    }
    return Utf8TextNr(Text::EntryString);
}

std::string TextOf(LinkKind kind) {
    switch (kind) {
        case LinkKind::PossibleCall:
            return Utf8TextNr(Text::LinkPossible);
        case LinkKind::Use:
            return Utf8TextNr(Text::LinkUse);
        case LinkKind::Member:
            return Utf8TextNr(Text::LinkMember);
        case LinkKind::Call:
        case LinkKind::None:
            break;
    }
    return Utf8TextNr(Text::LinkCall);
}

std::string Utf8Path(const CodeObject& object) {
    return object.Utf8(object.CodePathOrg());
}

std::string PlaceText(const clsModul& modul, int line) {
    return modul.Utf8(modul.myNameOrg()) + " " + std::to_string(line);
}
