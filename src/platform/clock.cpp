#include "platform/clock.h"

#include <chrono>

namespace {
using Counter = std::chrono::steady_clock;
}

std::int64_t PerformanceCounter() {
    return Counter::now().time_since_epoch().count();
}

std::int64_t PerformanceFrequency() {
    return Counter::period::den / Counter::period::num;
}

std::int64_t SystemTime() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
}
