#include "shell/timing.h"

#include <gtest/gtest.h>

#include "platform/clock.h"
#include "shell/operations.h"

namespace {

TEST(QueryTimer, LowHalfThatReadsAsNegativeComesOutOneTooHigh) {
    EXPECT_EQ(CounterAsNumber(0x7FFFFFFF), 2147483647.0);
    EXPECT_EQ(CounterAsNumber(0x80000000), 2147483649.0);
    EXPECT_EQ(CounterAsNumber(0xFFFFFFFF), 4294967296.0);
    EXPECT_EQ(CounterAsNumber(0x300000005), 3 * 4294967296.0 + 5);
}

TEST(QueryTimer, ShowsShortTimesInPartsOfASecond) {
    using Case = std::pair<double, const char*>;
    for (const auto& [milliseconds, text] :
         {Case{-1, "< 0.001 s"}, Case{4.9, "0.004 s"}, Case{99.9, "0.099 s"}, Case{271, "0.27 s"},
          Case{999.9, "0.99 s"}, Case{1000, "00:00:01"}, Case{3661999, "01:01:01"}}) {
        clsQueryTimer timer;
        timer.Total = milliseconds;
        EXPECT_EQ(timer.Get_TotalStr(), text) << milliseconds;
    }
}

TEST(QueryTimer, StandsStillWhileSomebodyIsAsked) {
    const auto rest = [](double milliseconds) {
        const double begin = static_cast<double>(PerformanceCounter());
        while ((static_cast<double>(PerformanceCounter()) - begin) * 1000 <
               milliseconds * static_cast<double>(PerformanceFrequency())) {}
    };
    clsQueryTimer whole, timer;
    const auto answer = [&](std::string_view) {
        const WaitForAnswer nested;
        rest(40);
        return true;
    };
    const QuestionPort before = SetQuestionPort(answer);
    EXPECT_TRUE(AskYesNo("before the start"));
    timer.Start();
    rest(5);
    EXPECT_TRUE(AskYesNo("?"));
    EXPECT_TRUE(AskMissingFile("?", 3));
    timer.Halt();
    SetQuestionPort(before);
    EXPECT_GE(timer.Total, 5);
    EXPECT_LT(timer.Total, 40);
}

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
    EXPECT_GE(seconds(), 4 / 31.0);  // the first run may be immediate
    SetEventPump(before);
    EXPECT_EQ(runs, 5);
    EXPECT_GT(calls, 5);
}

}  // namespace
