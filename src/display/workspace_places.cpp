// The part of the workspace that leads from place to place: where a click leads, neighbours, references.
#include <algorithm>

#include "display/dependency_trees.h"
#include "display/node_objects.h"
#include "display/object_text.h"
#include "display/workspace.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsVariable.h"

namespace {

const clsProzedur* ProcedureOfLocal(const CodeObject* object) {
    return object && object->Class() == ObjectClass::Variable ? static_cast<const clsVariable*>(object)->Prozedur
                                                              : nullptr;
}

}  // namespace

// The object that has this neighbour: that of the node above, the current one, or the first such of the group.
const CodeObject* Workspace::OwnerOfNeighbour(const BaumNode& node, const CodeObject& neighbour, bool isCaller) const {
    if (OwnKeyOf(node.Key()) != node.Key())
        return ObjectOf(*node.Parent());
    const auto isNeighbourOf = [&](const CodeObject& own) {
        const CallType type = TypeShown(isCaller);
        return !(isCaller ? CallsText(neighbour, own, type) : CallsText(own, neighbour, type)).empty();
    };
    if (groupShown_)
        for (const CodeObject* checked : checked_.Objects())
            if (isNeighbourOf(*checked))
                return checked;
    return ProcedureOrCurrent();
}

std::optional<CodePane::Change> Workspace::SelectCallsOfObject(const BaumNode& node, bool isCaller) {
    const CodeObject* const clicked = ObjectOf(node);
    const CodeObject* const own = clicked ? OwnerOfNeighbour(node, *clicked, isCaller) : nullptr;
    if (!own)
        return {};
    SetCalledObject(*projekt_, selection_, node.Id());
    const CodeObject& caller = isCaller ? *clicked : *own;
    const CodeObject& target = isCaller ? *own : *clicked;
    EndWalk();
    overviewAsked_ = false;
    if (caller.Class() == ObjectClass::Modul && !caller.myLibrary) {
        walk_ = PlaceWalk(PlacesIn(static_cast<const clsModul&>(caller), target, TypeShown(isCaller)));
        return StepOn(+1);
    }
    if (caller.Class() != ObjectClass::Prozedur)
        return {};
    const CodePane::Change change =
        code_.SelectCallsOfObject(*projekt_, target, static_cast<const clsProzedur&>(caller), TypeShown(isCaller));
    MarkLocalsShown(change);
    return change;
}

void Workspace::UnfoldNeighbour(BaumNode& node, bool isCaller) {
    if (projekt_)
        Unfold(*projekt_, checked_, ProcedureOrCurrent(), isCaller ? calledBy_ : calls_, node,
               {isCaller, MayBe(!isCaller)});
}

std::optional<int> Workspace::EdgesShown(bool calls) const {
    if (!CallsRead() || (!selection_.CurObject && !groupShown_))
        return {};
    return calls ? edgesShown_.calls : edgesShown_.calledBy;
}

std::string Workspace::KeyClicked(Pos selStart, Pos selLength) {
    navigation_.NoteSelection(selStart, selLength);
    const CodeObject* const object =
        projekt_ ? code_.ObjectClicked(*projekt_, selection_, selStart, selLength) : nullptr;
    return object ? NodeKeyOf(*object) : std::string();
}

bool Workspace::LeadsOn(Pos selStart, Pos selLength) const {
    const CodeObject* const object =
        projekt_ ? code_.ObjectClicked(*projekt_, selection_, selStart, selLength) : nullptr;
    return object && tree_.Exist(NodeKeyOf(*object));
}

bool Workspace::NameLeadsOn(Pos position) const {
    const CodeObject* const named = projekt_ ? code_.ObjectAt(*projekt_, position) : nullptr;
    return named && named != selection_.CurObject && LeadsOn(position, 0) &&
           code_.ObjectClicked(*projekt_, selection_, position, 0) == named;
}

std::vector<CallPlace> Workspace::FindReferences() {
    const CodeObject* const object = projekt_ ? selection_.CurObject : nullptr;
    if (!object)
        return {};
    const clsProzedur* const prozedur = ProcedureOfLocal(object);
    return ReferencesTo(*projekt_, prozedur ? code_.LookAtLocals(*prozedur) : code_.Locals(), *object);
}

std::optional<int> Workspace::ReferenceCount() {
    const bool isKnown = selection_.CurObject && (CallsRead() || ProcedureOfLocal(selection_.CurObject));
    return isKnown ? std::optional(static_cast<int>(FindReferences().size())) : std::nullopt;
}

std::vector<ReferenceRow> Workspace::References() {
    return selection_.CurObject ? RowsOf(FindReferences(), *selection_.CurObject) : std::vector<ReferenceRow>();
}

Text Workspace::WhyNoReferences() const {
    if (!selection_.CurObject)
        return Text::EmptyReferences;
    return CallsRead() || ProcedureOfLocal(selection_.CurObject) ? Text::NoCallers : Text::ReadCallsFirst;
}

void Workspace::WalkReferences() {
    walk_ = PlaceWalk(FindReferences());
    walkOf_ = WalkOf::References;
}

void Workspace::EndWalk() {
    walk_ = {};
    walkOf_ = WalkOf::Neighbour;
}

std::optional<CodePane::Change> Workspace::WalkTo(int at) {
    if (!projekt_ || !walk_.GoTo(at))
        return {};
    overviewAsked_ = false;
    const CodePane::Change change = code_.ShowPlace(*projekt_, walk_.Places(), static_cast<std::size_t>(at));
    MarkLocalsShown(change);
    return change;
}

std::optional<CodePane::Change> Workspace::StepFrom(int at, int by) {
    static_cast<void>(walk_.GoTo(at));
    return StepOn(by);
}

std::optional<CodePane::Change> Workspace::StepOn(int by) {
    walk_.Step(by);
    return WalkTo(walk_.At());
}
