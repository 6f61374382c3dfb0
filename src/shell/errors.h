// The error handling: a statement that fails is reported under the tag of its operation, and the operation continues
// with its next statement, its variables unchanged, as after On Error Resume Next. Nothing unwinds further. Ports and
// the list of problems belong to the main thread; another thread holds its reports back (HeldErrors).
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/files.h"
#include "shell/text_numbers.h"
#include "shell/vb_text.h"

struct ErrorReport {
    int number = 0;
    std::string description;
    std::string tag;                   // "clsModul: Analyse_Parsen"
    std::string subject;               // the file being processed, as the project spells it; empty if there is none
    FileError file = FileError::None;  // why a file could not be read or written, if that is the failure

    /// "Error: 91: description", an empty line, "->> tag".
    [[nodiscard]] std::string Text() const;
};

/// Something that was reported or found missing while a project was at hand.
struct Problem {
    std::string tag;
    std::string text;
    std::string subject;
    std::vector<int> lines = {};       // of the subject, from 1, where it was found; empty if unknown
    bool isHint = false;               // says what would give more; the analysis itself is whole
    FileError file = FileError::None;  // as of the report
    bool operator==(const Problem&) const = default;
};

/// The problems of one project, each once with all its lines; the list ends at ten thousand.
class ProblemList {
public:
    void Add(Problem problem);
    [[nodiscard]] const std::vector<Problem>& All() const { return problems_; }
    /// Gives the problem of this tag and subject whose text begins so another text; it keeps its place.
    void Rephrase(std::string_view tag, std::string_view subject, std::string_view beginning, std::string text);
    /// Removes the problems of one file, before it is read again.
    void ForgetOf(std::string_view subject);

private:
    void FindPlaces();

    std::vector<Problem> problems_;
    std::unordered_map<std::string, std::size_t> places_;  // in problems_, by what makes them equal
};

/// Connects the list that takes what is noted, and returns the one before; null drops it. Never owns it.
ProblemList* SetProblems(ProblemList* problems);
/// Notes a problem; every reported error is noted as well.
void NoteProblem(std::string_view tag, std::string_view text);

/// Takes the reports: a window, standard error, a list in tests.
using ErrorPort = std::function<void(const ErrorReport&)>;

/// Connects a port and returns the previous one. Without a port, reports are dropped.
ErrorPort SetErrorPort(ErrorPort port);

/// Reports a failure under `tag`; the subject is that of the innermost ErrorSubject.
void ShowError(std::string_view tag, int number, std::string_view description);
inline void ShowError(std::string_view tag, const VbError& error) {
    ShowError(tag, error.number, error.description);
}

/// Reports that a file could not be read or written, with the number and description of the cause.
/// @param path  of the file, which becomes the subject of the report; empty if it is the innermost ErrorSubject
void ShowFileError(std::string_view tag, FileError error, std::string_view path = {});
/// The text that says what keeps a file from being read or written, and what to do about it.
[[nodiscard]] Text CauseAndRemedy(FileError error);

/// Runs one statement. Returns false when it failed, which was reported then.
template <class Statement>
bool Attempt(std::string_view tag, Statement&& statement) {
    try {
        statement();
        return true;
    } catch (const VbError& error) {
        ShowError(tag, error);
        return false;
    }
}

/// While it lives, nothing is reported or noted: for repeating a step that reported its failures the first time.
class MutedErrors {
public:
    MutedErrors();
    ~MutedErrors();
    MutedErrors(const MutedErrors&) = delete;
    MutedErrors& operator=(const MutedErrors&) = delete;
};

/// While it lives, what its thread reports and notes goes to a list, for Tell to report later.
class HeldErrors {
public:
    struct Held {
        std::string tag;
        std::string text;
        int number = 0;         // of the error
        int line = 0;           // of the subject; 0 if unknown
        bool isReport = false;  // and not only noted
        FileError file = FileError::None;
    };
    /// @param into  receives the reports in their order; must outlive this
    explicit HeldErrors(std::vector<Held>& into);
    ~HeldErrors();
    HeldErrors(const HeldErrors&) = delete;
    HeldErrors& operator=(const HeldErrors&) = delete;

    /// Reports what was held, under the current subject.
    static void Tell(const std::vector<Held>& held);

private:
    std::vector<Held>* before_;
};

/// While it lives, what its thread reports and notes is found at this line of the subject; 0 is none.
class ErrorLine {
public:
    explicit ErrorLine(int line);
    ~ErrorLine();
    ErrorLine(const ErrorLine&) = delete;
    ErrorLine& operator=(const ErrorLine&) = delete;

private:
    int before_;
};

/// While it lives, reports name this file as their subject. `name` must outlive it.
class ErrorSubject {
public:
    explicit ErrorSubject(std::string_view name);
    ~ErrorSubject();
    ErrorSubject(const ErrorSubject&) = delete;
    ErrorSubject& operator=(const ErrorSubject&) = delete;

private:
    std::string_view before_;
};
