#include "reach/links.h"

#include <algorithm>
#include <utility>

#include "model/clsProjekt.h"
#include "reach/side_by_side.h"

const clsModul* ModuleOf(const CodeObject& object) {
    if (object.myLibrary || object.Class() == ObjectClass::TypeLib)
        return nullptr;
    return object.Class() == ObjectClass::Modul ? static_cast<const clsModul*>(&object) : object.Modul;
}

Links::Links(const clsProjekt& projekt)
    : projekt_(projekt), graph_(projekt.calls), leaving_(graph_.Leaving()), owners_(projekt.ObjectCount()) {
    leaving_.resize(owners_.size());
    // Numbers of one module are consecutive, so each writes to places of its own.
    using OfModule = std::pair<const clsModul*, Holders>;
    for (OfModule& found : OfEachModule<OfModule>(projekt, [this](const clsModul& modul) {
             AddOwners(modul.myTypes);
             AddOwners(modul.myEnums);
             return OfModule(&modul, modul.outgoing.empty() ? Holders() : FindHolders(modul));
         }))
        if (!found.second.empty())
            holders_.insert(std::move(found));
}

Links::Holders Links::FindHolders(const clsModul& modul) {
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
    Holders holders;
    const Step firstEdge = std::exchange(leaving_[modul.Number()], {}).first;
    auto next = declared.begin();
    const CodeObject* holder = &modul;
    Pos start = 0;
    for (std::uint32_t nr = 0; nr < edges.size(); ++nr) {
        for (; next != declared.end() && next->start <= edges[nr].CallPos; ++next) {
            holder = next->object;
            start = next->start;
        }
        if (holders.empty() || holders.back().object != holder)
            holders.push_back({start, firstEdge + nr, holder});
        leaving_[holder->Number()] = {holders.back().firstEdge, firstEdge + nr + 1};
    }
    return holders;
}

template <class Owners>
void Links::AddOwners(const Owners& owners) {
    for (const auto* owner : owners)
        for (const clsVariable* member : owner->MyVars)
            owners_[member->Number()] = owner->Number();
}

Link Links::LinkOfStep(Step step, std::uint32_t from, const CodeObject& to) const {
    if (step != kMemberStep) {
        const clsCall& call = graph_.EdgeAt(step);
        return LinkOf(call, Source(call));
    }
    const auto& members = to.Class() == ObjectClass::Type ? static_cast<const clsType&>(to).MyVars
                                                          : static_cast<const clsEnum&>(to).MyVars;
    for (const clsVariable* member : members)
        if (member->Number() == from)
            return MemberLink(*member);
    return {};
}

const CodeObject& Links::Source(const clsCall& call) const {
    const clsModul* const modul = call.CallModule();
    if (!modul)
        return call.Caller();
    const Holders& holders = holders_.at(modul);
    const auto next = std::ranges::upper_bound(holders, call.CallPos, {}, &Holder::start);
    return *std::prev(next)->object;
}

std::span<const Links::Origin> Links::OriginsOf(std::uint32_t number) const {
    if (originsBegin_.empty())
        FindOrigins();
    return std::span(origins_).subspan(originsBegin_[number], originsBegin_[number + 1] - originsBegin_[number]);
}

// Calls `use(target, origin)` for each link: first all calls, then all uses, then the members.
template <class Use>
void Links::ForEachNumbered(const Use& use) const {
    for (const bool uses : {false, true}) {
        const CodeObject* caller = nullptr;
        std::uint32_t number = 0;
        projekt_.calls.ForEach([&](const clsCall& call) {
            if ((call.Type() == CallType::Use) != uses)
                return;
            if (&call.Caller() != caller || caller->Class() == ObjectClass::Modul) {
                caller = &call.Caller();
                number = Source(call).Number();
            }
            use(call.TargetNumber(), Origin{number, call.Type() != CallType::MayBe});
        });
    }
    const auto members = [&use](const auto& owners) {
        for (const auto* owner : owners)
            for (const clsVariable* member : owner->MyVars)
                use(owner->Number(), Origin{member->Number(), true});
    };
    for (const clsModul* modul : projekt_.AllModules()) {
        members(modul->myTypes);
        members(modul->myEnums);
    }
}

// A counting sort by target.
void Links::FindOrigins() const {
    originsBegin_.assign(projekt_.ObjectCount() + 2, 0);
    ForEachNumbered([this](std::uint32_t target, Origin) { ++originsBegin_[target + 2]; });
    for (std::size_t nr = 2; nr < originsBegin_.size(); ++nr)
        originsBegin_[nr] += originsBegin_[nr - 1];
    // originsBegin_[target + 1] is the place for its next origin; at the end it is the begin of the next target.
    origins_.resize(originsBegin_.back());
    ForEachNumbered([this](std::uint32_t target, Origin origin) { origins_[originsBegin_[target + 1]++] = origin; });
}
