#include "reach/reach.h"

#include <algorithm>
#include <utility>

bool Chain::IsCertain() const {
    return entry && entry->IsCertain() && std::ranges::all_of(links, &Link::IsCertain);
}

const CodeObject& Answering(const CodeObject& object) {
    if (object.Class() != ObjectClass::Variable)
        return object;
    const auto& variable = static_cast<const clsVariable&>(object);
    return variable.Prozedur ? static_cast<const CodeObject&>(*variable.Prozedur) : object;
}

Reach::Reach(const clsProjekt& projekt, Declared declared)
    : declared_(std::move(declared)),
      links_(projekt),
      generation_(projekt.Generation()),
      marks_(MarksInCode(projekt)),
      entries_(EntryPointsOf(projekt, marks_, declared_)),
      entryOf_(projekt.ObjectCount()) {
    for (std::uint32_t nr = 0; nr < entries_.size(); ++nr)
        entryOf_[entries_[nr].object->Number()] = nr + 1;
    certain_ = Walk(true);
    any_ = Walk(false);
}

Reach::Walked Reach::Walk(bool certainOnly) const {
    Walked walked(entryOf_.size());
    std::vector<const CodeObject*> queue;
    for (const EntryPoint& entry : entries_)
        if (!certainOnly || entry.IsCertain()) {
            walked[entry.object->Number()].isReached = true;
            queue.push_back(entry.object);
        }
    for (std::size_t at = 0; at < queue.size(); ++at)
        links_.ForEachFrom(*queue[at], [&](const Link& link, std::uint32_t number) {
            Arrival& arrival = walked[number];
            if (arrival.isReached || (certainOnly && !link.IsCertain()))
                return;
            arrival = {link.from, link.pos, link.kind, true};
            queue.push_back(link.to);
        });
    return walked;
}

const EntryPoint* Reach::EntryPointAt(const CodeObject& object) const {
    const std::uint32_t place = entryOf_[object.Number()];
    return place == 0 ? nullptr : &entries_[place - 1];
}

bool Reach::Covers(const CodeObject& object) {
    if (object.myLibrary || !object.Modul)
        return false;
    if (object.Class() == ObjectClass::Variable) {
        const auto& variable = static_cast<const clsVariable&>(object);
        const bool isMe = variable.MyName() == "me" && variable.Modul->ModulTyp != ModuleKind::Module;
        return !variable.isFormInstance && !isMe;
    }
    return object.Class() != ObjectClass::Control;
}

ReachState Reach::StateOf(const CodeObject& object) const {
    const std::uint32_t number = Answering(object).Number();
    return certain_[number].isReached ? ReachState::Certain
           : any_[number].isReached   ? ReachState::Possible
                                      : ReachState::None;
}

Chain Reach::ChainTo(const CodeObject& object) const {
    const CodeObject& answering = Answering(object);
    return ChainIn(certain_[answering.Number()].isReached ? certain_ : any_, answering);
}

Chain Reach::ChainIn(const Walked& walked, const CodeObject& object) const {
    Chain chain;
    const CodeObject* at = &object;
    if (!walked[at->Number()].isReached)
        return chain;
    for (const Arrival* arrival = &walked[at->Number()]; arrival->from; arrival = &walked[at->Number()]) {
        chain.links.push_back({arrival->from, at, arrival->kind, arrival->pos});
        at = arrival->from;
    }
    std::ranges::reverse(chain.links);
    chain.entry = EntryPointAt(*at);
    return chain;
}
