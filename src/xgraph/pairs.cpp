#include "xgraph/pairs.h"

#include <algorithm>
#include <cstddef>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "model/clsModul.h"
#include "model/line_numbers.h"

namespace {

using Ends = std::pair<const void*, const void*>;
struct HashOfEnds {
    std::size_t operator()(const Ends& ends) const {
        const std::hash<const void*> hash;
        return hash(ends.first) * 31 + hash(ends.second);
    }
};

void Count(GraphPair& pair, const clsCall& call) {
    switch (call.Type()) {
        case CallType::Really:
            ++pair.certain;
            break;
        case CallType::MayBe:
            ++pair.possible;
            break;
        case CallType::Use:
            ++pair.uses;
            break;
    }
}

// Leaves each call once, where it comes first.
void CountOnce(GraphPair& pair) {
    std::unordered_set<const clsCall*> known;
    std::erase_if(pair.calls, [&](const clsCall* call) { return !known.insert(call).second; });
    for (const clsCall* call : pair.calls)
        Count(pair, *call);
}

}  // namespace

std::vector<GraphPair> GraphPairs(const std::vector<Connector>& connectors) {
    struct Found {
        GraphPair pair;
        std::size_t last;  // of its connectors
    };
    std::vector<Found> found;
    std::unordered_map<Ends, std::size_t, HashOfEnds> places;
    for (std::size_t nr = 0; nr < connectors.size(); ++nr) {
        const Connector& connector = connectors[nr];
        const auto [place, isNew] = places.try_emplace({connector.from, connector.to}, found.size());
        if (isNew)
            found.push_back({{connector.from, connector.to, {}}, nr});
        Found& one = found[place->second];
        one.last = nr;
        one.pair.topType = connector.call->Type();
        one.pair.Highlight = connector.Highlight;
        one.pair.calls.push_back(connector.call);
    }
    for (Found& one : found)
        CountOnce(one.pair);
    std::sort(found.begin(), found.end(), [](const Found& one, const Found& other) { return one.last < other.last; });
    std::vector<GraphPair> pairs;
    pairs.reserve(found.size());
    for (Found& one : found)
        pairs.push_back(std::move(one.pair));
    return pairs;
}

std::vector<CallLine> CallLinesOf(const GraphPair& pair) {
    std::vector<CallLine> lines;
    LineNumbers lineNumbers;
    for (const clsCall* call : pair.calls)
        if (const clsModul& modul = call->CallerModule(); modul.text)
            lines.push_back({call, &call->Caller(), lineNumbers.Of(modul, call->CallPos)});
    return lines;
}
