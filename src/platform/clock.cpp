#include "platform/clock.h"

#include <time.h>

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

float TimerOfDay() {
    timespec now{};
    tm local{};
    if (clock_gettime(CLOCK_REALTIME, &now) != 0 || !localtime_r(&now.tv_sec, &local))
        return 0.0F;
    const int wholeSeconds = (local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec;
    return static_cast<float>(wholeSeconds + static_cast<double>(now.tv_nsec) / 1e9);
}
