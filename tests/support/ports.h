// The program's doors to the outer world, connected to lists and scripts for as long as an object lives.
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "shell/errors.h"
#include "shell/operations.h"

/// Takes all reports of failures.
class RecordingErrors {
public:
    RecordingErrors();
    ~RecordingErrors();
    RecordingErrors(const RecordingErrors&) = delete;
    RecordingErrors& operator=(const RecordingErrors&) = delete;

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
    ScriptedQuestions(std::initializer_list<bool> answers);
    ~ScriptedQuestions();
    ScriptedQuestions(const ScriptedQuestions&) = delete;
    ScriptedQuestions& operator=(const ScriptedQuestions&) = delete;

    std::vector<std::string> texts;

private:
    std::vector<bool> answers_;
    QuestionPort before_;
};

/// Takes the plain messages.
class RecordingMessages {
public:
    RecordingMessages();
    ~RecordingMessages();
    RecordingMessages(const RecordingMessages&) = delete;
    RecordingMessages& operator=(const RecordingMessages&) = delete;

    std::vector<std::string> texts;

private:
    MessagePort before_;
};
