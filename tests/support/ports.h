// The program's doors to the outer world, connected to lists and scripts for as long as an object lives.
#pragma once

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "shell/errors.h"
#include "shell/operations.h"

/// Takes all reports of failures.
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

/// Answers questions with the given answers in turn, and with No behind the last.
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

/// Watches an operation: its ranges, labels and steps, "+". The operation is cancelled where `cancelAt` is told.
class RecordingProgress : public Progress {
public:
    explicit RecordingProgress(std::string cancelAt = "")
        : cancelAt_(std::move(cancelAt)), before_(SetProgress(this)) {}
    RecordingProgress& operator=(RecordingProgress&&) = delete;
    ~RecordingProgress() override { SetProgress(before_); }
    void Label(std::string_view label) override { Tell(std::string(label)); }
    void Range(int, int max) override { Tell(std::to_string(max)); }
    void Progressiere_mal() override { Tell("+"); }

    std::string told;  // a blank behind each

private:
    void Tell(const std::string& what) {
        told += what + " ";
        gAbort = gAbort || (!cancelAt_.empty() && told.ends_with(cancelAt_));
    }

    std::string cancelAt_;
    Progress* before_;
};

/// Takes the plain messages.
class RecordingMessages {
public:
    RecordingMessages() : before_(SetMessagePort([this](std::string_view text) { texts.emplace_back(text); })) {}
    RecordingMessages& operator=(RecordingMessages&&) = delete;
    ~RecordingMessages() { SetMessagePort(std::move(before_)); }

    std::vector<std::string> texts;

private:
    MessagePort before_;
};
