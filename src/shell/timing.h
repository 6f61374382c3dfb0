// The two timing facilities: plain timing records for totals, and the high-resolution query timer.
#pragma once

#include <cstdint>
#include <string>

/// A total over many starts and stops, from the timer of the day.
struct TimingRecord {
    float StartTime = 0;
    std::int32_t StartCount = 0;
    float StopTime = 0;
    std::int32_t StopCount = 0;
    double Total = 0;  // seconds
    std::string TotalText;
};

void Timer_Start(TimingRecord& record);
/// Adds the time since Timer_Start. Starts and stops that don't pair up are told to the user: "Timerschrott!!!!".
void Timer_Stop(TimingRecord& record);
/// Clears the times and the total; the counts of starts and stops go on.
void Timer_Reset(TimingRecord& record);
/// Makes TotalText: hours, minutes, seconds and the digits behind the point of Total, two digits each at least.
void Timer_String(TimingRecord& record);

/// High-resolution timer on the performance counter.
class clsQueryTimer {
public:
    /// Measures the distance of two reads of the counter, which RunTime takes off.
    void Calibrieren();
    void Start();
    void Halt();
    /// Milliseconds from Start to Halt.
    [[nodiscard]] double RunTime() const;
    /// Sum of all runs as hours:minutes:seconds.
    [[nodiscard]] std::string Get_TotalStr() const;

    double Overhead = 0;  // milliseconds
    double LastRun = 0;   // milliseconds
    double Total = 0;     // milliseconds

private:
    double StartCount_ = 0;
    double StopCount_ = 0;
};

/// A 64-bit counter as the timer reads it: two 32-bit halves turned into one number. A lower half above
/// 2^31 - 1 comes out one too high; differences of two reads are what counts.
[[nodiscard]] double CounterAsNumber(std::int64_t counter);

// One record for each hot operation and one for the whole opening of a project.
extern TimingRecord gTimerGetTypAusName;  // and Analyse_Parsen
extern TimingRecord gTimerGetChild;
extern TimingRecord gTimerSetMayBeCalls;
extern TimingRecord gTimerGetObjektAusName;
extern TimingRecord gTimerCallsProc;
extern TimingRecord gTimerProjektOeffnen;
