#include "reach/links.h"

#include "model/clsProjekt.h"

const clsModul* ModuleOf(const CodeObject& object) {
    if (object.myLibrary || object.Class() == ObjectClass::TypeLib)
        return nullptr;
    return object.Class() == ObjectClass::Modul ? static_cast<const clsModul*>(&object) : object.Modul;
}

Links::Links(const clsProjekt& projekt)
    : projekt_(projekt), ranges_(projekt.ObjectCount()), owners_(projekt.ObjectCount()) {
    targets_.reserve(projekt.calls.Count());
    AddEdges();
    for (const clsModul* modul : projekt.AllModules())
        AddOwners(*modul);
}

void Links::AddEdges() {
    const CodeObject* caller = nullptr;
    const clsCall* expected = nullptr;
    Step first = 0;
    const auto end = [&] {
        const auto next = static_cast<Step>(targets_.size());
        if (!caller)
            return;
        if (caller->Class() == ObjectClass::Modul)
            AddHolders(static_cast<const clsModul&>(*caller), first);
        else
            ranges_[caller->Number()] = {first, next};
    };
    projekt_.calls.ForEach([&](const clsCall& call) {
        if (&call.Caller() != caller) {
            end();
            caller = &call.Caller();
            first = static_cast<Step>(targets_.size());
        }
        if (&call != expected)
            stretches_.push_back({static_cast<Step>(targets_.size()), &call});
        expected = &call + 1;
        targets_.push_back(call.TargetNumber() << 1 | (call.Type() == CallType::MayBe ? 1U : 0U));
    });
    end();
}

void Links::AddHolders(const clsModul& modul, Step firstEdge) {
    struct Declared {
        Pos start;
        const CodeObject* object;
    };
    const std::span<const clsCall> edges = modul.outgoing;
    const Pos last = edges.back().CallPos;
    std::vector<Declared> declared;
    const auto add = [&](const CodeObject& object) {
        if (object.DeclareStart > 0 && object.DeclareStart <= last)
            declared.push_back({object.DeclareStart, &object});
    };
    for (const CodeObject* object : modul.Owned()) {
        if (object->Class() == ObjectClass::Control)
            continue;
        // Declarations were read before all procedures that follow them.
        if (object->Class() == ObjectClass::Prozedur && object->DeclareStart > last)
            break;
        add(*object);
        if (object->Class() == ObjectClass::Type)
            for (const clsVariable* member : static_cast<const clsType*>(object)->MyVars)
                add(*member);
        else if (object->Class() == ObjectClass::Enum)
            for (const clsVariable* member : static_cast<const clsEnum*>(object)->MyVars)
                add(*member);
    }
    // Of two at one place the later one is the inner: Me is where the first declaration is, and comes before it.
    std::ranges::stable_sort(declared, {}, &Declared::start);
    const auto first = static_cast<std::uint32_t>(holders_.size());
    auto next = declared.begin();
    const CodeObject* holder = &modul;
    Pos start = 0;
    for (std::uint32_t nr = 0; nr < edges.size(); ++nr) {
        for (; next != declared.end() && next->start <= edges[nr].CallPos; ++next) {
            holder = next->object;
            start = next->start;
        }
        if (holders_.size() == first || holders_.back().object != holder)
            holders_.push_back({start, firstEdge + nr, holder});
        ranges_[holder->Number()] = {holders_.back().firstEdge, firstEdge + nr + 1};
    }
    holdersOf_.push_back({first, static_cast<std::uint32_t>(holders_.size())});
    modules_.resize(ranges_.size());
    modules_[modul.Number()] = static_cast<std::uint32_t>(holdersOf_.size());
}

void Links::AddOwners(const clsModul& modul) {
    const auto add = [this](const auto& owners) {
        for (const auto* owner : owners)
            for (const clsVariable* member : owner->MyVars)
                owners_[member->Number()] = owner->Number();
    };
    add(modul.myTypes);
    add(modul.myEnums);
}

const clsCall& Links::EdgeAt(Step step) const {
    const auto behind = std::ranges::upper_bound(stretches_, step, {}, &Stretch::firstEdge);
    const Stretch& stretch = *std::prev(behind);
    return stretch.first[step - stretch.firstEdge];
}

const CodeObject& Links::Source(const clsCall& call) const {
    const clsModul* const modul = call.CallModule();
    if (!modul)
        return call.Caller();
    const Range range = holdersOf_[modules_[modul->Number()] - 1];
    const auto behind = std::upper_bound(holders_.begin() + range.first, holders_.begin() + range.end, call.CallPos,
                                         [](Pos pos, const Holder& holder) { return pos < holder.start; });
    return *std::prev(behind)->object;
}

Link Links::LinkOfStep(Step step, std::uint32_t from, const CodeObject& to) const {
    if (step != kMemberStep) {
        const clsCall& call = EdgeAt(step);
        return LinkOf(call, Source(call));
    }
    const auto& members = to.Class() == ObjectClass::Type ? static_cast<const clsType&>(to).MyVars
                                                          : static_cast<const clsEnum&>(to).MyVars;
    for (const clsVariable* member : members)
        if (member->Number() == from)
            return MemberLink(*member);
    return {};
}
