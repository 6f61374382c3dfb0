// Rings are the strongly connected parts of the graph, found by Tarjan's walk with an explicit stack.
#include "reach/dead_set.h"

#include <algorithm>

DeadObjects::DeadObjects(const Reach& reach) : reach_(reach), placeOf_(reach.Projekt().ObjectCount()) {
    reach.ForEachObject([&](const CodeObject& object) {
        if (reach.StateOf(object) != ReachState::None || placeOf_[object.Number()] != 0)
            return;
        objects_.push_back(&object);
        placeOf_[object.Number()] = static_cast<std::uint32_t>(objects_.size());
    });
    FindRings();
    Grades();
}

void DeadObjects::FindRings() {
    struct Step {
        std::uint32_t place;
        std::vector<std::uint32_t> targets;
        std::size_t next = 0;
    };
    constexpr std::uint32_t kNone = UINT32_MAX;
    std::vector<std::uint32_t> order(objects_.size(), kNone);
    std::vector<std::uint32_t> lowest(objects_.size());
    std::vector<std::uint32_t> open;  // visited, and not yet in a ring
    std::vector<Step> path;
    std::uint32_t visited = 0;
    ringOf_.assign(objects_.size(), kNone);
    const auto visit = [&](std::uint32_t place) {
        order[place] = lowest[place] = visited++;
        open.push_back(place);
        Step& step = path.emplace_back(Step{place, {}, 0});
        reach_.TheLinks().ForEachFrom(*objects_[place], [&](const Link&, std::uint32_t number) {
            if (placeOf_[number] != 0)
                step.targets.push_back(placeOf_[number] - 1);
        });
    };
    for (std::uint32_t start = 0; start < objects_.size(); ++start) {
        if (order[start] != kNone)
            continue;
        visit(start);
        while (!path.empty()) {
            Step& step = path.back();
            const std::uint32_t place = step.place;
            if (step.next < step.targets.size()) {
                const std::uint32_t target = step.targets[step.next++];
                if (order[target] == kNone)
                    visit(target);
                else if (ringOf_[target] == kNone)
                    lowest[place] = std::min(lowest[place], order[target]);
                continue;
            }
            path.pop_back();
            if (!path.empty())
                lowest[path.back().place] = std::min(lowest[path.back().place], lowest[place]);
            if (lowest[place] != order[place])
                continue;
            for (bool isLast = false; !isLast; open.pop_back()) {
                ringOf_[open.back()] = place;
                isLast = open.back() == place;
            }
        }
    }
}

std::vector<const CodeObject*> DeadObjects::CallersOf(const CodeObject& object) const {
    std::vector<const CodeObject*> callers;
    reach_.TheLinks().ForEachTo(object, [&](const Link& link) {
        if (link.from != &object)
            callers.push_back(link.from);
    });
    std::vector<const CodeObject*> sorted = callers;
    std::ranges::sort(sorted);
    std::vector<bool> isTaken(sorted.size());
    std::erase_if(callers, [&](const CodeObject* caller) {
        const auto nr = static_cast<std::size_t>(std::ranges::lower_bound(sorted, caller) - sorted.begin());
        const bool before = isTaken[nr];
        isTaken[nr] = true;
        return before;
    });
    return callers;
}

std::vector<const CodeObject*> DeadObjects::RingOf(const CodeObject& object) const {
    const std::uint32_t ring = ringOf_[placeOf_[object.Number()] - 1];
    std::vector<const CodeObject*> members{&object};
    bool isClosed = true;
    bool hasCaller = false;
    std::vector<bool> isTaken(objects_.size());
    isTaken[placeOf_[object.Number()] - 1] = true;
    for (std::size_t at = 0; at < members.size() && isClosed; ++at)
        reach_.TheLinks().ForEachTo(*members[at], [&](const Link& link) {
            hasCaller = true;
            const std::uint32_t place = placeOf_[link.from->Number()];
            if (place == 0 || ringOf_[place - 1] != ring) {
                isClosed = false;
            } else if (!isTaken[place - 1]) {
                isTaken[place - 1] = true;
                members.push_back(link.from);
            }
        });
    if (!isClosed || !hasCaller)
        members.clear();
    return members;
}

void DeadObjects::Grades() {
    grades_.assign(objects_.size(), {Grade::Sure});
}
