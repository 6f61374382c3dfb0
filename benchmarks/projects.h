// What the benchmark programs share: generated projects, made once and held in memory, the growth of a time from one
// size to the next, and their `main`.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <functional>

#include "benchmarks/generate_project.h"
#include "platform/files.h"

class clsProjekt;

struct BenchmarkProject {
    MemoryFiles files;
    GeneratedProject made;
};

/// The generated project of that many lines.
BenchmarkProject& ProjectOf(std::int64_t lines);

/// Closes the open project and makes one with the path of its project file, of which nothing is read.
clsProjekt& NewProject(BenchmarkProject& project);
/// The same, and reads the structure.
clsProjekt& Load(BenchmarkProject& project);

double Seconds(const std::function<void()>& work);

/// Counts as "growth" how often `seconds` of the smaller project (the first argument) go into those of the larger one.
void Growth(benchmark::State& state, double (*seconds)(BenchmarkProject& project));
void GrowthSizes(benchmark::internal::Benchmark* growth);
