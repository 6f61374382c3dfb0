#include "findings/structure_report.h"

#include <gmock/gmock.h>

#include "findings/golden.h"
#include "support/marked.h"
#include "support/ports.h"
#include "support/program_state.h"
#include "support/read_project.h"

using testing::ElementsAre;

namespace {

class StructureReports : public ProgramState {
protected:
    // A report with its line ends as "|" and its tabs as ">".
    static std::string Of(std::string_view snippet, std::string_view file = "Module1.bas") {
        return Replace(Replace(StructureReport(ReadModule(snippet, file)), vbCrLf, "|"), "\t", ">");
    }
};

}  // namespace

// The variable for Me, which a form has as well, is left out.
TEST_F(StructureReports, ObjectsStandBelowThreeEmptyLinesAndMembersBelowOne) {
    EXPECT_EQ(Of(R"(
        Begin VB.Form Form1
           Begin VB.Label lbl
           End
        End
        Private v As Long
        Public Enum E
            a
        End Enum
        Const C = 1
        Type T
            m As Long
        End Type
        Private Sub S(x)
        End Sub
    )",
                 "Form1.frm"),
              "|||T>public Type||  - m as long|"
              "|||E>public Enum||  - a as long|"
              "|||v>private Variable as long||||a>enum member Variable as long||||C>public Variable as variant|"
              "|||lbl>public as vb.label|"
              "|||S>private sub||  - x as variant|");
}

TEST_F(StructureReports, OnlyFunctionsAndPropertiesTellAType) {
    EXPECT_EQ(Of(R"(
        Private Declare Function D Lib "d" () As Long
        Sub S()
            Dim i As Long
        End Sub
        Function F(a As Byte) As String
        End Function
        Property Get P()
        End Property
        Property Let P(v)
        End Property
        Private Property Set P(o As Thing)
        End Property
    )"),
              "|||D>private function as long|"
              "|||S>public sub||  - i as long|"
              "|||F>public function as string||  - a as byte||  - F as string|"
              "|||P>public property get as ||  - P as |"
              "|||P>public property let as ||  - v as variant|"
              "|||P>private property set as ||  - o as thing|");
}

TEST_F(StructureReports, LieBesideTheSourcesAndReplaceOlderOnes) {
    ReadProject({{"A.bas", "Dim a\r\n"},
                 {"B.frm", "Dim b\r\n"},
                 {"C.cls", "Dim c\r\n"},
                 {"D.ctl", "Dim d\r\n"},
                 {"E.bas", "Option Explicit\r\n"},
                 {"a.bas structure.txt", "an older and longer report\r\n"}});
    AnalyseErgebnisStructure(*gProjekt);
    EXPECT_EQ(ProjectFiles().Bytes("p\\A.bas Structure.txt"), "\r\n\r\n\r\na\tprivate Variable as variant\r\n");
    for (const char* report : {"p\\B.frm Structure.txt", "p\\C.cls Structure.txt", "p\\D.ctl Structure.txt"})
        EXPECT_NE(ProjectFiles().Bytes(report), "") << report;
    EXPECT_TRUE(ProjectFiles().FileExists("p\\E.bas Structure.txt"));
    EXPECT_EQ(ProjectFiles().Bytes("p\\E.bas Structure.txt"), "");
}

TEST_F(StructureReports, OneThatCannotBeWrittenIsReportedOnceAndTheNextFollows) {
    ReadProject({{"A.bas", "Dim a\r\n"}, {"B.bas", "Dim b\r\n"}});
    ProjectFiles().WriteWhole("p\\A.bas Structure.txt\\inside", "");  // a directory stands there
    RecordingErrors errors;
    AnalyseErgebnisStructure(*gProjekt);
    EXPECT_THAT(errors.tags, ElementsAre("clsModul: AnalyseErgebnisStructure"));
    EXPECT_THAT(errors.subjects, ElementsAre("p\\A.bas"));
    EXPECT_TRUE(ProjectFiles().FileExists("p\\B.bas Structure.txt"));
}

TEST_F(StructureReports, SampleProjectGivesTheGoldenFiles) {
    DiskFiles files;
    ReadSample(files);
    ExpectGoldenModules(StructureReport, "structure");
    CloseProject();
}
