#include "shell/operations.h"

#include <cstdint>
#include <utility>

#include "platform/clock.h"
#include "shell/timing.h"

bool gAbort = false;
std::string gAction;

namespace {

Progress& NoProgress() {
    static Progress none;
    return none;
}

Progress* currentProgress = nullptr;

// The current function of each port type; it lives as long as the process.
template <class Port>
Port& ThePort() {
    static Port port;
    return port;
}

struct PumpState {
    EventPump pump;
    std::int64_t lastRun = 0;
};

// Only the thread that sets a pump has one: its helpers come here too, and must not run the loop of a window.
PumpState& Pump() {
    static thread_local PumpState state;
    return state;
}

}  // namespace

bool RunOperation(const std::function<void()>& operation) {
    struct Clear {
        Clear() { gAbort = false; }
        ~Clear() { gAbort = false; }
    };
    const Clear around;
    operation();
    return !gAbort;
}

Progress* SetProgress(Progress* progress) {
    return std::exchange(currentProgress, progress);
}

Progress& gProgress() {
    return currentProgress ? *currentProgress : NoProgress();
}

QuestionPort SetQuestionPort(QuestionPort port) {
    return std::exchange(ThePort<QuestionPort>(), std::move(port));
}

bool AskYesNo(std::string_view text) {
    const WaitForAnswer wait;
    const QuestionPort& port = ThePort<QuestionPort>();
    return port && port(text);
}

MissingFilePort SetMissingFilePort(MissingFilePort port) {
    return std::exchange(ThePort<MissingFilePort>(), std::move(port));
}

bool AskMissingFile(std::string_view text, int moreMissing) {
    const WaitForAnswer wait;
    const MissingFilePort& port = ThePort<MissingFilePort>();
    return port ? port(text, moreMissing) : AskYesNo(text);
}

MessagePort SetMessagePort(MessagePort port) {
    return std::exchange(ThePort<MessagePort>(), std::move(port));
}

void Tell(std::string_view text) {
    const WaitForAnswer wait;
    if (const MessagePort& port = ThePort<MessagePort>())
        port(text);
}

EventPump SetEventPump(EventPump pump) {
    return std::exchange(Pump().pump, std::move(pump));
}

void DoEvents() {
    PumpState& state = Pump();
    if (!state.pump)
        return;
    const std::int64_t now = PerformanceCounter();
    if ((now - state.lastRun) * 30 < PerformanceFrequency())
        return;
    state.lastRun = now;
    state.pump();
}
