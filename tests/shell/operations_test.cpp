#include "shell/operations.h"

#include <gtest/gtest.h>

#include "platform/clock.h"

namespace {

TEST(Questions, AreAnsweredWithNoWhenNobodyListens) {
    EXPECT_FALSE(AskYesNo("Really?"));
}

TEST(EventPump, RunsAtMostSomeThirtyTimesASecond) {
    int runs = 0;
    long calls = 0;
    const EventPump before = SetEventPump([&runs] { ++runs; });
    const std::int64_t begin = PerformanceCounter();
    const std::int64_t limit = begin + 20 * PerformanceFrequency();
    while (runs < 5 && PerformanceCounter() < limit) {
        DoEvents();
        ++calls;
    }
    const double seconds =
        static_cast<double>(PerformanceCounter() - begin) / static_cast<double>(PerformanceFrequency());
    SetEventPump(before);
    EXPECT_EQ(runs, 5);
    EXPECT_GE(seconds, 4 / 31.0);  // the first run may come at once
    EXPECT_LT(seconds, 5);
    EXPECT_GT(calls, 5);
}

}  // namespace
