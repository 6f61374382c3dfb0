#include "findings/calls_report.h"

#include "support/golden.h"
#include "support/project_test.h"

namespace {

class CallsReports : public ProgramState {
protected:
    static std::string Of(std::string text, std::string_view file = "M.bas") {
        const clsModul& modul = ReadModuleAsItIs(std::move(text), file);
        Who_Calls_Who(*gProjekt);
        return OnOneLine(CallsReport(modul));
    }
};

// A position, preceded by the position in its procedure, which counts from 1.
std::string At(Pos pos) {
    return std::to_string(pos);
}
std::string At(Pos pos, Pos start) {
    return std::to_string(pos - start + 1) + ">" + std::to_string(pos);
}

}  // namespace

// Calls from a declaration have no procedure to count from: under an enumeration the position plus one takes that
// place, elsewhere it is omitted.
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

TEST_F(CallsReports, ListPossibleCallsAndJoinContinuedLines) {
    const Marked vb = Vb(R"(
        {{Sub S()}}
            y = _
              x.{{m}} + _
              1
        End Sub
    )");
    ReadProject({{"M.bas", vb.text}, {"C.cls", "Public m\n"}});
    Who_Calls_Who(*gProjekt);
    EXPECT_EQ(OnOneLine(CallsReport(ModuleOf("c"))), "C||||m>Public Variable|>May be>" + At(vb.pos(2), vb.pos(1)) +
                                                         ">M.S>    y = _\xAC      x.m + _\xAC      1|");
    EXPECT_EQ(Of("Option Explicit\r\n"), "M|");
    EXPECT_EQ(Of("Option Explicit\r\n", "C.cls"), "C|");  // Me is not listed
}

TEST_F(CallsReports, SampleProjectGivesTheGoldenFiles) {
    ReadSample();
    Who_Calls_Who(*gProjekt);
    ExpectGoldenModules(CallsReport, "calls");
}
