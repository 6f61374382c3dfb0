#include "findings/deaths_report.h"

#include <gmock/gmock.h>

#include "calls/driver.h"
#include "findings/golden.h"
#include "platform/temp_directory.h"
#include "support/marked.h"
#include "support/ports.h"
#include "support/program_state.h"
#include "support/read_project.h"

using testing::ElementsAre;

namespace {

std::string Head(const std::string& name, const std::string& file) {
    return std::string(50, '#') + "     " + name + "          p\\" + file + "||";
}

class DeathsReports : public ProgramState {
protected:
    // The block with its line ends as "|" and its tabs as ">".
    static std::string Of(std::string_view snippet, std::string_view file = "Module1.bas") {
        const clsModul& modul = ReadModule(snippet, file);
        Who_Calls_Who(*gProjekt);
        return Replace(Replace(DeathsReport(modul), vbCrLf, "|"), "\t", ">");
    }
};

}  // namespace

TEST_F(DeathsReports, ListWhatNothingCallsInFourSections) {
    EXPECT_EQ(Of(R"(
        Private Sub S(): End Sub
        Property Let P(v): End Property
    )"),
              Head("Module1", "Module1.bas") + "S>private sub|||P>public property let|||||");
    EXPECT_EQ(Of(R"(
        Private Dead_ As Long, alive
        Public Const C = 1
        Enum E
            a
        End Enum
        Private Type T
            m As Long
            n As Long
        End Type
        Declare Function D Lib "d" () As Long
        Function F()
            alive = 1
            G
        End Function
        Sub G(): End Sub
    )"),
              Head("Module1", "Module1.bas") +
                  "T>private Type|||"
                  "E>public Enum|||"
                  "Dead_>private Variable|||C>public Const|||a>enum member Const|||"
                  "D>public function|||F>public function|||"
                  "||");
}

TEST_F(DeathsReports, MembersStandWhereOthersOfTheirTypeAreCalled) {
    EXPECT_EQ(Of(R"(
        Private Type T
            x As Long
            y As Long
            z As Long
        End Type
        Private Type Hollow
            noType
        End Type
        Private Enum E
            a
            b
        End Enum
        Private Sub Form_Load()
            Dim l As T
            l.y = a
        End Sub
    )",
                 "F.frm"),
              Head("F", "F.frm") +
                  "T>private Type||>  - x|>  - z|||"
                  "E>private Enum||>  - b|||"
                  "b>enum member Const|||"
                  "||");
}

TEST_F(DeathsReports, ModuleInWhichAllIsCalledHasNoBlock) {
    EXPECT_EQ(Of("Private v\nSub Form_Load()\nv = 1\nEnd Sub", "F.frm"), "");
    EXPECT_EQ(Of("Private Sub S()\nEnd Sub\nProperty Get P()\nEnd Property", "C.cls"), "");
    EXPECT_EQ(Of("Private Sub S()\nEnd Sub", "C.ctl"), "");
    EXPECT_EQ(Of("Event E()\n", "C.cls"), "");
    EXPECT_EQ(Of("Sub A()\nB\nEnd Sub\nSub B()\nA\nEnd Sub"), "");  // goes by callers, dead or not
}

TEST_F(DeathsReports, StandInOneFileClassesBeforeForms) {
    ReadProject({{"D.ctl", "Public d\r\n"},
                 {"B.frm", "Public b\r\n"},
                 {"C.cls", "Public c\r\n"},
                 {"A.bas", "Public a\r\n"},
                 {"Project1.vbp Deaths.txt", "an older and much longer report" + std::string(999, '.')}});
    Who_Calls_Who(*gProjekt);
    EXPECT_EQ(DeathsReportPath(*gProjekt), "p\\Project1.vbp Deaths.txt");
    AnalyseErgebnisDeaths(*gProjekt, DeathsReportPath(*gProjekt));
    const std::string report = Replace(ProjectFiles().Bytes("p\\Project1.vbp Deaths.txt"), vbCrLf, "|");
    std::string expected;
    for (const char* file : {"A.bas", "C.cls", "B.frm", "D.ctl"}) {
        const std::string name(1, file[0]);
        expected += Head(name, file) + LowerCase(name) + "\tpublic Variable|||||";
    }
    EXPECT_EQ(report, expected);

    ProjectFiles().WriteWhole("p\\there\\inside", "");
    RecordingErrors errors;
    AnalyseErgebnisDeaths(*gProjekt, "p\\there");
    EXPECT_EQ(errors.tags.size(), 1U);
}

TEST_F(DeathsReports, SampleProjectGivesTheGoldenFile) {
    DiskFiles files;
    ReadSample(files);
    Who_Calls_Who(*gProjekt);
    const TempDirectory directory;
    AnalyseErgebnisDeaths(*gProjekt, directory.Path("Deaths.txt"));
    // Without the way to the sources.
    ExpectGolden(Replace(directory.Bytes("Deaths.txt"), kSourceDirectory.string() + "/", ""), "deaths", "ToolHire.vbp");
    CloseProject();
}
