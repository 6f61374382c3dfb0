#include "platform/clock.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <ctime>
#include <thread>

TEST(Clock, CounterRunsAtItsFrequency) {
    const std::int64_t before = PerformanceCounter();
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    const double seconds =
        static_cast<double>(PerformanceCounter() - before) / static_cast<double>(PerformanceFrequency());
    EXPECT_GE(seconds, 0.02);
    EXPECT_LT(seconds, 5.0);
}

TEST(Clock, TimerCountsSecondsSinceLocalMidnight) {
    const std::time_t now = std::time(nullptr);
    const std::tm local = *std::localtime(&now);
    const float expected = static_cast<float>(local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec);
    const float distance = std::fabs(TimerOfDay() - expected);
    EXPECT_TRUE(distance < 3 || distance > 86390) << distance;  // midnight may fall in between
}
