#include "shell/operations.h"

#include <gtest/gtest.h>

#include "platform/clock.h"

namespace {

TEST(EventPump, RunsAtMostSomeThirtyTimesASecond) {
    int runs = 0;
    long calls = 0;
    const EventPump before = SetEventPump([&runs] { ++runs; });
    const double begin = static_cast<double>(PerformanceCounter());
    const auto seconds = [&] {
        return (static_cast<double>(PerformanceCounter()) - begin) / static_cast<double>(PerformanceFrequency());
    };
    for (; runs < 5 && seconds() < 20; ++calls)
        DoEvents();
    EXPECT_GE(seconds(), 4 / 31.0);  // the first run may come at once
    SetEventPump(before);
    EXPECT_EQ(runs, 5);
    EXPECT_GT(calls, 5);
}

}  // namespace
