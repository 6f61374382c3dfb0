#include "findings/structure_report.h"

#include "support/golden.h"
#include "support/project_test.h"

namespace {

using StructureReports = ProgramState;

}  // namespace

TEST_F(StructureReports, AreWrittenBesideTheSourcesAndFailuresAreReported) {
    ReadProject({{"A.bas", "Dim a\r\n"},
                 {"B.bas", "Dim b\r\n"},
                 {"E.bas", "Option Explicit\r\n"},
                 {"b.bas structure.txt", "an older and longer report, to be replaced\r\n"}});
    ProjectFiles().WriteWhole("p\\A.bas Structure.txt\\inside", "");  // makes the path a directory
    RecordingErrors errors;
    AnalyseErgebnisStructure(*gProjekt);
    EXPECT_THAT(errors.tags, ElementsAre("clsModul: AnalyseErgebnisStructure"));
    EXPECT_THAT(errors.subjects, ElementsAre("p\\A.bas"));
    EXPECT_EQ(ProjectFiles().Bytes("p\\B.bas Structure.txt"), "\r\n\r\n\r\nb\tprivate Variable as variant\r\n");
    EXPECT_TRUE(ProjectFiles().FileExists("p\\E.bas Structure.txt"));
    EXPECT_EQ(ProjectFiles().Bytes("p\\E.bas Structure.txt"), "");
}

TEST_F(StructureReports, SampleProjectGivesTheGoldenFiles) {
    ReadSample();
    ExpectGoldenModules(StructureReport, "structure");
}
