#include "findings/calls_report.h"

#include <gmock/gmock.h>

#include "calls/driver.h"
#include "findings/golden.h"
#include "support/marked.h"
#include "support/ports.h"
#include "support/program_state.h"
#include "support/read_project.h"

using testing::ElementsAre;

namespace {

class CallsReports : public ProgramState {
protected:
    // The report with its line ends as "|" and its tabs as ">".
    static std::string Of(const clsModul& modul) {
        return Replace(Replace(CallsReport(modul), vbCrLf, "|"), "\t", ">");
    }
    static std::string Of(std::string text, std::string_view file = "M.bas") {
        const clsModul& modul = ReadModuleAsItIs(std::move(text), file);
        Who_Calls_Who(*gProjekt);
        return Of(modul);
    }
};

// A position, and with it the one counted from the start of its procedure, from 1.
std::string At(Pos pos) {
    return std::to_string(pos);
}
std::string At(Pos pos, Pos start) {
    return std::to_string(pos - start + 1) + ">" + std::to_string(pos);
}

}  // namespace

TEST_F(CallsReports, ObjectsStandInFiveSectionsWithWhatCallsThem) {
    const Marked vb = Vb(R"(
        Begin VB.Form F
           Begin VB.Label lbl
           End
        End
        Private v As T
        Private Type T
            m As Long
            n As Long
        End Type
        Public Const C = 1
        {{Private Sub S()}}
            {{v}}.{{m}} = C
            {{lbl}}.Caption = ""
            {{S}}: {{S}}
        End Sub
        Property Get P(): End Property
        Property Set P(o): End Property
        Function U(): End Function
    )");
    const Pos start = vb.pos(1);
    const std::string caller = ">F.S>";
    EXPECT_EQ(Of(vb.text, "F.frm"),
              "F|"
              "|||T>Private Type||  - m|>>Really>" +
                  At(vb.pos(3), start) + caller + "    v.m = C|" +
                  "|  - n|"
                  "|||v>Private Variable|>Really>" +
                  At(vb.pos(2), start) + caller + "    v.m = C|" + "|||C>Public Const|>Really>" +
                  At(vb.pos(3) + 4, start) + caller + "    v.m = C|" + "|||lbl>vb.label|>Really>" +
                  At(vb.pos(4), start) + caller + "    lbl.Caption = \"\"|" + "|||S>Private Sub|>Really>" +
                  At(vb.pos(5), start) + caller + "    S: S|" + ">Really>" + At(vb.pos(6), start) + caller +
                  "    S: S|" +
                  "|||P>Public Property Get|"
                  "|||P>Public Property Set|"
                  "|||U>Public Function|");
}

// Calls from a declaration have no procedure to count from: under an enumeration one more than the position stands in
// its place, elsewhere nothing.
TEST_F(CallsReports, CallsFromDeclarationsAreCountedDifferently) {
    const Marked vb = Vb(R"(
        Private Enum E
            k
            l = {{k}}
        End Enum
        Const c = {{k}}
        {{Sub S()}}
            x = {{k}}
        End Sub
    )");
    const std::string first = At(vb.pos(1)) + ">M>    l = k|";
    const std::string second = At(vb.pos(2)) + ">M>Const c = k|";
    const std::string third = "Really>" + At(vb.pos(4), vb.pos(3)) + ">M.S>    x = k|";
    EXPECT_EQ(Of(vb.text),
              "M|"
              "|||E>Private Enum|"
              "|  - k|>>Really>" +
                  At(vb.pos(1) + 1) + ">" + first + ">>Really>" + At(vb.pos(2) + 1) + ">" + second + ">>" + third +
                  "|  - l|"
                  "|||k>Enum member Const|>Really>" +
                  first + ">Really>" + second + ">" + third +
                  "|||l>Enum member Const|"
                  "|||c>Public Const|"
                  "|||S>Public Sub|");
}

TEST_F(CallsReports, TellPossibleCallsAndKeepContinuedLinesOnOne) {
    const Marked vb = Vb(R"(
        {{Sub S()}}
            y = _
              x.{{m}} + _
              1
        End Sub
    )");
    ReadProject({{"M.bas", vb.text}, {"C.cls", "Public m\r\n"}});
    Who_Calls_Who(*gProjekt);
    EXPECT_EQ(Of(ModuleOf("c")), "C||||m>Public Variable|>May be>" + At(vb.pos(2), vb.pos(1)) +
                                     ">M.S>    y = _\xAC      x.m + _\xAC      1|");
    EXPECT_EQ(Of("Option Explicit\r\n"), "M|");
    EXPECT_EQ(Of("Option Explicit\r\n", "C.cls"), "C|");  // Me is not listed
}

TEST_F(CallsReports, LieBesideTheSourcesAndReplaceOlderOnes) {
    ReadProject({{"A.bas", "Dim x\r\n"},
                 {"B.frm", "Dim x\r\n"},
                 {"C.cls", "Dim x\r\n"},
                 {"D.ctl", "Dim x\r\n"},
                 {"B.frm Calls.txt", "an older and longer report, to be replaced\r\n"}});
    ProjectFiles().WriteWhole("p\\A.bas Calls.txt\\inside", "");  // a directory stands there
    Who_Calls_Who(*gProjekt);
    RecordingErrors errors;
    AnalyseErgebnisCalls(*gProjekt);
    EXPECT_THAT(errors.tags, ElementsAre("clsModul: AnalyseErgebnisCalls"));
    EXPECT_THAT(errors.subjects, ElementsAre("p\\A.bas"));
    EXPECT_EQ(ProjectFiles().Bytes("p\\B.frm Calls.txt"), "B\r\n\r\n\r\n\r\nx\tPrivate Variable\r\n");
    EXPECT_TRUE(ProjectFiles().FileExists("p\\C.cls Calls.txt"));
    EXPECT_TRUE(ProjectFiles().FileExists("p\\D.ctl Calls.txt"));
}

TEST_F(CallsReports, SampleProjectGivesTheGoldenFiles) {
    DiskFiles files;
    ReadSample(files);
    Who_Calls_Who(*gProjekt);
    ExpectGoldenModules(CallsReport, "calls");
    CloseProject();
}
