#include "shell/timing.h"

#include <cmath>
#include <cstdio>

#include "platform/clock.h"

namespace {

std::string TwoDigits(long long number) {
    char text[24];
    std::snprintf(text, sizeof text, "%02lld", number);
    return text;
}

std::string HoursMinutesSeconds(long long seconds) {
    return TwoDigits(seconds / 3600) + ":" + TwoDigits(seconds / 60 % 60) + ":" + TwoDigits(seconds % 60);
}

// Counts of the performance counter in which a person was asked.
struct Waiting {
    int depth = 0;
    double since = 0;
    double total = 0;
};
Waiting waiting;

double CounterNow() {
    return CounterAsNumber(PerformanceCounter());
}

// The last digits are dropped, as in the full seconds.
std::string BelowOneSecond(double milliseconds) {
    const int whole = static_cast<int>(milliseconds);
    if (whole == 0)
        return "< 0.001 s";
    char text[16];
    if (whole < 100)
        std::snprintf(text, sizeof text, "0.%03d s", whole);
    else
        std::snprintf(text, sizeof text, "0.%02d s", whole / 10);
    return text;
}

}  // namespace

WaitForAnswer::WaitForAnswer() {
    if (waiting.depth++ == 0)
        waiting.since = CounterNow();
}

WaitForAnswer::~WaitForAnswer() {
    if (--waiting.depth == 0)
        waiting.total += CounterNow() - waiting.since;
}

double CounterAsNumber(std::int64_t counter) {
    const auto number = [](std::int32_t half) {
        return half < 0 ? static_cast<double>(half) + 4294967296.0 + 1 : static_cast<double>(half);
    };
    return number(static_cast<std::int32_t>(counter)) + number(static_cast<std::int32_t>(counter >> 32)) * 4294967296.0;
}

void clsQueryTimer::Calibrieren() {
    const double first = CounterAsNumber(PerformanceCounter());
    const double second = CounterAsNumber(PerformanceCounter());
    Overhead = (second - first) / static_cast<double>(PerformanceFrequency()) * 1000;
}

void clsQueryTimer::Start() {
    waitedAtStart_ = waiting.total;
    StartCount_ = CounterNow();
}

void clsQueryTimer::Halt() {
    StopCount_ = CounterNow() - (waiting.total - waitedAtStart_);
    LastRun = RunTime();
    Total += LastRun;
}

double clsQueryTimer::RunTime() const {
    return (StopCount_ - StartCount_) / static_cast<double>(PerformanceFrequency()) * 1000 - Overhead;
}

std::string clsQueryTimer::Get_TotalStr() const {
    const double milliseconds = std::max(Total, 0.0);
    return milliseconds < 1000 ? BelowOneSecond(milliseconds)
                               : HoursMinutesSeconds(static_cast<long long>(milliseconds / 1000));
}
