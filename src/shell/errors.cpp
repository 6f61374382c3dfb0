#include "shell/errors.h"

#include <unordered_set>
#include <utility>

namespace {

ErrorPort& Port() {
    static ErrorPort port;
    return port;
}

std::string_view currentSubject;
int muted = 0;

constexpr std::size_t kMostProblems = 10000;

struct ProblemList {
    std::vector<Problem> problems;
    std::unordered_set<std::string> seen;
};

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

ErrorSubject::ErrorSubject(std::string_view name) : before_(std::exchange(currentSubject, name)) {}

ErrorSubject::~ErrorSubject() {
    currentSubject = before_;
}

void NoteProblem(std::string_view tag, std::string_view text) {
    ProblemList& list = TheProblems();
    if (muted > 0 || list.problems.size() >= kMostProblems)
        return;
    Problem problem{std::string(tag), std::string(text), std::string(currentSubject)};
    if (list.seen.insert(problem.tag + '\n' + problem.text + '\n' + problem.subject).second)
        list.problems.push_back(std::move(problem));
}

const std::vector<Problem>& Problems() {
    return TheProblems().problems;
}

void ClearProblems() {
    TheProblems().problems.clear();
    TheProblems().seen.clear();
}
