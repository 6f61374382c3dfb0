// The one way of failing: a statement that fails is reported under the tag of its operation, and the
// operation goes on with its next statement, its variables as they were. Nothing unwinds further.
// Ports and the list of problems belong to the main thread; another thread holds back what it has to tell.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "shell/vb_text.h"

struct ErrorReport {
    int number = 0;
    std::string description;
    std::string tag;      // "clsModul: Analyse_Parsen"
    std::string subject;  // the file at hand, as the project spells it; empty when there is none

    /// "Error: 91: description", an empty line, "->> tag".
    [[nodiscard]] std::string Text() const;
};

/// Something that was reported or found missing while a project was at hand.
struct Problem {
    std::string tag;
    std::string text;
    std::string subject;
    bool operator==(const Problem&) const = default;
};

/// The problems of one project, each once; the list ends at ten thousand.
class ProblemList {
public:
    void Add(Problem problem);
    [[nodiscard]] const std::vector<Problem>& All() const { return problems_; }
    /// Removes the problems of one file, before it is read again.
    void ForgetOf(std::string_view subject);

private:
    std::vector<Problem> problems_;
    std::unordered_set<std::string> seen_;
};

/// Connects the list that takes what is noted, and returns the one before; null drops it. Never owns it.
ProblemList* SetProblems(ProblemList* problems);
/// Notes a problem; every reported error is noted as well.
void NoteProblem(std::string_view tag, std::string_view text);

/// Takes the reports: a window, standard error, a list in tests.
using ErrorPort = std::function<void(const ErrorReport&)>;

/// Connects a port and gives back the one before. Without a port reports are dropped.
ErrorPort SetErrorPort(ErrorPort port);

/// Reports a failure under `tag`; the subject is that of the innermost ErrorSubject.
void ShowError(std::string_view tag, int number, std::string_view description);
inline void ShowError(std::string_view tag, const VbError& error) {
    ShowError(tag, error.number, error.description);
}

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

/// While it lives, nothing is reported or noted: for doing again what told its failures the first time.
class MutedErrors {
public:
    MutedErrors();
    ~MutedErrors();
    MutedErrors(const MutedErrors&) = delete;
    MutedErrors& operator=(const MutedErrors&) = delete;
};

/// While it lives, what its thread reports and notes is kept in a list instead, to be told when its turn has come.
class HeldErrors {
public:
    struct Held {
        std::string tag;
        std::string text;
        int number = 0;         // of the error
        bool isReport = false;  // and not only noted
    };
    /// @param into  takes what is told, in its order; must outlive this
    explicit HeldErrors(std::vector<Held>& into);
    ~HeldErrors();
    HeldErrors(const HeldErrors&) = delete;
    HeldErrors& operator=(const HeldErrors&) = delete;

    /// Tells it now, under the subject of now.
    static void Tell(const std::vector<Held>& held);

private:
    std::vector<Held>* before_;
};

/// Names the file that is being worked on for as long as it lives. `name` must outlive it.
class ErrorSubject {
public:
    explicit ErrorSubject(std::string_view name);
    ~ErrorSubject();
    ErrorSubject(const ErrorSubject&) = delete;
    ErrorSubject& operator=(const ErrorSubject&) = delete;

private:
    std::string_view before_;
};
