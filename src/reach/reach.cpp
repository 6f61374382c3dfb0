#include "reach/reach.h"

#include <algorithm>
#include <utility>

#include "shell/work_ahead.h"

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
    WorkAhead<Walked> walks(2, [this](std::size_t nr, std::size_t) { return Walk(nr == 0); });
    certain_ = walks.Next();
    any_ = walks.Next();
}

Reach::Walked Reach::Walk(bool certainOnly) const {
    Walked walked(entryOf_.size());
    std::vector<std::uint32_t> queue;
    queue.reserve(walked.size() / 2);
    for (const EntryPoint& entry : entries_)
        if (!certainOnly || entry.IsCertain()) {
            walked[entry.object->Number()].step = kEntry;
            queue.push_back(entry.object->Number());
        }
    for (std::size_t at = 0; at < queue.size(); ++at) {
        const std::uint32_t from = queue[at];
        links_.ForEachStep(from, [&](std::uint32_t target, Links::Step step, bool isCertain) {
            Arrival& arrival = walked[target];
            if (arrival.step != kUnreached || (certainOnly && !isCertain))
                return;
            arrival = {from, step};
            queue.push_back(target);
        });
    }
    return walked;
}

const EntryPoint* Reach::EntryPointAt(std::uint32_t number) const {
    const std::uint32_t place = entryOf_[number];
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

Chain Reach::ChainTo(const CodeObject& object) const {
    const CodeObject& answering = Answering(object);
    return ChainIn(certain_[answering.Number()].step != kUnreached ? certain_ : any_, answering);
}

Chain Reach::ChainIn(const Walked& walked, const CodeObject& object) const {
    Chain chain;
    const CodeObject* at = &object;
    Arrival arrival = walked[at->Number()];
    if (arrival.step == kUnreached)
        return chain;
    while (arrival.step != kEntry) {
        chain.links.push_back(links_.LinkOfStep(arrival.step, arrival.from, *at));
        at = chain.links.back().from;
        arrival = walked[at->Number()];
    }
    std::ranges::reverse(chain.links);
    chain.entry = EntryPointAt(*at);
    return chain;
}
