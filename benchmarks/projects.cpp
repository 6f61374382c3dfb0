#include "benchmarks/projects.h"

#include <algorithm>
#include <map>
#include <memory>
#include <vector>

#include "model/clsProjekt.h"
#include "project/project_file.h"
#include "project/start.h"
#include "shell/timing.h"

namespace {

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

}  // namespace

BenchmarkProject& ProjectOf(std::int64_t lines) {
    static std::map<std::int64_t, BenchmarkProject> projects;
    const auto [place, isNew] = projects.try_emplace(lines);
    BenchmarkProject& project = place->second;
    if (isNew)
        project.made = GenerateProject(
            "Generated", static_cast<std::size_t>(lines), 1,
            [&](const std::string& path, std::string_view text) { project.files.WriteWhole(path, text); });
    return project;
}

clsProjekt& NewProject(BenchmarkProject& project) {
    return NewProject(project.files, project.made.projectFile);
}

clsProjekt& Load(BenchmarkProject& project) {
    clsProjekt& projekt = NewProject(project);
    Projekt_Laden(projekt);
    return projekt;
}

double Seconds(const std::function<void()>& work) {
    clsQueryTimer timer;
    timer.Start();
    work();
    timer.Halt();
    return timer.LastRun / 1000;
}

// Both sizes in turn, so that a machine that slows down meanwhile slows both.
void Growth(benchmark::State& state, double (*seconds)(BenchmarkProject& project)) {
    BenchmarkProject& small = ProjectOf(state.range(0));
    BenchmarkProject& large = ProjectOf(state.range(1));
    std::vector<double> growths;
    for (auto _ : state) {
        const double smallTime = Median({seconds(small), seconds(small), seconds(small)});
        const double largeTime = seconds(large);
        growths.push_back(largeTime / smallTime);
        state.SetIterationTime(smallTime + largeTime);
    }
    state.counters["growth"] = Median(growths);
    state.counters["linesRatio"] = static_cast<double>(large.made.lines) / static_cast<double>(small.made.lines);
    CloseProject();
}

void GrowthSizes(benchmark::internal::Benchmark* growth) {
    growth->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(15);
    growth->Args({10'000, 100'000})->Args({100'000, 1'000'000});
}

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    InitGlobals();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
