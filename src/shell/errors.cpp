#include "shell/errors.h"

#include <algorithm>
#include <utility>

#include "shell/timing.h"

namespace {

ErrorPort& Port() {
    static ErrorPort port;
    return port;
}

thread_local std::string_view currentSubject;
thread_local int currentLine = 0;
thread_local int muted = 0;
thread_local std::vector<HeldErrors::Held>* holder = nullptr;

constexpr std::size_t kMostProblems = 10000;
constexpr std::size_t kMostLines = 1000;  // of one problem
ProblemList* currentProblems = nullptr;

// Problems with equal keys are listed once.
std::string KeyOf(const Problem& problem) {
    return problem.tag + '\n' + problem.text + '\n' + problem.subject;
}

// As Visual Basic numbers them.
int NumberOf(FileError error) {
    switch (error) {
        case FileError::NotFound:
            return 53;
        case FileError::NoSpace:
            return 61;
        case FileError::NoPermission:
            return 70;
        default:
            return 75;
    }
}

void Note(std::string_view tag, std::string_view text, FileError file) {
    if (muted > 0 || !currentProblems)
        return;
    currentProblems->Add({.tag = std::string(tag),
                          .text = std::string(text),
                          .subject = std::string(currentSubject),
                          .lines = currentLine > 0 ? std::vector{currentLine} : std::vector<int>(),
                          .file = file});
}

// Notes what the main thread reports, and passes it on.
void Report(const ErrorReport& report) {
    Note(report.tag, report.description, report.file);
    if (!Port() || muted > 0)
        return;
    const WaitForAnswer wait;
    Port()(report);
}

void HoldOrReport(ErrorReport report) {
    if (!holder)
        Report(report);
    else if (muted == 0)
        holder->push_back(
            {std::move(report.tag), std::move(report.description), report.number, currentLine, true, report.file});
}

}  // namespace

std::string ErrorReport::Text() const {
    return "Error: " + std::to_string(number) + ": " + description + " \r\n\r\n->> " + tag;
}

ErrorPort SetErrorPort(ErrorPort port) {
    return std::exchange(Port(), std::move(port));
}

void ShowError(std::string_view tag, int number, std::string_view description) {
    HoldOrReport({number, std::string(description), std::string(tag), std::string(currentSubject)});
}

void ShowFileError(std::string_view tag, FileError error, std::string_view path) {
    const ErrorSubject subject(path.empty() ? currentSubject : path);
    HoldOrReport({NumberOf(error), std::string(Describe(error)), std::string(tag), std::string(currentSubject), error});
}

Text CauseAndRemedy(FileError error) {
    switch (error) {
        case FileError::None:
            return Text::None;
        case FileError::NotFound:
            return Text::CauseNotFound;
        case FileError::IsDirectory:
            return Text::CauseIsDirectory;
        case FileError::NoPermission:
            return Text::CauseNoPermission;
        case FileError::NotReadable:
            return Text::CauseNotReadable;
        case FileError::TooLarge:
            return Text::CauseTooLarge;
        case FileError::NoSpace:
            return Text::CauseNoSpace;
        case FileError::NotWritable:
            return Text::CauseNotWritable;
    }
    return Text::None;
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
        const ErrorLine at(one.line);
        if (one.isReport)
            HoldOrReport({one.number, one.text, one.tag, std::string(currentSubject), one.file});
        else
            NoteProblem(one.tag, one.text);
    }
}

ErrorLine::ErrorLine(int line) : before_(std::exchange(currentLine, line)) {}

ErrorLine::~ErrorLine() {
    currentLine = before_;
}

ErrorSubject::ErrorSubject(std::string_view name) : before_(std::exchange(currentSubject, name)) {}

ErrorSubject::~ErrorSubject() {
    currentSubject = before_;
}

ProblemList* SetProblems(ProblemList* problems) {
    return std::exchange(currentProblems, problems);
}

void NoteProblem(std::string_view tag, std::string_view text) {
    if (!holder)
        Note(tag, text, FileError::None);
    else if (muted == 0)
        holder->push_back({std::string(tag), std::string(text), 0, currentLine});
}

void ProblemList::Add(Problem problem) {
    const std::string key = KeyOf(problem);
    if (const auto known = places_.find(key); known != places_.end()) {
        std::vector<int>& lines = problems_[known->second].lines;
        for (const int line : problem.lines)
            if (lines.size() < kMostLines && std::find(lines.begin(), lines.end(), line) == lines.end())
                lines.push_back(line);
    } else if (problems_.size() < kMostProblems) {
        places_.emplace(key, problems_.size());
        problems_.push_back(std::move(problem));
    }
}

void ProblemList::ForgetOf(std::string_view subject) {
    if (std::erase_if(problems_, [&](const Problem& problem) { return problem.subject == subject; }) > 0)
        FindPlaces();
}

void ProblemList::Rephrase(std::string_view tag, std::string_view subject, std::string_view beginning,
                           std::string text) {
    const auto found = std::find_if(problems_.begin(), problems_.end(), [&](const Problem& problem) {
        return problem.tag == tag && problem.subject == subject && problem.text.starts_with(beginning);
    });
    if (found == problems_.end() || found->text == text)
        return;
    found->text = std::move(text);
    FindPlaces();
}

void ProblemList::FindPlaces() {
    places_.clear();
    for (std::size_t place = 0; place < problems_.size(); ++place)
        places_.emplace(KeyOf(problems_[place]), place);
}
