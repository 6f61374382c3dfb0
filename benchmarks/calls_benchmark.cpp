// Time and memory of the analysis of calls on generated projects, and its growth from one size to the next.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <map>
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

// A generated project on disk for as long as it lives.
class ProjectOnDisk {
public:
    explicit ProjectOnDisk(std::size_t lines)
        : directory_(std::filesystem::temp_directory_path() /
                     ("ostrivane-calls-" + std::to_string(::getpid()) + "-" + std::to_string(lines))) {
        std::filesystem::create_directories(directory_);
        path_ = GenerateProject(directory_, lines).projectFile;
    }
    ProjectOnDisk& operator=(ProjectOnDisk&&) = delete;
    ~ProjectOnDisk() { std::filesystem::remove_all(directory_); }

    /// Reads the structure into gProjekt.
    clsProjekt& Load() const {
        static DiskFiles files;
        CloseProject();
        gProjekt = std::make_unique<clsProjekt>(files);
        gProjekt->FullPath = path_;
        Projekt_Laden(*gProjekt);
        return *gProjekt;
    }

private:
    std::filesystem::path directory_;
    std::string path_;
};

// One of each size for the whole run.
const ProjectOnDisk& ProjectOf(std::size_t lines) {
    static std::map<std::size_t, ProjectOnDisk> projects;
    return projects.try_emplace(lines, lines).first->second;
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
    clsProjekt& projekt = ProjectOf(static_cast<std::size_t>(state.range(0))).Load();
    for (auto _ : state)
        state.SetIterationTime(RunCalls(projekt));
    const auto edges = static_cast<double>(projekt.calls.Count());
    state.counters["edges"] = edges;
    state.counters["edges/s"] =
        benchmark::Counter(edges * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
    state.counters["bytes/edge"] = static_cast<double>(sizeof(clsCall));
    CloseProject();
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

// One stage, right behind those before it, as a user has it: a second run would find a small project in the caches.
double CallsOf(const ProjectOnDisk& project) {
    return RunCalls(project.Load());
}

// Files, structure, calls and marks.
double EverythingOf(const ProjectOnDisk& project) {
    CloseProject();
    clsQueryTimer timer;
    timer.Start();
    clsProjekt& projekt = project.Load();
    Who_Calls_Who(projekt);
    Tote_Untote_Kennzeichnen(projekt);
    timer.Halt();
    return timer.LastRun / 1000;
}

// Both sizes in turn, so that a machine that slows down meanwhile slows both.
template <double (*secondsOf)(const ProjectOnDisk& project)>
void Growth(benchmark::State& state) {
    const ProjectOnDisk& small = ProjectOf(static_cast<std::size_t>(state.range(0)));
    const ProjectOnDisk& large = ProjectOf(static_cast<std::size_t>(state.range(1)));
    std::vector<double> growths;
    for (auto _ : state) {
        const double smallTime = Median({secondsOf(small), secondsOf(small), secondsOf(small)});
        const double largeTime = secondsOf(large);
        growths.push_back(largeTime / smallTime);
        state.SetIterationTime(smallTime + largeTime);
    }
    state.counters["growth"] = Median(growths);
    CloseProject();
}

BENCHMARK(Calls)->Unit(benchmark::kMillisecond)->UseManualTime()->Arg(10'000)->Arg(100'000)->Arg(1'000'000);
void Sizes(benchmark::internal::Benchmark* growth) {
    growth->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(15);
    growth->Args({10'000, 100'000})->Args({100'000, 1'000'000});
}
BENCHMARK(Growth<CallsOf>)->Name("CallsGrowth")->Apply(Sizes);
BENCHMARK(Growth<EverythingOf>)->Name("EverythingGrowth")->Apply(Sizes);

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
