// The high-resolution clock, and the time as files are dated.
#pragma once

#include <cstdint>

/// Value of the monotonic high-resolution counter.
[[nodiscard]] std::int64_t PerformanceCounter();
/// Counter steps per second.
[[nodiscard]] std::int64_t PerformanceFrequency();
/// Nanoseconds since 1970, as files are dated.
[[nodiscard]] std::int64_t SystemTime();
