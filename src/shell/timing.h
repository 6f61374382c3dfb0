// The high-resolution query timer.
#pragma once

#include <cstdint>
#include <string>

/// While one lives, a person is asked, and query timers stop. Nests.
class WaitForAnswer {
public:
    WaitForAnswer();
    ~WaitForAnswer();
    WaitForAnswer(const WaitForAnswer&) = delete;
    WaitForAnswer& operator=(const WaitForAnswer&) = delete;
};

/// High-resolution timer on the performance counter. It leaves out the time in which a person is asked.
class clsQueryTimer {
public:
    /// Measures the time between two reads of the counter; RunTime subtracts it.
    void Calibrieren();
    void Start();
    void Halt();
    /// Milliseconds from Start to Halt.
    [[nodiscard]] double RunTime() const;
    /// Sum of all runs as hours:minutes:seconds; below one second as seconds with decimals, down to milliseconds:
    /// "0.27 s", "0.004 s", "< 0.001 s".
    [[nodiscard]] std::string Get_TotalStr() const;

    double Overhead = 0;  // milliseconds
    double LastRun = 0;   // milliseconds
    double Total = 0;     // milliseconds

private:
    double StartCount_ = 0;
    double StopCount_ = 0;
    double waitedAtStart_ = 0;
};

/// Converts a 64-bit counter to a number from two 32-bit halves. A lower half above 2^31 - 1 gives a result one too
/// high; the timer only uses differences.
[[nodiscard]] double CounterAsNumber(std::int64_t counter);
