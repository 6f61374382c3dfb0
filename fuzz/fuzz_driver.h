// Shared by the harnesses. Each defines LLVMFuzzerTestOneInput and runs under libFuzzer, or with fuzz_driver.cpp as its
// main program.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Aborts if the code under test violates a guarantee; the driver then saves the input.
inline void Require(bool isKept, const char* promise) {
    if (isKept)
        return;
    std::fprintf(stderr, "Broken promise: %s\n", promise);
    std::abort();
}
