#include "shell/work_ahead.h"

#include <gmock/gmock.h>

#include <atomic>
#include <chrono>
#include <stdexcept>
#include <thread>

#include "support/ports.h"
#include "support/program_state.h"

namespace {

using testing::ElementsAre;

// The parameter is the number of helpers; 0 as on a machine with one processor.
class Ahead : public ProgramState, public testing::WithParamInterface<std::size_t> {};

TEST_P(Ahead, ResultsComeInOrderAndEachItemIsDoneOnce) {
    constexpr std::size_t kItems = 500;
    std::vector<std::atomic<int>> done(kItems);
    std::vector<std::atomic<int>> busy(GetParam() + 1);
    WorkAhead<std::size_t> work(
        kItems,
        [&](std::size_t nr, std::size_t worker) {
            EXPECT_EQ(busy.at(worker)++, 0) << "a worker has one item at a time";
            // Some items take long, so that others finish first.
            for (int turn = 0; turn < (nr % 7 == 0 ? 1000 : 1); ++turn)
                std::this_thread::yield();
            ++done[nr];
            --busy[worker];
            return nr * nr;
        },
        GetParam());
    for (std::size_t nr = 0; nr < kItems; ++nr)
        ASSERT_EQ(work.Next(), nr * nr);
    for (const auto& times : done)
        EXPECT_EQ(times, 1);
}

TEST_P(Ahead, ReportsOfAnItemAppearWhenItIsTaken) {
    const RecordingErrors errors;
    const RecordingProblems problems;
    WorkAhead<int> work(
        3,
        [](std::size_t nr, std::size_t) {
            NoteProblem("a: b", "noted " + std::to_string(nr));
            ShowError("a: b", static_cast<int>(nr), "reported " + std::to_string(nr));
            const MutedErrors muted;
            ShowError("a: b", 99, "muted");
            return 0;
        },
        GetParam());
    EXPECT_THAT(errors.numbers, ElementsAre());
    (void)work.Next();
    EXPECT_THAT(errors.numbers, ElementsAre(0));
    const ErrorSubject subject("Form1.frm");
    (void)work.Next();
    EXPECT_THAT(errors.texts, ElementsAre("reported 0", "reported 1"));
    EXPECT_THAT(problems.list.All(),
                ElementsAre(Problem{"a: b", "noted 0", ""}, Problem{"a: b", "reported 0", ""},
                            Problem{"a: b", "noted 1", "Form1.frm"}, Problem{"a: b", "reported 1", "Form1.frm"}));
}

TEST_P(Ahead, WhatAnItemThrowsComesFromTheCallThatTakesIt) {
    WorkAhead<int> work(
        40,
        [](std::size_t nr, std::size_t) { return nr == 2 ? throw std::runtime_error("two") : static_cast<int>(nr); },
        GetParam());
    EXPECT_EQ(work.Next(), 0);
    EXPECT_EQ(work.Next(), 1);
    EXPECT_THROW((void)work.Next(), std::runtime_error);
}

TEST_P(Ahead, HelpersLeaveTheEventPumpToTheThreadThatSetIt) {
    std::atomic<int> foreign = 0;
    const auto own = std::this_thread::get_id();
    SetEventPump([&] { foreign += std::this_thread::get_id() != own; });
    WorkAhead<int> work(
        20,
        [](std::size_t, std::size_t) {
            std::this_thread::sleep_for(std::chrono::milliseconds(4));
            DoEvents();
            return 0;
        },
        GetParam());
    for (int nr = 0; nr < 20; ++nr)
        (void)work.Next();
    SetEventPump({});
    EXPECT_EQ(foreign, 0);
}

TEST_P(Ahead, LeftEarlyItBeginsNothingMore) {
    std::atomic<std::size_t> begun = 0;
    std::size_t all = 0;
    {
        WorkAhead<int> work(
            10000, [&](std::size_t, std::size_t) { return static_cast<int>(++begun); }, GetParam());
        (void)work.Next();
        all = work.Stop();
        for (std::size_t taken = 1; taken < all; ++taken)
            (void)work.Next();
    }
    EXPECT_EQ(begun, all);
    EXPECT_LT(all, 100U) << "little is begun long before its turn";
    EXPECT_NO_THROW(WorkAhead<int>(
        0, [](std::size_t, std::size_t) { return 0; }, GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Helpers, Ahead, testing::Values(0, 1, 3));

}  // namespace
