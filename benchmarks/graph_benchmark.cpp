// Time of the diagram's work without a widget: which connectors there are, what is at a point, a chain of all callees.
// On generated projects, or on the one whose file the environment variable OSTRIVANE_BENCHMARK_PROJECT names.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <utility>
#include <vector>

#include "benchmarks/projects.h"
#include "calls/driver.h"
#include "findings/dead_objects.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "project/project_file.h"
#include "project/start.h"
#include "xgraph/call_chains.h"
#include "xgraph/pairs.h"
#include "xgraph/routing.h"

namespace {

const FixedSymbolSizes kSizes;

clsProjekt& AnalysedProject(std::int64_t lines) {
    static DiskFiles disk;
    const char* const own = std::getenv("OSTRIVANE_BENCHMARK_PROJECT");
    clsProjekt& projekt = own ? NewProject(disk, own) : NewProject(ProjectOf(lines));
    Projekt_Laden(projekt);
    Who_Calls_Who(projekt);
    Tote_Untote_Kennzeichnen(projekt);
    return projekt;
}

// The procedures with most edges come first, so that many connectors join few symbols.
std::vector<clsProzedur*> BusiestProcedures(const clsProjekt& projekt) {
    std::vector<std::pair<int, clsProzedur*>> busy;
    for (const clsModul* modul : projekt.AllModules())
        for (clsProzedur* prozedur : modul->MyProcs)
            busy.emplace_back(prozedur->CallsAll().Count() + prozedur->CalledByAll().Count(), prozedur);
    std::stable_sort(busy.begin(), busy.end(),
                     [](const auto& one, const auto& other) { return one.first > other.first; });
    std::vector<clsProzedur*> procedures;
    for (const auto& [edges, prozedur] : busy)
        procedures.push_back(prozedur);
    return procedures;
}

// A graph of so many procedures in rows, of which one is active.
void Fill(XGraph& graph, clsProjekt& projekt, std::size_t symbols) {
    graph.SetProject(&projekt);
    for (clsProzedur* prozedur : BusiestProcedures(projekt)) {
        const std::size_t nr = graph.GraphObjects().size();
        if (nr == symbols)
            break;
        graph.GraphObjCreate(prozedur, static_cast<double>(nr % 25) * 2200, static_cast<double>(nr / 25) * 1300, false);
    }
    graph.SetActive(1);
}

void Discovery(benchmark::State& state) {
    XGraph graph(kSizes);
    Fill(graph, AnalysedProject(state.range(0)), 500);
    std::size_t connectors = 0;
    for (auto _ : state)
        connectors = GraphVerbindungen(graph).size();
    state.counters["symbols"] = static_cast<double>(graph.GraphObjects().size());
    state.counters["connectors"] = static_cast<double>(connectors);
    CloseProject();
}

void PairsAndHit(benchmark::State& state) {
    XGraph graph(kSizes);
    Fill(graph, AnalysedProject(state.range(0)), 500);
    const std::vector<Connector> connectors = GraphVerbindungen(graph);
    for (auto _ : state) {
        const std::vector<GraphPair> pairs = GraphPairs(connectors);
        benchmark::DoNotOptimize(PairAt(pairs, {-5000, -5000}, 60));
        state.counters["pairs"] = static_cast<double>(pairs.size());
    }
    CloseProject();
}

void ChainOfAllCallees(benchmark::State& state) {
    clsProjekt& projekt = AnalysedProject(state.range(0));
    clsProzedur* const start = BusiestProcedures(projekt).front();
    int created = 0;
    for (auto _ : state) {
        XGraph graph(kSizes);
        graph.SetProject(&projekt);
        const ctlGraphObj& symbol = *graph.GraphObjCreate(start, 30000, 0, false);
        created = RunGraphChain(graph, symbol, GraphChain::CallsAll, {ChainObjectType::All}).created;
    }
    state.counters["created"] = created;
    CloseProject();
}

BENCHMARK(Discovery)->Unit(benchmark::kMillisecond)->Arg(10'000)->Arg(1'000'000);
BENCHMARK(PairsAndHit)->Unit(benchmark::kMillisecond)->Arg(10'000)->Arg(1'000'000);
BENCHMARK(ChainOfAllCallees)->Unit(benchmark::kMillisecond)->Arg(10'000)->Arg(100'000);

}  // namespace
