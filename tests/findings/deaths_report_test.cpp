#include "findings/deaths_report.h"

#include "platform/temp_directory.h"
#include "support/golden.h"
#include "support/project_test.h"

namespace {

std::string Head(const std::string& name, const std::string& file) {
    return std::string(50, '#') + "     " + name + "          p\\" + file + "||";
}

class DeathsReports : public ProgramState {
protected:
    static std::string Of(std::string_view snippet, std::string_view file = "Module1.bas") {
        const clsModul& modul = ReadModule(snippet, file);
        Who_Calls_Who(*gProjekt);
        return OnOneLine(DeathsReport(modul));
    }
};

}  // namespace

TEST_F(DeathsReports, MembersAreListedIfOthersOfTheirTypeAreCalled) {
    EXPECT_EQ(Of("Private Type T\n  x As Long\n  y As Long\n  z As Long\nEnd Type\nPrivate Type Hollow\n  noType\n"
                 "End Type\nPrivate Sub Form_Load()\n  Dim l As T\n  l.y = 1\nEnd Sub",
                 "F.frm"),
              Head("F", "F.frm") + "T>private Type||>  - x|>  - z|||||");
}

TEST_F(DeathsReports, ModuleInWhichAllIsCalledHasNoBlock) {
    EXPECT_EQ(Of("Private v\nSub Form_Load()\nv = 1\nEnd Sub", "F.frm"), "");
    EXPECT_EQ(Of("Private Sub S()\nEnd Sub\nProperty Get P()\nEnd Property", "C.cls"), "");
    EXPECT_EQ(Of("Event E()\n", "C.cls"), "");
    EXPECT_EQ(Of("Sub A()\nB\nEnd Sub\nSub B()\nA\nEnd Sub"), "");  // any caller counts, dead or not
}

TEST_F(DeathsReports, SampleProjectGivesTheGoldenFile) {
    ReadSample();
    Who_Calls_Who(*gProjekt);
    const TempDirectory directory;
    AnalyseErgebnisDeaths(*gProjekt, directory.Path("Deaths.txt"));
    // Removes the directory of the sources, which differs between machines.
    ExpectGolden(Replace(directory.Bytes("Deaths.txt"), kSourceDirectory.string() + "/", ""), "deaths", "ToolHire.vbp");
}
