#include "shell/errors.h"

#include <utility>

#include "shell/timing.h"

namespace {

ErrorPort& Port() {
    static ErrorPort port;
    return port;
}

thread_local std::string_view currentSubject;
thread_local int muted = 0;
thread_local std::vector<HeldErrors::Held>* holder = nullptr;

constexpr std::size_t kMostProblems = 10000;
ProblemList* currentProblems = nullptr;

// Problems with equal keys are listed once.
std::string KeyOf(const Problem& problem) {
    return problem.tag + '\n' + problem.text + '\n' + problem.subject;
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
    if (!Port() || muted > 0)
        return;
    const WaitForAnswer wait;
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

ProblemList* SetProblems(ProblemList* problems) {
    return std::exchange(currentProblems, problems);
}

void NoteProblem(std::string_view tag, std::string_view text) {
    if (muted > 0)
        return;
    if (holder)
        holder->push_back({std::string(tag), std::string(text)});
    else if (currentProblems)
        currentProblems->Add({std::string(tag), std::string(text), std::string(currentSubject)});
}

void ProblemList::Add(Problem problem) {
    if (problems_.size() < kMostProblems && seen_.insert(KeyOf(problem)).second)
        problems_.push_back(std::move(problem));
}

void ProblemList::ForgetOf(std::string_view subject) {
    std::erase_if(problems_, [&](const Problem& problem) {
        const bool isOfFile = problem.subject == subject;
        if (isOfFile)
            seen_.erase(KeyOf(problem));
        return isOfFile;
    });
}
