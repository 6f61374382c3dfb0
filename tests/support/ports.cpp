#include "support/ports.h"

#include <utility>

RecordingErrors::RecordingErrors()
    : before_(SetErrorPort([this](const ErrorReport& report) {
          tags.push_back(report.tag);
          numbers.push_back(report.number);
          texts.push_back(report.description);
          subjects.push_back(report.subject);
      })) {}

RecordingErrors::~RecordingErrors() {
    SetErrorPort(std::move(before_));
}

ScriptedQuestions::ScriptedQuestions(std::initializer_list<bool> answers)
    : answers_(answers), before_(SetQuestionPort([this](std::string_view text) {
          texts.emplace_back(text);
          return texts.size() <= answers_.size() && answers_[texts.size() - 1];
      })) {}

ScriptedQuestions::~ScriptedQuestions() {
    SetQuestionPort(std::move(before_));
}

RecordingMessages::RecordingMessages()
    : before_(SetMessagePort([this](std::string_view text) { texts.emplace_back(text); })) {}

RecordingMessages::~RecordingMessages() {
    SetMessagePort(std::move(before_));
}
