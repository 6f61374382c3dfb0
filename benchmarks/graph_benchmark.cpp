// Time of the diagram's work without a widget: which connectors there are, what is at a point, files, a chain of all
// callees. On generated projects, or on the one whose file the environment variable OSTRIVANE_BENCHMARK_PROJECT names.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "benchmarks/projects.h"
#include "calls/driver.h"
#include "findings/dead_objects.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "project/project_file.h"
#include "project/start.h"
#include "xgraph/call_chains.h"
#include "xgraph/graph_file.h"
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

std::vector<clsProzedur*> Procedures(const clsProjekt& projekt) {
    std::vector<clsProzedur*> procedures;
    for (const clsModul* modul : projekt.AllModules())
        for (clsProzedur* prozedur : modul->MyProcs)
            procedures.push_back(prozedur);
    return procedures;
}

int Edges(const clsProzedur& prozedur) {
    return prozedur.CallsAll().Count() + prozedur.CalledByAll().Count();
}

// A graph of every third of the procedures with most edges, so that ten connectors or more join each symbol.
void Fill(XGraph& graph, clsProjekt& projekt, std::size_t symbols) {
    constexpr std::size_t kThird = 3;
    std::vector<clsProzedur*> procedures = Procedures(projekt);
    std::stable_sort(procedures.begin(), procedures.end(),
                     [](const clsProzedur* one, const clsProzedur* other) { return Edges(*one) > Edges(*other); });
    graph.SetProject(&projekt);
    for (std::size_t nr = 0; nr < procedures.size() && graph.GraphObjects().size() < symbols; nr += kThird)
        graph.GraphObjCreate(procedures[nr], static_cast<double>(nr % 25) * 2200, static_cast<double>(nr / 25) * 1300,
                             false);
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

void SaveAndOpen(benchmark::State& state) {
    XGraph graph(kSizes);
    Fill(graph, AnalysedProject(state.range(0)), 5000);
    MemoryFiles files;
    GraphOpened opened;
    for (auto _ : state) {
        benchmark::DoNotOptimize(GraphSave(graph, files, "a.ovg"));
        opened = GraphOpen(graph, files, "a.ovg");
    }
    state.counters["symbols"] = opened.symbols;
    state.counters["missing"] = opened.missing;
    CloseProject();
}

// Of the procedure that reaches most others, among those with most calls.
void ChainOfAllCallees(benchmark::State& state) {
    clsProjekt& projekt = AnalysedProject(state.range(0));
    std::vector<clsProzedur*> procedures = Procedures(projekt);
    std::stable_sort(procedures.begin(), procedures.end(), [](const clsProzedur* one, const clsProzedur* other) {
        return one->CallsAll().Count() > other->CallsAll().Count();
    });
    XGraph graph(kSizes);
    int most = 0;
    clsProzedur* start = procedures.front();
    for (std::size_t nr = 0; nr < procedures.size() && nr < 20; ++nr) {
        graph.SetProject(&projekt);
        const ctlGraphObj& symbol = *graph.GraphObjCreate(procedures[nr], 0, 0, false);
        const int count = CountGraphChain(graph, symbol, GraphChain::CallsAll, {ChainObjectType::All});
        if (count > most)
            start = procedures[nr];
        most = std::max(most, count);
    }
    for (auto _ : state) {
        graph.SetProject(&projekt);
        const ctlGraphObj& symbol = *graph.GraphObjCreate(start, 30000, 0, false);
        benchmark::DoNotOptimize(RunGraphChain(graph, symbol, GraphChain::CallsAll, {ChainObjectType::All}));
    }
    state.counters["created"] = most;
    state.counters["canvasHeight"] = graph.Canvas().height;
    CloseProject();
}

BENCHMARK(Discovery)->Unit(benchmark::kMillisecond)->Arg(10'000)->Arg(1'000'000);
BENCHMARK(PairsAndHit)->Unit(benchmark::kMillisecond)->Arg(10'000)->Arg(1'000'000);
BENCHMARK(SaveAndOpen)->Unit(benchmark::kMillisecond)->Arg(10'000)->Arg(1'000'000);
BENCHMARK(ChainOfAllCallees)->Unit(benchmark::kMillisecond)->Arg(10'000)->Arg(100'000);

}  // namespace
