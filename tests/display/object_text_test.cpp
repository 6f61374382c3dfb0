#include "display/object_text.h"

#include "display/selection.h"
#include "display/shown_text.h"
#include "source/lines.h"
#include "support/golden.h"
#include "support/project_test.h"

namespace {

class Hover : public ProgramState {
protected:
    Hover() { Speak("english"); }
    std::string Of(std::string_view codePath) {
        return Joined(ObjectText(*gProjekt, locals, *ObjectOfNode(*gProjekt, codePath)), "|", std::identity());
    }

    LocalUses locals;
};

}  // namespace

TEST_F(Hover, ShowsKindDeclarationOwnerNeighboursAndLines) {
    Analyse(ReadProject({{"M.bas", R"(
                      Public Const c As Long = 5 ' five
                      Public Type T
                          m As Long
                      End Type
                      Sub Main()
                          Dim x As T
                          Work x, _
                               c
                          y.Go
                      End Sub
                      Private Function Work(x As T, _
                                            ByVal n As Long) As Long: End Function
                  )"},
                         {"C.cls", "Sub Go()\nEnd Sub\n"}}));
    locals.Look(ProcedureAt("m.main"));
    std::string all;
    for (const char* path : {"m.work", "m.main", "m.c", "m.main.x", "m.t [type]", "c", "c.go"})
        all += Replace(Of(path), "|", "\r\n") + "\r\n\r\n";
    ExpectGolden(all, "hover", "classes");
}

TEST_F(Hover, SaysWhyProceduresAreUndead) {
    Analyse(ReadModuleAsItIs(
        Replace("Sub a|b|End Sub|Sub b|a|End Sub|Sub c|d|End Sub|Sub d|e|End Sub|Sub e|d|End Sub|", "|", vbCrLf),
        "M.bas"));
    const auto why = [this](std::string_view path) {
        const std::string text = Of(path);
        return text.substr(text.rfind('|') + 1);
    };
    EXPECT_EQ(why("m.a"), "Undead: only a ring of its own calls it: M.b");
    EXPECT_EQ(why("m.d"), "Undead: only dead code calls it: M.c, M.e");
    EXPECT_EQ(why("m.e"), "Undead: only dead code calls it: M.d");
}

TEST_F(Hover, SaysNothingOfDeathBeforeTheCallsAreRead) {
    ReadModule(R"(
        Private Type T
            m As Long
        End Type
        Sub a(x)
        End Sub
    )",
               "M.bas");
    Tote_Untote_Kennzeichnen(*gProjekt);
    EXPECT_EQ(Of("m.a"),
              "public sub M.a|Sub a(x)|Belongs to: module M|Called by: calls not read yet|Lines: 4\u20135 (2)");
    EXPECT_THAT(Of("m.t [type]"), HasSubstr("Used by: calls not read yet"));
    Analyse();
    EXPECT_THAT(Of("m.a"), testing::EndsWith("Dead: nothing calls or uses it"));
}

TEST_F(Hover, NamesTheStartUpProcedureAndWhatItCalls) {
    Analyse(ReadProject({{"P.vbp", "Startup=\"Sub Main\"\nModule=M; M.bas\nClass=C; C.cls"},
                         {"M.bas", "Sub Main()\nb\nEnd Sub\nSub b()\nc\nEnd Sub\nSub c()\nEnd Sub\nSub d()\nEnd Sub\n"},
                         {"C.cls", "Sub Main()\nEnd Sub\n"}}));
    EXPECT_THAT(Of("m.main"), testing::EndsWith("|Dead: nothing calls or uses it|Start-up procedure of the project"));
    for (const char* called : {"m.b", "m.c"})
        EXPECT_THAT(Of(called), testing::EndsWith("|Called from the start-up procedure of the project"));
    for (const char* other : {"m.d", "c.main"})
        EXPECT_THAT(Of(other), testing::Not(HasSubstr("tart-up")));
    gProjekt->Startup = "frmMain";
    EXPECT_THAT(Of("m.main"), testing::Not(HasSubstr("tart-up")));
}

TEST_F(Hover, CallsBetweenTwoObjectsAreCounted) {
    Analyse(ReadProject({{"M.bas", "Sub S()\n  T\n  T\n  x.Go\nF.Show\nEnd Sub\nSub T()\nEnd Sub\n"},
                         {"C.cls", "Sub Go()\nEnd Sub\n"},
                         {"F.frm", "Sub X()\nEnd Sub\n"}}));
    const CodeObject& caller = ObjectAt("m.s");
    const CodeObject& target = ObjectAt("m.t");
    EXPECT_EQ(CallsText(caller, target, CallType::Really), "2 Really, first in line: 2");
    EXPECT_EQ(CallsText(ModuleOf("m"), target, CallType::Really), "2 Really, first in line: 2");
    EXPECT_EQ(CallsText(caller, target, CallType::MayBe), "");
    EXPECT_EQ(CallsText(caller, ObjectAt("c.go"), CallType::MayBe), "1 May be, first in line: 4");
    // A use of the form's implicit instance counts as a call of the form.
    EXPECT_THAT(Of("f"), HasSubstr("|Called by: 1 Really, 0 May be|"));
    EXPECT_EQ(CallsText(ModuleOf("m"), ModuleOf("f"), CallType::Really), "1 Really, first in line: 5");
}

TEST_F(Hover, IsUtf8WhateverTheSourceIsAndCutsLongLines) {
    ReadModuleAsItIs("Sub \xFC()\r\nEnd Sub\r\nPublic Sub K(" + std::string(300, 'x') + ")\r\nEnd Sub\r\n", "M.bas");
    EXPECT_THAT(Of("m.\xFC"), testing::StartsWith("public sub M.\u00FC|Sub \u00FC()|"));
    EXPECT_THAT(Of("m.k"), HasSubstr("xxx\u2026|"));
}

TEST(JoinedLines, RunOverContinuationsAndLeaveOutComments) {
    const std::string_view text = "a = 1\r\n  b _\r\n\t\tc, _\r\n d ' x\r\nlast";
    EXPECT_EQ(JoinedLine(text, 1), "a = 1");
    for (const Pos pos : {8, 10, 16, 23})
        EXPECT_EQ(JoinedLine(text, pos), "b c, d") << pos;
    EXPECT_EQ(JoinedLine(text, 17, 17), "c, d");
    EXPECT_EQ(JoinedLine(text, Len(text)), "last");
    EXPECT_EQ(JoinedLine(text, 0) + JoinedLine(text, 99), "");
    EXPECT_EQ(LineOf(text, 1), 1);
    EXPECT_EQ(LineOf(text, Len(text)), 5);
}
