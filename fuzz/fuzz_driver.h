// What the harnesses share. Each defines LLVMFuzzerTestOneInput and runs under libFuzzer, or with fuzz_driver.cpp
// as its main program.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Ends the run when the code under test has broken a promise; the driver then keeps the input.
inline void Require(bool isKept, const char* promise) {
    if (isKept)
        return;
    std::fprintf(stderr, "Broken promise: %s\n", promise);
    std::abort();
}
