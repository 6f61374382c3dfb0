#include "findings/report_files.h"

#include "support/golden.h"
#include "support/project_test.h"

namespace {

class ReportsAsFiles : public ProgramState {
protected:
    ReportsAsFiles() {
        Analyse(ReadProject({{"App.vbp", "Module=A; A.bas\r\nModule=B; sub\\A.bas\r\nClass=C; sub\\C.cls\r\n"},
                             {"A.bas", "Sub S()\r\nEnd Sub\r\n"},
                             {"sub\\A.bas", "Attribute VB_Name = \"B\"\r\n"},
                             {"sub\\C.cls", "Dim a\r\n"}}));
    }
};

TEST_F(ReportsAsFiles, PlanCountsFilesFoldersAndWhatIsReplaced) {
    ProjectFiles().WriteWhole("p\\sub\\C.cls Calls.txt", "");
    EXPECT_EQ(PlanReports(*gProjekt, ReportKind::Calls, ""), (ReportPlan{.files = 3, .folders = 2, .existing = 1}));
    EXPECT_EQ(PlanReports(*gProjekt, ReportKind::Structure, "out"),
              (ReportPlan{.files = 3, .folders = 1, .folder = "out/"}));
    EXPECT_EQ(PlanReports(*gProjekt, ReportKind::Deaths, ""), (ReportPlan{.files = 1, .folders = 1, .folder = "p/"}));
}

TEST_F(ReportsAsFiles, WhatIsWrittenIsWhatWasPlanned) {
    for (const ReportKind kind : {ReportKind::Structure, ReportKind::Calls, ReportKind::Deaths})
        for (const char* folder : {"", "out"}) {
            SCOPED_TRACE(static_cast<int>(kind));
            const int files = PlanReports(*gProjekt, kind, folder).files;
            EXPECT_TRUE(WriteReportFiles(*gProjekt, kind, folder));
            EXPECT_EQ(PlanReports(*gProjekt, kind, folder).existing, files) << folder;
        }
    EXPECT_TRUE(ProjectFiles().FileExists("out\\001 A.bas Structure.txt"));
    EXPECT_TRUE(ProjectFiles().FileExists("out\\002 A.bas Calls.txt"));
    EXPECT_TRUE(ProjectFiles().FileExists("out\\App.vbp Deaths.txt"));
}

TEST_F(ReportsAsFiles, OlderOnesAreReplacedAndFailuresReported) {
    const auto write = [](ReportKind kind, const std::string& older, const std::string& blocked) {
        ProjectFiles().WriteWhole(older, std::string(999, '.'));
        ProjectFiles().WriteWhole(blocked + "\\inside", "");  // makes the path a directory
        const RecordingErrors errors;
        EXPECT_FALSE(WriteReportFiles(*gProjekt, kind, ""));
        return errors.tags.size() != 1
                   ? "not one failure"
                   : errors.tags.front() + " " + errors.subjects.front() + OnOneLine(ProjectFiles().Bytes(older));
    };
    EXPECT_EQ(write(ReportKind::Structure, "p\\sub\\C.cls Structure.txt", "p\\A.bas Structure.txt"),
              "clsModul: AnalyseErgebnisStructure p\\A.bas Structure.txt|||a>private Variable as variant|");
    EXPECT_EQ(write(ReportKind::Calls, "p\\sub\\C.cls Calls.txt", "p\\A.bas Calls.txt"),
              "clsModul: AnalyseErgebnisCalls p\\A.bas Calls.txtC||||a>Private Variable|");
    ProjectFiles().WriteWhole("p\\App.vbp Deaths.txt", std::string(999, '.'));
    EXPECT_TRUE(WriteReportFiles(*gProjekt, ReportKind::Deaths, ""));
    EXPECT_TRUE(OnOneLine(ProjectFiles().Bytes("p\\App.vbp Deaths.txt")).ends_with("a>private Variable|||||"));
    EXPECT_THAT(write(ReportKind::Deaths, "unrelated", "p\\App.vbp Deaths.txt"), testing::StartsWith("modMain"));
}

}  // namespace
