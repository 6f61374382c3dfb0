// The class registry: from the first question to its answer, which includes reading and indexing, and the questions of
// a project with twenty libraries after that.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "benchmarks/generate_registry.h"
#include "libraries/registered_library.h"
#include "model/clsTypeLib.h"
#include "platform/class_registry.h"

namespace {

constexpr int kLibraries = 20;

// A directory with a prefix and an exported file of so many classes.
class Registries {
public:
    explicit Registries(int classes)
        : path_(
              (std::filesystem::temp_directory_path() / ("ostrivane-registry-" + std::to_string(getpid()))).string()) {
        std::filesystem::create_directories(path_);
        std::ofstream(path_ + "/system.reg", std::ios::binary) << GenerateWineRegistry(classes);
        std::ofstream(path_ + "/exported.reg", std::ios::binary) << GenerateExportedRegistry(classes);
    }
    Registries& operator=(Registries&&) = delete;
    ~Registries() { std::filesystem::remove_all(path_); }
    [[nodiscard]] RegistryTexts Prefix() const { return {{}, path_}; }
    [[nodiscard]] RegistryTexts Exported() const { return {{path_ + "/exported.reg"}, {}}; }

private:
    std::string path_;
};

void AskAll(const ClassRegistry& registry, int classes) {
    Names names{CodePage()};
    for (int nr = 0; nr < kLibraries; ++nr) {
        clsTypeLib library(names);
        library.TypeLibID = GeneratedTypeLib(nr * (classes / 20 / kLibraries));
        library.Version = "1.0";
        benchmark::DoNotOptimize(FindRegistered(registry, library));
        Get_CLSID(registry, library);
        if (library.CLSID.empty())
            std::abort();
    }
}

void ReadAndIndex(benchmark::State& state, bool exported) {
    const int classes = static_cast<int>(state.range(0));
    const Registries registries(classes);
    const DiskFiles files;
    for (auto _ : state) {
        const ClassRegistry registry(files, exported ? registries.Exported() : registries.Prefix());
        benchmark::DoNotOptimize(registry.ClassesOf(GeneratedTypeLib(0)));
    }
}

void WinePrefix(benchmark::State& state) {
    ReadAndIndex(state, false);
}
void ExportedFile(benchmark::State& state) {
    ReadAndIndex(state, true);
}

void NamesOfAllClasses(benchmark::State& state) {
    const Registries registries(static_cast<int>(state.range(0)));
    const DiskFiles files;
    const ClassRegistry registry(files, registries.Prefix());
    benchmark::DoNotOptimize(registry.ClassesOf(""));
    for (auto _ : state)
        benchmark::DoNotOptimize(registry.SubKeys(RegistryRoot::ClassesRoot, "CLSID"));
}

void TwentyLibraries(benchmark::State& state) {
    const int classes = static_cast<int>(state.range(0));
    const Registries registries(classes);
    const DiskFiles files;
    const ClassRegistry registry(files, registries.Prefix());
    AskAll(registry, classes);
    for (auto _ : state)
        AskAll(registry, classes);
}

}  // namespace

BENCHMARK(WinePrefix)->Arg(10000)->Arg(40000)->Unit(benchmark::kMillisecond);
BENCHMARK(ExportedFile)->Arg(10000)->Arg(40000)->Unit(benchmark::kMillisecond);
BENCHMARK(NamesOfAllClasses)->Arg(10000)->Arg(40000)->Unit(benchmark::kMillisecond);
BENCHMARK(TwentyLibraries)->Arg(10000)->Arg(40000)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
