// Progress display, cancellation, event pump, questions and messages of long operations. The window connects them to
// dialogs, the console to standard error, the tests to scripted objects.
#pragma once

#include <functional>
#include <string>
#include <string_view>

/// Set when the user cancels; every long loop checks it between modules. It belongs to the operation that runs.
extern bool gAbort;
/// Name of the operation that is running or about to run.
extern std::string gAction;

/// Runs a long operation, for which gAbort is clear at first, and clears it again: a cancel must not stop what comes
/// next.
/// @return false if the operation was cancelled
bool RunOperation(const std::function<void()>& operation);

/// Receives the progress of a long operation. All calls come from the thread of the operation.
class Progress {
public:
    virtual ~Progress() = default;
    virtual void Caption(std::string_view) {}
    virtual void Label(std::string_view) {}
    /// Sets the bounds of the bar and its value to `min`.
    virtual void Range(int /*min*/, int /*max*/) {}
    /// Advances the bar by one, but never beyond its end.
    virtual void Progressiere_mal() {}
};

/// Sets the progress display and returns the previous one; null disables it. Does not take ownership.
Progress* SetProgress(Progress* progress);
/// The current display, never null.
[[nodiscard]] Progress& gProgress();

/// Asks a question to answer with Yes (true) or No (false).
using QuestionPort = std::function<bool(std::string_view text)>;
QuestionPort SetQuestionPort(QuestionPort port);
/// Returns false if no port is set.
[[nodiscard]] bool AskYesNo(std::string_view text);

/// Asks whether to stop loading because a file is missing.
/// @param moreMissing  number of further missing files after this one
using MissingFilePort = std::function<bool(std::string_view text, int moreMissing)>;
MissingFilePort SetMissingFilePort(MissingFilePort port);
/// Calls AskYesNo if no port is set.
[[nodiscard]] bool AskMissingFile(std::string_view text, int moreMissing);

/// Shows a message.
using MessagePort = std::function<void(std::string_view text)>;
MessagePort SetMessagePort(MessagePort port);
void Tell(std::string_view text);

/// Processes window events during a long loop. Other threads than the one that sets it have none.
using EventPump = std::function<void()>;
EventPump SetEventPump(EventPump pump);
/// Runs the pump at most about thirty times a second, so every loop can afford to call it.
void DoEvents();
