// Long operations and the doors to the person in front of the program: progress, cancel, event pump,
// questions and plain messages. The window connects dialogs, the console standard error, tests scripts.
#pragma once

#include <functional>
#include <string>
#include <string_view>

/// Set by the user's cancel; every long loop tests it between modules.
extern bool gAbort;
/// Name of the operation that is to run or running.
extern std::string gAction;

/// What a long operation tells of itself. All calls come from the operation's own thread.
class Progress {
public:
    virtual ~Progress() = default;
    virtual void Caption(std::string_view) {}
    virtual void Label(std::string_view) {}
    /// Bounds of the bar; its value goes to `min`.
    virtual void Range(int /*min*/, int /*max*/) {}
    /// The bar moves on by one, never beyond its end.
    virtual void Progressiere_mal() {}
    /// The inner bar, within one module: empty, with `total` steps to its end.
    virtual void Progressiere_mal_Modul_Init(int /*total*/) {}
    virtual void Progressiere_mal_Modul() {}
};

/// Connects the progress display and gives back the one before; null connects none. Never owns it.
Progress* SetProgress(Progress* progress);
/// The display in use, never null.
[[nodiscard]] Progress& gProgress();

/// Asks a question that is answered with Yes (true) or No (false).
using QuestionPort = std::function<bool(std::string_view text)>;
QuestionPort SetQuestionPort(QuestionPort port);
/// Without a port the answer is No.
[[nodiscard]] bool AskYesNo(std::string_view text);

/// Asks whether the load is to be given up because a file is missing.
/// @param moreMissing  how many files behind this one are missing as well
using MissingFilePort = std::function<bool(std::string_view text, int moreMissing)>;
MissingFilePort SetMissingFilePort(MissingFilePort port);
/// Without a port of its own it is a question like any other.
[[nodiscard]] bool AskMissingFile(std::string_view text, int moreMissing);

/// Shows a plain message.
using MessagePort = std::function<void(std::string_view text)>;
MessagePort SetMessagePort(MessagePort port);
void Tell(std::string_view text);

/// Lets the window live during a long loop.
using EventPump = std::function<void()>;
EventPump SetEventPump(EventPump pump);
/// Cheap enough for every loop: runs the pump at most some thirty times a second.
void DoEvents();
