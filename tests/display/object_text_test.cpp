#include "display/object_text.h"

#include "display/selection.h"
#include "display/shown_text.h"
#include "shell/clsText.h"
#include "source/lines.h"
#include "support/project_test.h"

namespace {

class Hover : public ProgramState {
protected:
    Hover() {
        DiskFiles files;
        gText.SetLanguage(files, OSTRIVANE_SOURCE_DIR "/");
    }
    std::string Of(std::string_view codePath) {
        std::string text;
        for (const std::string& line : ObjectText(*gProjekt, locals, *ObjectOfNode(*gProjekt, codePath)))
            text += (text.empty() ? "" : "|") + line;
        return text;
    }

    LocalUses locals;
};

}  // namespace

TEST_F(Hover, ShowsKindDeclarationOwnerNeighboursAndLines) {
    ReadProject({{"M.bas", R"(
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
                 {"C.cls", "Sub Go()\nEnd Sub\n"}});
    Analyse();
    locals.Look(ProcedureAt("m.main"));
    EXPECT_EQ(Of("m.work"),
              "private function M.Work|Private Function Work(x As T, ByVal n As Long) As Long: End Function|"
              "Belongs to: module M|Called by: 1 Really, 0 May be|Calls: 0 Really, 0 May be|Uses: 1|"
              "Lines: 11\u201312 (2)|Undead: only dead code calls it: M.Main");
    EXPECT_EQ(Of("m.main"),
              "public sub M.Main|Sub Main()|Belongs to: module M|Called by: 0 Really, 0 May be|"
              "Calls: 2 Really, 1 May be|Uses: 1|Lines: 5\u201310 (6)|Dead: nothing calls or uses it");
    EXPECT_EQ(Of("m.c"),
              "public const c|Public Const c As Long = 5|Belongs to: module M|Data type: long|"
              "Called by: 1 Really, 0 May be|Line: 1");
    EXPECT_EQ(Of("m.main.x"),
              "local variable x|Dim x As T|Belongs to: sub Main()|Data type: t|Called by: 1 Really, 0 May be|Line: 6");
    EXPECT_EQ(Of("m.t [type]"),
              "public type M.T [Type]|Public Type T|Belongs to: module M|Used by: 2|Lines: 2\u20134 (3)|"
              "Dead: nothing calls or uses it");
    EXPECT_EQ(Of("c"), "class C|p/C.cls|Used by: 0|Lines: 3, Code lines: 2");
    EXPECT_EQ(Of("c.go"),
              "public sub C.Go|Sub Go()|Belongs to: class C|Called by: 0 Really, 1 May be|"
              "Calls: 0 Really, 0 May be|Lines: 1\u20132 (2)");
}

TEST_F(Hover, SaysWhyProceduresAreUndead) {
    ReadModuleAsItIs(
        Replace("Sub a|b|End Sub|Sub b|a|End Sub|Sub c|d|End Sub|Sub d|e|End Sub|Sub e|d|End Sub|", "|", vbCrLf),
        "M.bas");
    Analyse();
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
    EXPECT_THAT(Of("m.t [type]"), testing::HasSubstr("Used by: calls not read yet"));
    Analyse();
    EXPECT_THAT(Of("m.a"), testing::EndsWith("Dead: nothing calls or uses it"));
}

TEST_F(Hover, NamesTheStartUpProcedureAndWhatItCalls) {
    ReadProject({{"P.vbp", "Startup=\"Sub Main\"\nModule=M; M.bas\nClass=C; C.cls"},
                 {"M.bas", "Sub Main()\nb\nEnd Sub\nSub b()\nc\nEnd Sub\nSub c()\nEnd Sub\nSub d()\nEnd Sub\n"},
                 {"C.cls", "Sub Main()\nEnd Sub\n"}});
    Analyse();
    EXPECT_THAT(Of("m.main"), testing::EndsWith("|Dead: nothing calls or uses it|Start-up procedure of the project"));
    for (const char* called : {"m.b", "m.c"})
        EXPECT_THAT(Of(called), testing::EndsWith("|Called from the start-up procedure of the project"));
    for (const char* other : {"m.d", "c.main"})
        EXPECT_THAT(Of(other), testing::Not(testing::HasSubstr("tart-up")));
    gProjekt->Startup = "frmMain";
    EXPECT_THAT(Of("m.main"), testing::Not(testing::HasSubstr("tart-up")));
}

TEST_F(Hover, CallsBetweenTwoObjectsAreCounted) {
    ReadProject({{"M.bas", "Sub S()\n  T\n  T\n  x.Go\nF.Show\nEnd Sub\nSub T()\nEnd Sub\n"},
                 {"C.cls", "Sub Go()\nEnd Sub\n"},
                 {"F.frm", "Sub X()\nEnd Sub\n"}});
    Analyse();
    const CodeObject& caller = ObjectAt("m.s");
    const CodeObject& target = ObjectAt("m.t");
    EXPECT_EQ(CallsText(caller, target, CallType::Really), "2 Really, first in line: 2");
    EXPECT_EQ(CallsText(ModuleOf("m"), target, CallType::Really), "2 Really, first in line: 2");
    EXPECT_EQ(CallsText(caller, target, CallType::MayBe), "");
    EXPECT_EQ(CallsText(caller, ObjectAt("c.go"), CallType::MayBe), "1 May be, first in line: 4");
    // A use of the form's implicit instance counts as a call of the form.
    EXPECT_THAT(Of("f"), testing::HasSubstr("|Called by: 1 Really, 0 May be|"));
    EXPECT_EQ(CallsText(ModuleOf("m"), ModuleOf("f"), CallType::Really), "1 Really, first in line: 5");
}

TEST_F(Hover, IsUtf8WhateverTheSourceIsAndCutsLongLines) {
    ReadModuleAsItIs("Sub \xFC()\r\nEnd Sub\r\nPublic Sub K(" + std::string(300, 'x') + ")\r\nEnd Sub\r\n", "M.bas");
    EXPECT_THAT(Of("m.\xFC"), testing::StartsWith("public sub M.\u00FC|Sub \u00FC()|"));
    EXPECT_THAT(Of("m.k"), testing::HasSubstr("xxx\u2026|"));
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
