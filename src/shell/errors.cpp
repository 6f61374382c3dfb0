#include "shell/errors.h"

#include <unordered_set>
#include <utility>

namespace {

ErrorPort& Port() {
    static ErrorPort port;
    return port;
}

thread_local std::string_view currentSubject;
thread_local int muted = 0;
thread_local std::vector<HeldErrors::Held>* holder = nullptr;

constexpr std::size_t kMostProblems = 10000;

struct ProblemList {
    std::vector<Problem> problems;
    std::unordered_set<std::string> seen;
};

// Problems with equal keys are listed once.
std::string KeyOf(const Problem& problem) {
    return problem.tag + '\n' + problem.text + '\n' + problem.subject;
}

ProblemList& TheProblems() {
    static ProblemList list;
    return list;
}

}  // namespace

std::string ErrorReport::Text() const {
    return "Error: " + std::to_string(number) + ": " + description + " \r\n\r\n->> " + tag;
}

ErrorPort SetErrorPort(ErrorPort port) {
    return std::exchange(Port(), std::move(port));
}

void ShowError(std::string_view tag, int number, std::string_view description) {
    if (holder) {
        if (muted == 0)
            holder->push_back({std::string(tag), std::string(description), number, true});
        return;
    }
    NoteProblem(tag, description);
    if (Port() && muted == 0)
        Port()({number, std::string(description), std::string(tag), std::string(currentSubject)});
}

MutedErrors::MutedErrors() {
    ++muted;
}

MutedErrors::~MutedErrors() {
    --muted;
}

HeldErrors::HeldErrors(std::vector<Held>& into) : before_(std::exchange(holder, &into)) {}

HeldErrors::~HeldErrors() {
    holder = before_;
}

void HeldErrors::Tell(const std::vector<Held>& held) {
    for (const Held& one : held) {
        if (one.isReport)
            ShowError(one.tag, one.number, one.text);
        else
            NoteProblem(one.tag, one.text);
    }
}

ErrorSubject::ErrorSubject(std::string_view name) : before_(std::exchange(currentSubject, name)) {}

ErrorSubject::~ErrorSubject() {
    currentSubject = before_;
}

void NoteProblem(std::string_view tag, std::string_view text) {
    if (holder) {
        if (muted == 0)
            holder->push_back({std::string(tag), std::string(text)});
        return;
    }
    ProblemList& list = TheProblems();
    if (muted > 0 || list.problems.size() >= kMostProblems)
        return;
    Problem problem{std::string(tag), std::string(text), std::string(currentSubject)};
    if (list.seen.insert(KeyOf(problem)).second)
        list.problems.push_back(std::move(problem));
}

const std::vector<Problem>& Problems() {
    return TheProblems().problems;
}

void ClearProblems() {
    TheProblems().problems.clear();
    TheProblems().seen.clear();
}

void ForgetProblemsOf(std::string_view subject) {
    ProblemList& list = TheProblems();
    std::erase_if(list.problems, [&](const Problem& problem) {
        const bool isOfFile = problem.subject == subject;
        if (isOfFile)
            list.seen.erase(KeyOf(problem));
        return isOfFile;
    });
}
