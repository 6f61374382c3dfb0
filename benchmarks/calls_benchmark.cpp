// Time and memory of the analysis of calls on generated projects, and its growth from one size to the next.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <vector>

#include "benchmarks/generate_project.h"
#include "calls/driver.h"
#include "findings/dead_objects.h"
#include "model/clsProjekt.h"
#include "platform/files.h"
#include "project/project_file.h"
#include "project/start.h"
#include "shell/timing.h"

namespace {

// A generated project in memory, its structure read; one at a time.
clsProjekt& LoadedProject(std::size_t lines) {
    static DiskFiles files;
    CloseProject();
    const std::filesystem::path directory =
        std::filesystem::temp_directory_path() / ("ostrivane-calls-" + std::to_string(::getpid()));
    std::filesystem::create_directories(directory);
    const GeneratedProject project = GenerateProject(directory, lines);
    gProjekt = std::make_unique<clsProjekt>(files);
    gProjekt->FullPath = project.projectFile;
    Projekt_Laden(*gProjekt);
    std::filesystem::remove_all(directory);
    return *gProjekt;
}

// Seconds of one run; taking the edges away again is not counted.
double RunCalls(clsProjekt& projekt) {
    Remove_All_Calls(projekt);
    clsQueryTimer timer;
    timer.Start();
    Who_Calls_Who(projekt);
    Tote_Untote_Kennzeichnen(projekt);
    timer.Halt();
    return timer.LastRun / 1000;
}

void Calls(benchmark::State& state) {
    clsProjekt& projekt = LoadedProject(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
        state.SetIterationTime(RunCalls(projekt));
    const auto edges = static_cast<double>(projekt.calls.Count());
    state.counters["edges"] = edges;
    state.counters["edges/s"] = benchmark::Counter(edges * static_cast<double>(state.iterations()),
                                                   benchmark::Counter::kIsRate);
    state.counters["bytes/edge"] = static_cast<double>(sizeof(clsCall));
    CloseProject();
}

double MedianOfRuns(clsProjekt& projekt) {
    std::vector<double> times;
    for (int run = 0; run < 9; ++run)
        times.push_back(RunCalls(projekt));
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

void CallsGrowth(benchmark::State& state) {
    for (auto _ : state) {
        const double small = MedianOfRuns(LoadedProject(static_cast<std::size_t>(state.range(0))));
        const double large = MedianOfRuns(LoadedProject(static_cast<std::size_t>(state.range(1))));
        state.counters["growth"] = large / small;
        state.SetIterationTime(small + large);
    }
    CloseProject();
}

BENCHMARK(Calls)->Unit(benchmark::kMillisecond)->UseManualTime()->Arg(10'000)->Arg(100'000)->Arg(1'000'000);
BENCHMARK(CallsGrowth)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(3)
    ->Args({10'000, 100'000})
    ->Args({100'000, 1'000'000});

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    InitGlobals();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
