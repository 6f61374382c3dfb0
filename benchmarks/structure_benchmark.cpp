// Time of each stage of reading a project, on generated projects of 10,000 to 1,000,000 lines: all files read, maps
// made, tokens cut, declarations and procedures read; and the growth of the whole from one size to the next.
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "benchmarks/generate_project.h"
#include "model/clsProjekt.h"
#include "platform/files.h"
#include "project/module_file.h"
#include "project/project_file.h"
#include "project/start.h"
#include "shell/settings.h"
#include "shell/timing.h"
#include "source/comments.h"
#include "source/cond_compile.h"
#include "source/line_scan.h"
#include "source/module_text.h"
#include "source/tokens.h"
#include "structure/module_reader.h"
#include "structure/sections.h"

namespace {

// A generated project, made once for each size and taken away at the end of the program.
class Projects {
public:
    const GeneratedProject& Of(std::size_t lines) {
        auto found = projects_.find(lines);
        if (found == projects_.end()) {
            const std::filesystem::path directory = root_ / std::to_string(lines);
            std::filesystem::create_directories(directory);
            found = projects_.emplace(lines, GenerateProject(directory, lines)).first;
        }
        return found->second;
    }
    ~Projects() {
        std::error_code ignored;
        std::filesystem::remove_all(root_, ignored);
    }

private:
    std::filesystem::path root_ =
        std::filesystem::temp_directory_path() / ("ostrivane-benchmark-" + std::to_string(::getpid()));
    std::map<std::size_t, GeneratedProject> projects_;
};

Projects& TheProjects() {
    static Projects projects;
    return projects;
}

std::vector<std::string> ModulePaths(const GeneratedProject& project) {
    std::vector<std::string> paths;
    for (const auto& entry :
         std::filesystem::directory_iterator(std::filesystem::path(project.projectFile).parent_path()))
        if (entry.path().extension() != ".vbp")
            paths.push_back(entry.path().string());
    return paths;
}

std::vector<std::string> ModuleTexts(const GeneratedProject& project) {
    const DiskFiles files;
    std::vector<std::string> texts;
    for (const std::string& path : ModulePaths(project))
        texts.push_back(files.ReadText(path).text);
    return texts;
}

void SetRates(benchmark::State& state, const GeneratedProject& project) {
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * project.bytes));
    state.counters["lines/s"] =
        benchmark::Counter(static_cast<double>(state.iterations() * project.lines), benchmark::Counter::kIsRate);
}

const GeneratedProject& ProjectOf(benchmark::State& state) {
    return TheProjects().Of(static_cast<std::size_t>(state.range(0)));
}

void ReadFiles(benchmark::State& state) {
    const GeneratedProject& project = ProjectOf(state);
    const std::vector<std::string> paths = ModulePaths(project);
    const DiskFiles files;
    for (auto _ : state)
        for (const std::string& path : paths)
            benchmark::DoNotOptimize(files.ReadText(path));
    SetRates(state, project);
}

void MakeMaps(ModuleText& text) {
    const LineScan lines = ScanLines(text.ModulText());
    Comments_Initialisieren(text);
    Strings_Initialisieren(text);
    CondCompile_Initialisieren(text, lines, gCondComps, "module Benchmark");
}

// Lower case, comments, strings and conditional compilation.
void Maps(benchmark::State& state) {
    const GeneratedProject& project = ProjectOf(state);
    const std::vector<std::string> sources = ModuleTexts(project);
    for (auto _ : state)
        for (const std::string& source : sources) {
            ModuleText text(source);
            MakeMaps(text);
            benchmark::DoNotOptimize(text.MapForPass());
        }
    SetRates(state, project);
}

void Tokens(benchmark::State& state) {
    const GeneratedProject& project = ProjectOf(state);
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
    SetRates(state, project);
}

// A project whose modules have their tokens; the two passes over the declarations and procedures are timed apart.
void Reader(benchmark::State& state, bool procedures) {
    const GeneratedProject& project = ProjectOf(state);
    DiskFiles files;
    for (auto _ : state) {
        state.PauseTiming();
        CloseProject();
        gProjekt = std::make_unique<clsProjekt>(files);
        for (const std::string& path : ModulePaths(project)) {
            clsModul& modul = gProjekt->Own(std::make_unique<clsModul>());
            modul.ModulTyp = path.ends_with(".frm")   ? "form"
                             : path.ends_with(".cls") ? "class"
                             : path.ends_with(".ctl") ? "usercontrol"
                                                      : "module";
            modul.FullPath = path;
            ModuleFile file = Read_ModuleFile(files, path, modul.ModulTyp);
            Read_MyCodeName(*gProjekt, modul, file);
            if (procedures)
                Modul_Einlesen(*gProjekt, modul, file);
            else
                Modul_Aufbau_Lesen(*gProjekt, modul, file);
        }
        state.ResumeTiming();
        for (const auto& modul : gProjekt->OwnedModules()) {
            ModuleReader reader(*gProjekt, *modul);
            if (procedures)
                Analyse_BereichProc(reader);
            else
                Analyse_BereichVar(reader);
        }
    }
    CloseProject();
    SetRates(state, project);
}

void Declarations(benchmark::State& state) {
    Reader(state, false);
}

void Procedures(benchmark::State& state) {
    Reader(state, true);
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

// Seconds to load a project; closing the one before is not counted.
double Load(const GeneratedProject& project) {
    static DiskFiles files;
    CloseProject();
    clsQueryTimer timer;
    timer.Start();
    gProjekt = std::make_unique<clsProjekt>(files);
    gProjekt->FullPath = project.projectFile;
    Projekt_Laden(*gProjekt);
    timer.Halt();
    return timer.LastRun / 1000;
}

void WholeLoad(benchmark::State& state) {
    const GeneratedProject& project = ProjectOf(state);
    CloseProject();
    ResetPeak();
    for (auto _ : state)
        state.SetIterationTime(Load(project));
    state.counters["peakMB"] = PeakMegabytes();
    state.counters["sourceMB"] = static_cast<double>(project.bytes) / 1e6;
    SetRates(state, project);
    CloseProject();
}

// Both sizes in turn, so that a machine that slows down meanwhile slows both.
void Growth(benchmark::State& state) {
    const GeneratedProject& small = TheProjects().Of(static_cast<std::size_t>(state.range(0)));
    const GeneratedProject& large = TheProjects().Of(static_cast<std::size_t>(state.range(1)));
    std::vector<double> growths;
    for (auto _ : state) {
        const double smallTime = Load(small);
        const double largeTime = Load(large);
        growths.push_back(largeTime / smallTime);
        state.SetIterationTime(smallTime + largeTime);
    }
    std::sort(growths.begin(), growths.end());
    state.counters["growth"] = growths[growths.size() / 2];
    state.counters["linesRatio"] = static_cast<double>(large.lines) / static_cast<double>(small.lines);
    CloseProject();
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Unit(benchmark::kMillisecond)->Arg(10'000)->Arg(100'000)->Arg(1'000'000);
}

BENCHMARK(ReadFiles)->Apply(Sizes);
BENCHMARK(Maps)->Apply(Sizes);
BENCHMARK(Tokens)->Apply(Sizes);
BENCHMARK(Declarations)->Apply(Sizes);
BENCHMARK(Procedures)->Apply(Sizes);
BENCHMARK(WholeLoad)->Apply(Sizes)->UseManualTime();
BENCHMARK(Growth)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(9)
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
