#include "shell/errors.h"

#include <gmock/gmock.h>

#include "support/ports.h"
#include "support/program_state.h"

namespace {

using testing::ElementsAre;
using testing::SizeIs;

using Errors = ProgramState;

TEST_F(Errors, AfterAFailedStatementTheNextOneUsesTheFormerValues) {
    const RecordingErrors errors;
    std::string_view word = "before";
    Pos next = 0;
    EXPECT_FALSE(Attempt("modMain: First", [&] { word = Mid("text", 0, 2); }));
    EXPECT_TRUE(Attempt("modMain: Second", [&] { next = InStr(2, "text", "t"); }));
    EXPECT_FALSE(Attempt("modMain: Third", [&] { next = InStr(0, "text", "t"); }));
    EXPECT_EQ(word, "before");
    EXPECT_EQ(next, 4);
    EXPECT_THAT(errors.tags, ElementsAre("modMain: First", "modMain: Third"));
    EXPECT_THAT(errors.numbers, ElementsAre(5, 5));
}

TEST_F(Errors, TheInnermostSubjectNamesTheFileAtHand) {
    const RecordingErrors errors;
    const RecordingProblems problems;
    {
        const ErrorSubject project("App.vbp");
        {
            const ErrorSubject modul("..\\Form1.frm");
            ShowError("a: b", 1, "x");
        }
        NoteProblem("a: b", "y");
    }
    ShowError("a: b", 1, "x");
    EXPECT_THAT(errors.subjects, ElementsAre("..\\Form1.frm", ""));
    EXPECT_THAT(problems.list.All(),
                ElementsAre(testing::Field(&Problem::subject, "..\\Form1.frm"), Problem{"a: b", "y", "App.vbp"},
                            testing::Field(&Problem::subject, "")));
}

TEST_F(Errors, TheSameProblemIsListedOnceAndReportedEachTime) {
    const RecordingErrors errors;
    RecordingProblems problems;
    for (int i = 0; i < 3; ++i) {
        ShowError("a: b", 1, "x");
        NoteProblem("a: b", "x");
    }
    NoteProblem("a: b\nx", "");  // another description or subject makes another problem
    EXPECT_THAT(errors.tags, SizeIs(3));
    EXPECT_THAT(problems.list.All(), SizeIs(2));
    problems.list.ForgetOf("");
    NoteProblem("a: b", "x");
    EXPECT_THAT(problems.list.All(), SizeIs(1));
    for (int i = 0; i < 10100; ++i)
        NoteProblem("a: b", std::to_string(i));
    EXPECT_THAT(problems.list.All(), SizeIs(10000)) << "the list is bounded";
}

TEST_F(Errors, AProblemKeepsAllLinesWhereItWasFound) {
    RecordingProblems problems;
    std::vector<HeldErrors::Held> held;
    {
        const HeldErrors holding(held);
        const ErrorLine at(7);
        ShowError("a: b", 1, "x");
    }
    HeldErrors::Tell(held);
    for (const int line : {3, 7}) {
        const ErrorLine at(line);
        ShowError("a: b", 1, "x");
    }
    NoteProblem("a: b", "x");
    EXPECT_THAT(problems.list.All(), ElementsAre(Problem{"a: b", "x", "", {7, 3}}));
}

TEST_F(Errors, FailuresOfFilesNameCauseAndNumber) {
    std::vector<ErrorReport> reports;
    const ErrorPort before = SetErrorPort([&](const ErrorReport& report) { reports.push_back(report); });
    ShowFileError("a: b", FileError::NoPermission, "C:\\x.txt");
    SetErrorPort(before);
    ASSERT_THAT(reports, SizeIs(1));
    EXPECT_EQ(reports[0].number, 70);
    EXPECT_EQ(reports[0].description, "Permission is denied.");
    EXPECT_EQ(reports[0].subject, "C:\\x.txt");
    EXPECT_EQ(reports[0].file, FileError::NoPermission);
}

}  // namespace
