#include "xgraph/call_path.h"

#include <algorithm>
#include <deque>
#include <unordered_map>

#include "model/clsProzedur.h"
#include "xgraph/placement.h"

namespace {

// Breadth first, so that the first way found is a shortest one.
std::vector<clsProzedur*> ShortestWay(clsProzedur& from, clsProzedur& to, bool onlyCertain) {
    std::unordered_map<clsProzedur*, clsProzedur*> callers{{&from, nullptr}};
    std::deque<clsProzedur*> next{&from};
    while (!next.empty() && !callers.contains(&to)) {
        clsProzedur& caller = *next.front();
        next.pop_front();
        for (const clsCall* call : caller.CallsAll()) {
            if (call->Parent->Class() != ObjectClass::Prozedur || (onlyCertain && call->Type() != CallType::Really))
                continue;
            auto* const called = static_cast<clsProzedur*>(call->Parent);
            if (callers.emplace(called, &caller).second)
                next.push_back(called);
        }
    }
    std::vector<clsProzedur*> way;
    if (callers.contains(&to))
        for (clsProzedur* at = &to; at; at = callers.at(at))
            way.push_back(at);
    std::reverse(way.begin(), way.end());
    return way;
}

GraphPoint PlaceBelow(const XGraph& graph, const ctlGraphObj& symbol, GraphSize size) {
    Placement placement(graph);
    const GraphPoint below{symbol.Left, symbol.Top + 2 * symbol.Height()};
    return placement.Graph_GetNextPlace_To_X(below, {below.x, below.y, size.width, size.height});
}

}  // namespace

CallPath ShortestCallPath(clsProzedur& from, clsProzedur& to) {
    CallPath path{.procedures = ShortestWay(from, to, true), .isCertain = true};
    if (!path.Exists())
        path = {.procedures = ShortestWay(from, to, false), .isCertain = false};
    return path;
}

int ShowCallPath(XGraph& graph, const CallPath& path) {
    int created = 0;
    const ctlGraphObj* last = nullptr;
    graph.DeselectAll();
    for (clsProzedur* prozedur : path.procedures) {
        const ctlGraphObj* symbol = graph.WithPath(prozedur->CodePath());
        if (!symbol) {
            const GraphPoint place = PlaceBelow(graph, *last, graph.SizeOf(*prozedur));
            symbol = graph.GraphObjCreate(prozedur, place.x, place.y, false);
            ++created;
        }
        graph.Select(symbol->Index, true);
        last = symbol;
    }
    return created;
}
