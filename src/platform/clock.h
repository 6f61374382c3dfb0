// The high-resolution clock and the timer of the day.
#pragma once

#include <cstdint>

/// Counter value of the steady high-resolution clock.
[[nodiscard]] std::int64_t PerformanceCounter();
/// Counter steps a second.
[[nodiscard]] std::int64_t PerformanceFrequency();
/// Seconds since midnight, local time, in single precision.
[[nodiscard]] float TimerOfDay();
