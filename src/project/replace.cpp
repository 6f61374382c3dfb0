#include "project/replace.h"

#include <algorithm>
#include <utility>

#include "calls/driver.h"
#include "findings/dead_objects.h"
#include "model/clsProjekt.h"
#include "shell/errors.h"
#include "shell/work_ahead.h"

namespace {

// The modules read for the changes that have a source, in their order; null for one that was not taken, and fewer when
// no more were.
std::vector<std::unique_ptr<clsModul>> ReadChanged(clsProjekt& projekt, const std::vector<ModuleChange>& changes,
                                                   const ModuleRead& taken) {
    std::vector<std::size_t> reading;
    for (std::size_t nr = 0; nr < changes.size(); ++nr)
        if (changes[nr].source)
            reading.push_back(nr);
    const ReadingContext context{projekt.TheFiles(), projekt.TheNames(), projekt.Memory(), projekt.condComps};
    WorkAhead<std::unique_ptr<clsModul>> work(reading.size(), [&](std::size_t nr, std::size_t) {
        return Read_Module(context, *changes[reading[nr]].source);
    });
    std::vector<std::unique_ptr<clsModul>> read;
    for (const std::size_t change : reading) {
        const ErrorSubject subject(changes[change].source->path);
        std::unique_ptr<clsModul> modul = work.Next();
        const Taken what = taken ? taken(change, *modul) : Taken::Yes;
        if (what == Taken::NoMore)
            break;
        if (what == Taken::No)
            modul.reset();
        read.push_back(std::move(modul));
    }
    return read;
}

// Whether every module that was read was dropped, so that the project stays as it is.
bool ChangesNothing(const std::vector<ModuleChange>& changes, const std::vector<std::unique_ptr<clsModul>>& read) {
    return !changes.empty() &&
           std::ranges::all_of(changes, [](const ModuleChange& change) { return change.source.has_value(); }) &&
           std::ranges::all_of(read, [](const auto& modul) { return modul == nullptr; });
}

using Modules = std::vector<std::unique_ptr<clsModul>>;

// Those that the order names are moved out of `modules`.
Modules TakeInOrder(Modules& modules, const std::vector<std::size_t>& order) {
    if (order.empty())
        return std::exchange(modules, {});
    Modules ordered;
    for (const std::size_t place : order)
        if (place < modules.size())
            ordered.push_back(std::move(modules[place]));
    return ordered;
}

}  // namespace

void Replace(clsProjekt& projekt, const std::vector<ModuleChange>& changes, const ModuleRead& taken,
             const std::vector<std::size_t>& order) {
    std::vector<std::unique_ptr<clsModul>> read = ReadChanged(projekt, changes, taken);
    if (order.empty() && ChangesNothing(changes, read))
        return;
    projekt.TheNames().FreeOutgrown();
    Modules modules = projekt.TakeModules();
    // Reading calls lets the window handle events, and it may use the old objects until the listeners have run.
    Modules gone;
    auto next = read.begin();
    for (const ModuleChange& change : changes) {
        if (change.source && next == read.end())
            break;
        std::unique_ptr<clsModul> modul = change.source ? std::move(*next++) : nullptr;
        if (!change.place)
            modules.push_back(std::move(modul));
        else if (modul || !change.source)
            gone.push_back(std::exchange(modules.at(*change.place), std::move(modul)));
    }
    Modules ordered = TakeInOrder(modules, order);
    std::erase(ordered, nullptr);
    projekt.SetModules(std::move(ordered));
    if (projekt.callsKnown)
        Who_Calls_Who(projekt);
    if (!projekt.callsKnown)
        projekt.ClearMarks();  // without all edges everything would look dead
    else if (projekt.marksKnown)
        Tote_Untote_Kennzeichnen(projekt);
    projekt.TellReplaced();
}
