// Time of each stage of reading a project, on generated projects of 10,000 to 1,000,000 lines: files read, maps made,
// tokens cut, whole modules read on one processor; and the growth of the whole from one size to the next.
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "benchmarks/projects.h"
#include "model/clsProjekt.h"
#include "platform/files.h"
#include "project/module_file.h"
#include "project/start.h"
#include "source/comments.h"
#include "source/cond_compile.h"
#include "source/line_scan.h"
#include "source/module_text.h"
#include "source/tokens.h"

namespace {

std::vector<std::string> ModuleTexts(const BenchmarkProject& project) {
    std::vector<std::string> texts;
    for (const std::string& path : project.made.moduleFiles)
        texts.push_back(project.files.Bytes(path));
    return texts;
}

void SetRates(benchmark::State& state, const GeneratedProject& project) {
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * project.bytes));
    state.counters["lines/s"] =
        benchmark::Counter(static_cast<double>(state.iterations() * project.lines), benchmark::Counter::kIsRate);
}

// From the disk, or from the system's file cache if it still holds the files.
void ReadFiles(benchmark::State& state) {
    const BenchmarkProject& project = ProjectOf(state.range(0));
    const std::filesystem::path directory =
        std::filesystem::temp_directory_path() / ("ostrivane-benchmark-" + std::to_string(::getpid()));
    std::filesystem::create_directories(directory);
    std::vector<std::string> paths;
    for (const std::string& path : project.made.moduleFiles) {
        paths.push_back(directory / std::filesystem::path(path).filename());
        std::ofstream(paths.back(), std::ios::binary) << project.files.Bytes(path);
    }
    const DiskFiles files;
    for (auto _ : state)
        for (const std::string& path : paths)
            benchmark::DoNotOptimize(files.ReadText(path));
    SetRates(state, project.made);
    std::filesystem::remove_all(directory);
}

void MakeMaps(ModuleText& text) {
    const LineScan lines = ScanLines(text.ModulText());
    Comments_Initialisieren(text);
    Strings_Initialisieren(text);
    CondCompile_Initialisieren(text, lines, {{}, {"win32", "-1"}, {"win16", "0"}}, "module Benchmark");
}

// Lower case, comments, strings and conditional compilation.
void Maps(benchmark::State& state) {
    BenchmarkProject& project = ProjectOf(state.range(0));
    const std::vector<std::string> sources = ModuleTexts(project);
    for (auto _ : state)
        for (const std::string& source : sources) {
            ModuleText text(source);
            MakeMaps(text);
            benchmark::DoNotOptimize(text.MapForPass());
        }
    SetRates(state, project.made);
}

void Tokens(benchmark::State& state) {
    BenchmarkProject& project = ProjectOf(state.range(0));
    const std::vector<std::string> sources = ModuleTexts(project);
    std::size_t tokens = 0;
    for (auto _ : state) {
        tokens = 0;
        for (const std::string& source : sources) {
            state.PauseTiming();
            ModuleText text(source);
            MakeMaps(text);
            state.ResumeTiming();
            tokens += static_cast<std::size_t>(Analyse_Parsen(text).Count());
        }
    }
    state.counters["tokens"] = static_cast<double>(tokens);
    SetRates(state, project.made);
}

// All modules from files in memory, one after the other.
void Modules(benchmark::State& state) {
    BenchmarkProject& project = ProjectOf(state.range(0));
    std::vector<ModuleSource> sources;
    for (const std::string& path : project.made.moduleFiles)
        sources.push_back({path.ends_with(".frm")   ? ModuleKind::Form
                           : path.ends_with(".cls") ? ModuleKind::Class
                           : path.ends_with(".ctl") ? ModuleKind::UserControl
                                                    : ModuleKind::Module,
                           path});
    for (auto _ : state) {
        clsProjekt& projekt = NewProject(project);
        const ReadingContext context{projekt.TheFiles(), projekt.TheNames(), projekt.Memory(), projekt.condComps};
        for (const ModuleSource& source : sources)
            benchmark::DoNotOptimize(Read_Module(context, source));
    }
    CloseProject();
    SetRates(state, project.made);
}

// Highest resident size since the last ResetPeak, in megabytes.
double PeakMegabytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with("VmHWM:"))
            return std::strtod(line.c_str() + 6, nullptr) / 1024;
    return 0;
}

void ResetPeak() {
    malloc_trim(0);
    std::ofstream("/proc/self/clear_refs") << "5";
}

double LoadSeconds(BenchmarkProject& project) {
    CloseProject();
    return Seconds([&] { Load(project); });
}

void WholeLoad(benchmark::State& state) {
    BenchmarkProject& project = ProjectOf(state.range(0));
    CloseProject();
    ResetPeak();
    const double before = PeakMegabytes();
    for (auto _ : state)
        state.SetIterationTime(LoadSeconds(project));
    state.counters["peakMB"] = PeakMegabytes() - before;
    state.counters["sourceMB"] = static_cast<double>(project.made.bytes) / 1e6;
    SetRates(state, project.made);
    CloseProject();
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Unit(benchmark::kMillisecond)->Arg(10'000)->Arg(100'000)->Arg(1'000'000);
}

BENCHMARK(ReadFiles)->Apply(Sizes);
BENCHMARK(Maps)->Apply(Sizes);
BENCHMARK(Tokens)->Apply(Sizes);
BENCHMARK(Modules)->Apply(Sizes);
BENCHMARK(WholeLoad)->Apply(Sizes)->UseManualTime();
BENCHMARK_CAPTURE(Growth, Load, LoadSeconds)->Apply(GrowthSizes);

}  // namespace
