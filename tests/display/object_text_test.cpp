#include "display/object_text.h"

#include <gtest/gtest.h>

#include "calls/driver.h"
#include "display/selection.h"
#include "display/shown_text.h"
#include "findings/dead_objects.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "platform/code_page.h"
#include "shell/clsText.h"
#include "support/marked.h"
#include "support/program_state.h"
#include "support/read_project.h"

namespace {

class Hover : public ProgramState {
protected:
    Hover() {
        DiskFiles files;
        gText.SetLanguage(files, OSTRIVANE_SOURCE_DIR "/");
    }
    static void Analyse() {
        Who_Calls_Who(*gProjekt);
        Tote_Untote_Kennzeichnen(*gProjekt);
    }
    static std::string Of(std::string_view codePath) {
        std::string text;
        for (const std::string& line : ObjectText(*ObjectOfNode(codePath)))
            text += (text.empty() ? "" : "|") + line;
        return text;
    }
};

}  // namespace

TEST_F(Hover, TellsKindDeclarationOwnerNeighboursAndLines) {
    ReadProject({{"M.bas", Vb(R"(
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
                  )")
                               .text},
                 {"C.cls", "Sub Go()\r\nEnd Sub\r\n"}});
    Analyse();
    Check_ProcVars_Calls(*gProjekt, static_cast<clsProzedur&>(*modMain::GetObjectFromCodePath("m.main")));
    EXPECT_EQ(Of("m.work"),
              "private function M.Work|Private Function Work(x As T, ByVal n As Long) As Long: End Function|"
              "Belongs to: module M|Called by: 1 certain, 0 possible|Calls: 0 certain, 0 possible|Uses: 1|"
              "Lines: 11\u201312 (2)|Undead: only dead code calls it: M.Main");
    EXPECT_EQ(Of("m.main"),
              "public sub M.Main|Sub Main()|Belongs to: module M|Called by: 0 certain, 0 possible|"
              "Calls: 2 certain, 1 possible|Uses: 1|Lines: 5\u201310 (6)|Dead: nothing calls or uses it");
    EXPECT_EQ(Of("m.c"),
              "public const c|Public Const c As Long = 5|Belongs to: module M|Data type: long|"
              "Called by: 1 certain, 0 possible|Line: 1");
    EXPECT_EQ(
        Of("m.main.x"),
        "local variable x|Dim x As T|Belongs to: sub Main()|Data type: t|Called by: 1 certain, 0 possible|Line: 6");
    EXPECT_EQ(Of("m.t [type]"),
              "public type M.T [Type]|Public Type T|Belongs to: module M|Used by: 2|Lines: 2\u20134 (3)|"
              "Dead: nothing calls or uses it");
    EXPECT_EQ(Of("c"), "class C|p\\C.cls|Used by: 0|Lines: 3, Code lines: 2");
    EXPECT_EQ(Of("c.go"),
              "public sub C.Go|Sub Go()|Belongs to: class C|Called by: 0 certain, 1 possible|"
              "Calls: 0 certain, 0 possible|Lines: 1\u20132 (2)");
}

TEST_F(Hover, SaysWhyProceduresAreUndead) {
    ReadModule(R"(
        Sub a()
            b
        End Sub
        Sub b()
            a
        End Sub
        Sub c()
            d
        End Sub
        Sub d()
            e
        End Sub
        Sub e()
            d
        End Sub
    )",
               "M.bas");
    Analyse();
    const auto why = [](std::string_view path) {
        const std::string text = Of(path);
        return text.substr(text.rfind('|') + 1);
    };
    EXPECT_EQ(why("m.a"), "Undead: only a ring of its own calls it: M.b");
    EXPECT_EQ(why("m.d"), "Undead: only dead code calls it: M.c, M.e");
    EXPECT_EQ(why("m.e"), "Undead: only dead code calls it: M.d");
}

TEST_F(Hover, CallsBetweenTwoObjectsAreCounted) {
    ReadProject({{"M.bas", "Sub S()\r\n  T\r\n  T\r\n  x.Go\r\nEnd Sub\r\nSub T()\r\nEnd Sub\r\n"},
                 {"C.cls", "Sub Go()\r\nEnd Sub\r\n"}});
    Analyse();
    const CodeObject& caller = *modMain::GetObjectFromCodePath("m.s");
    const CodeObject& target = *modMain::GetObjectFromCodePath("m.t");
    EXPECT_EQ(CallsText(caller, target, CallType::Really), "2 certain, first in line: 2");
    EXPECT_EQ(CallsText(ModuleOf("m"), target, CallType::Really), "2 certain, first in line: 2");
    EXPECT_EQ(CallsText(caller, target, CallType::MayBe), "");
    EXPECT_EQ(CallsText(caller, *modMain::GetObjectFromCodePath("c.go"), CallType::MayBe),
              "1 possible, first in line: 4");
}

TEST_F(Hover, FormIsCalledOverItsInstance) {
    ReadProject({{"M.bas", "Sub S()\r\n  F.Show\r\nEnd Sub\r\n"}, {"F.frm", "Sub X()\r\nEnd Sub\r\n"}});
    Analyse();
    EXPECT_NE(Of("f").find("|Called by: 1 certain, 0 possible|"), std::string::npos) << Of("f");
    EXPECT_EQ(CallsText(ModuleOf("m"), ModuleOf("f"), CallType::Really), "1 certain, first in line: 2");
}

TEST_F(Hover, IsUtf8WhateverTheSourceIs) {
    ReadModuleAsItIs(
        "Sub Gr\xFC\xDF"
        "e()\r\nEnd Sub\r\n",
        "M.bas");
    EXPECT_TRUE(Of("m.gr\xFC\xDF"
                   "e")
                    .starts_with("public sub M.Gr\u00FC\u00DFe|Sub Gr\u00FC\u00DFe()|"));
    ReadModuleAsItIs("Sub L(a)\r\n" + std::string(400, ' ') + "\r\nEnd Sub\r\nPublic Sub K(" + std::string(300, 'x') +
                         ")\r\nEnd Sub\r\n",
                     "M.bas");
    EXPECT_NE(Of("m.k").find("xxx\u2026|"), std::string::npos);
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
