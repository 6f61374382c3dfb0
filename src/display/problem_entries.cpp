#include "display/problem_entries.h"

#include <unordered_map>

#include "display/problem_meaning.h"
#include "model/clsProjekt.h"

namespace {

using ModulesByPath = std::unordered_map<std::string, const clsModul*>;

ModulesByPath ModulesOf(const clsProjekt& projekt) {
    ModulesByPath modules;
    for (const auto& modul : projekt.OwnedModules())
        modules.emplace(modul->FullPath, modul.get());
    return modules;
}

std::vector<ProblemPlace> PlacesOf(const clsProjekt& projekt, const ModulesByPath& modules, const Problem& problem) {
    ProblemPlace place{problem.subject, {}, {}, 0, problem.tag};
    if (const auto found = modules.find(problem.subject); found != modules.end()) {
        place.module = found->second->myNameOrg();
        // Modules without a text, and the second one of a name, have no node.
        if (found->second->text && projekt.GetModuleFromCodePath(found->second->CodePath()) == found->second)
            place.node = found->second->CodePath();
    }
    if (problem.lines.empty())
        return {place};
    std::vector<ProblemPlace> places;
    for (const int line : problem.lines) {
        place.line = line;
        places.push_back(place);
    }
    return places;
}

}  // namespace

const ProblemPlace* ProblemWalk::Next(const ProblemEntry& entry) {
    if (text_ != entry.text) {
        text_ = entry.text;
        next_ = 0;
    }
    for (std::size_t tried = 0; tried < entry.places.size(); ++tried) {
        const ProblemPlace& place = entry.places[next_++ % entry.places.size()];
        if (!place.node.empty())
            return &place;
    }
    return nullptr;
}

std::vector<ProblemEntry> ProblemEntries(const clsProjekt& projekt) {
    const ModulesByPath modules = ModulesOf(projekt);
    std::vector<ProblemEntry> entries;
    std::unordered_map<std::string, std::size_t> known;  // place of an entry by what its problems share
    const auto enter = [&](const Problem& problem) {
        const std::string key = std::string(ProblemKind(problem.tag)) + '\n' + problem.text;
        const auto [found, isNew] = known.try_emplace(key, entries.size());
        if (isNew)
            entries.push_back({problem.text, ProblemMeaning(problem.tag), {}, problem.file});
        std::vector<ProblemPlace>& places = entries[found->second].places;
        for (ProblemPlace& place : PlacesOf(projekt, modules, problem))
            places.push_back(std::move(place));
    };
    for (const bool isHint : {false, true})
        for (const Problem& problem : projekt.problems.All())
            if (problem.isHint == isHint)
                enter(problem);
    return entries;
}
