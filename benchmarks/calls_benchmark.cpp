// Time of the analysis of calls on generated projects, and its growth from one size to the next.
#include <benchmark/benchmark.h>

#include "benchmarks/projects.h"
#include "calls/driver.h"
#include "findings/dead_objects.h"
#include "model/clsProjekt.h"
#include "project/start.h"

namespace {

// Seconds of one run, without the removal of the edges.
double RunCalls(clsProjekt& projekt) {
    Remove_All_Calls(projekt);
    return Seconds([&] {
        Who_Calls_Who(projekt);
        Tote_Untote_Kennzeichnen(projekt);
    });
}

void Calls(benchmark::State& state) {
    clsProjekt& projekt = Load(ProjectOf(state.range(0)));
    for (auto _ : state)
        state.SetIterationTime(RunCalls(projekt));
    const auto edges = static_cast<double>(projekt.calls.Count());
    state.counters["edges"] = edges;
    state.counters["edges/s"] =
        benchmark::Counter(edges * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
    CloseProject();
}

// One stage directly after the stages before it, as for a user: a second run would find a small project in the caches.
double CallsOf(BenchmarkProject& project) {
    return RunCalls(Load(project));
}

// Files, structure, calls and marks.
double EverythingOf(BenchmarkProject& project) {
    CloseProject();
    return Seconds([&] {
        clsProjekt& projekt = Load(project);
        Who_Calls_Who(projekt);
        Tote_Untote_Kennzeichnen(projekt);
    });
}

BENCHMARK(Calls)->Unit(benchmark::kMillisecond)->UseManualTime()->Arg(10'000)->Arg(100'000)->Arg(1'000'000);
BENCHMARK_CAPTURE(Growth, Calls, CallsOf)->Apply(GrowthSizes);
BENCHMARK_CAPTURE(Growth, Everything, EverythingOf)->Apply(GrowthSizes);

}  // namespace
