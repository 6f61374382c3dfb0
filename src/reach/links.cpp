#include "reach/links.h"

#include "model/clsProjekt.h"

const clsModul* ModuleOf(const CodeObject& object) {
    if (object.myLibrary || object.Class() == ObjectClass::TypeLib)
        return nullptr;
    return object.Class() == ObjectClass::Modul ? static_cast<const clsModul*>(&object) : object.Modul;
}

Links::Links(const clsProjekt& projekt) : projekt_(projekt), holderOf_(projekt.ObjectCount()) {
    for (const clsModul* modul : projekt.AllModules())
        if (!modul->outgoing.empty())
            AddHolders(*modul);
}

void Links::AddHolders(const clsModul& modul) {
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
        add(*object);
        if (object->Class() == ObjectClass::Type)
            for (const clsVariable* member : static_cast<const clsType*>(object)->MyVars)
                add(*member);
        else if (object->Class() == ObjectClass::Enum)
            for (const clsVariable* member : static_cast<const clsEnum*>(object)->MyVars)
                add(*member);
    }
    // Of two at one place the later one is the inner: Me stands where the first declaration does, and comes before it.
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
        if (holders_.size() == first || holders_.back().object != holder) {
            holders_.push_back({start, nr, holder});
            if (holder != &modul)
                holderOf_[holder->Number()] = static_cast<std::uint32_t>(holders_.size());
        }
    }
    modules_.emplace_back(first, static_cast<std::uint32_t>(holders_.size()));
    holderOf_[modul.Number()] = static_cast<std::uint32_t>(modules_.size());
    holders_.push_back({0, static_cast<std::uint32_t>(edges.size()), &modul});  // where the last one's edges end
}

std::span<const clsCall> Links::InDeclaration(const CodeObject& object) const {
    if (object.myLibrary || !object.Modul)
        return {};
    const std::uint32_t place = holderOf_[object.Number()];
    if (place == 0)
        return {};
    const std::uint32_t begin = holders_[place - 1].firstEdge;
    return object.Modul->outgoing.subspan(begin, holders_[place].firstEdge - begin);
}

const CodeObject& Links::Source(const clsCall& call) const {
    const clsModul* const modul = call.CallModule();
    if (!modul)
        return call.Caller();
    const auto& [begin, end] = modules_[holderOf_[modul->Number()] - 1];
    const auto behind = std::upper_bound(holders_.begin() + begin, holders_.begin() + end, call.CallPos,
                                         [](Pos pos, const Holder& holder) { return pos < holder.start; });
    return *std::prev(behind)->object;
}
