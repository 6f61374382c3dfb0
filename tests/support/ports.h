// Connects the ports of the program to lists and scripts for the lifetime of an object.
#pragma once

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "shell/errors.h"
#include "shell/operations.h"

/// Records all error reports.
class RecordingErrors {
public:
    RecordingErrors()
        : before_(SetErrorPort([this](const ErrorReport& report) {
              tags.push_back(report.tag);
              numbers.push_back(report.number);
              texts.push_back(report.description);
              subjects.push_back(report.subject);
          })) {}
    RecordingErrors& operator=(RecordingErrors&&) = delete;
    ~RecordingErrors() { SetErrorPort(std::move(before_)); }

    std::vector<std::string> tags;
    std::vector<int> numbers;
    std::vector<std::string> texts;  // descriptions
    std::vector<std::string> subjects;

private:
    ErrorPort before_;
};

/// Takes what is noted.
class RecordingProblems {
public:
    RecordingProblems() : before_(SetProblems(&list)) {}
    RecordingProblems& operator=(RecordingProblems&&) = delete;
    ~RecordingProblems() { SetProblems(before_); }

    ProblemList list;

private:
    ProblemList* before_;
};

/// Answers questions with the given answers in order, and further ones with No.
class ScriptedQuestions {
public:
    ScriptedQuestions(std::initializer_list<bool> answers)
        : answers_(answers), before_(SetQuestionPort([this](std::string_view text) {
              texts.emplace_back(text);
              return texts.size() <= answers_.size() && answers_[texts.size() - 1];
          })) {}
    ScriptedQuestions& operator=(ScriptedQuestions&&) = delete;
    ~ScriptedQuestions() { SetQuestionPort(std::move(before_)); }

    std::vector<std::string> texts;

private:
    std::vector<bool> answers_;
    QuestionPort before_;
};

/// Records the ranges, labels and steps ("+") of an operation. Cancels the operation at the entry `cancelAt`.
class RecordingProgress : public Progress {
public:
    explicit RecordingProgress(std::string cancelAt = "")
        : cancelAt_(std::move(cancelAt)), before_(SetProgress(this)) {}
    RecordingProgress& operator=(RecordingProgress&&) = delete;
    ~RecordingProgress() override { SetProgress(before_); }
    void Label(std::string_view label) override { Tell(std::string(label)); }
    void Range(int, int max) override { Tell(std::to_string(max)); }
    void Progressiere_mal() override { Tell("+"); }

    std::string recorded;  // entries, each followed by a blank

private:
    void Tell(const std::string& what) {
        recorded += what + " ";
        gAbort = gAbort || (!cancelAt_.empty() && recorded.ends_with(cancelAt_));
    }

    std::string cancelAt_;
    Progress* before_;
};

/// Records the messages.
class RecordingMessages {
public:
    RecordingMessages() : before_(SetMessagePort([this](std::string_view text) { texts.emplace_back(text); })) {}
    RecordingMessages& operator=(RecordingMessages&&) = delete;
    ~RecordingMessages() { SetMessagePort(std::move(before_)); }

    std::vector<std::string> texts;

private:
    MessagePort before_;
};
