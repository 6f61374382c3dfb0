#include "findings/report_files.h"

#include "support/project_test.h"

namespace {

class ReportsAsFiles : public ProgramState {
protected:
    ReportsAsFiles() {
        ReadProject({{"App.vbp", "Module=A; A.bas\r\nModule=B; sub\\A.bas\r\nClass=C; sub\\C.cls\r\n"},
                     {"A.bas", "Sub S()\r\nEnd Sub\r\n"},
                     {"sub\\A.bas", "Attribute VB_Name = \"B\"\r\n"},
                     {"sub\\C.cls", "Dim a\r\n"}});
        Analyse();
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
            WriteReportFiles(*gProjekt, kind, folder);
            EXPECT_EQ(PlanReports(*gProjekt, kind, folder).existing, files) << folder;
        }
    EXPECT_TRUE(ProjectFiles().FileExists("out\\001 A.bas Structure.txt"));
    EXPECT_TRUE(ProjectFiles().FileExists("out\\002 A.bas Calls.txt"));
    EXPECT_TRUE(ProjectFiles().FileExists("out\\App.vbp Deaths.txt"));
}

}  // namespace
