// Where declarations and procedures begin, and which reader each of them meets.
#include "structure/sections.h"

#include <gmock/gmock.h>

#include "source/module_text.h"
#include "structure/reading.h"
#include "structure/tokens.h"
#include "support/program_state.h"

namespace {

class Sections : public ProgramState {
protected:
    // A mark stands around the first token of the procedures.
    static void ExpectProceduresAtMark(std::initializer_list<std::string_view> snippets) {
        for (const std::string_view snippet : snippets) {
            SCOPED_TRACE(snippet);
            const clsModul& modul = ReadModule(snippet);
            EXPECT_EQ(modul.BeginnProcBereich, Vb(snippet).pos());
            EXPECT_EQ(modul.tokens->PosOf(modul.TokNrBeginnProcBereich), Vb(snippet).pos());
        }
    }
    static void ExpectDeclarationsAtMark(std::string_view snippet, std::string_view fileName) {
        SCOPED_TRACE(snippet);
        EXPECT_EQ(ReadModule(snippet, fileName).BeginnVarBereich, Vb(snippet).pos());
    }
};

}  // namespace

TEST_F(Sections, ProceduresStartWithTheFirstOneAndItsAccessWord) {
    ExpectProceduresAtMark({"Dim a\n{{Sub}} S()\nEnd Sub\nSub T()\nEnd Sub", "{{Function}} F()\nEnd Function",
                            "{{Property}} Get P()\nEnd Property", "Dim a\n{{Private}} Sub S()\nEnd Sub",
                            "Dim a\n{{Public}} Property Get P()\nEnd Property",
                            "{{Global}} Function F()\nEnd Function"});
}

TEST_F(Sections, OtherWordsBeforeTheFirstProcedureStayOutside) {
    ExpectProceduresAtMark({"Friend {{Sub}} S()\nEnd Sub", "Public Static {{Sub}} S()\nEnd Sub"});
}

TEST_F(Sections, NotEveryProcedureWordStartsOne) {
    ExpectProceduresAtMark({R"(
        Private Declare Sub Sleep Lib "kernel32" (ByVal ms As Long)
        Private Type Sub1
            Sub As Long
        End Type
        Public Enum Kind
            Function
        End Enum
        Const A = (Sub + Function)
        End Sub: Exit Function
        #If False Then
        Sub Old()
        End Sub
        #End If
        {{Sub}} S()
        End Sub
    )"});
}

TEST_F(Sections, ModuleWithoutProceduresHasThemAtItsEnd) {
    const Marked vb = Vb("Dim a\nDim {{b}}");
    const clsModul& modul = ReadModule("Dim a\nDim b");
    EXPECT_EQ(modul.BeginnProcBereich, Len(vb.text));
    EXPECT_EQ(modul.tokens->PosOf(modul.TokNrBeginnProcBereich), vb.pos());
    EXPECT_EQ(DumpObjects(modul), "private a as variant; private b as variant");
}

TEST_F(Sections, DeclarationsBeginBehindHeaderAndAttributes) {
    ExpectDeclarationsAtMark("{{Dim}} a", "A.bas");
    ExpectDeclarationsAtMark("Attribute VB_Name = \"A\"\nAttribute VB_Other = 1\n{{Option}} Explicit\nDim a", "A.bas");
    ExpectDeclarationsAtMark(
        "VERSION 1.0 CLASS\nBEGIN\n  MultiUse = -1  'True\nEND\nAttribute VB_Name = \"C\"\n{{Dim}} a", "C.cls");
    ExpectDeclarationsAtMark("Begin VB.Form F\nBegin VB.Label l\nEnd\nEnd\n{{Dim}} a\nSub S()\nBegin = 1\nEnd Sub",
                             "F.frm");
    // The header's own End is the last token of all.
    const Marked vb = Vb("VERSION 1.0 CLASS\nBEGIN\n  MultiUse = -1\n{{END}}");
    const clsModul& empty = ReadModuleAsItIs(vb.text, "C.cls");
    EXPECT_EQ(empty.BeginnVarBereich, vb.last() + 1);
    EXPECT_EQ(DumpObjects(empty), "");
}

TEST_F(Sections, EachDeclarationMeetsItsReader) {
    ExpectObjects({{R"(
        Begin VB.Form Form1
           Begin VB.Menu mnuType
              Caption = "Type"
           End
           Type = 2
           Public = "Dim x"
        End
        Option Explicit
        Implements IThing
        Dim a
        Private b: Public c
        Const d = 1
        Global Const e = 1
        Private Type f
            g As Long
        End Type
        Public Enum h
            i
        End Enum
        #If Win16 Then
        Private Declare Sub j Lib "j" ()
        #Else
        Private Declare Sub k Lib "k" ()
        #End If
        Public Event l(m As Long)
        Event n()
        Public WithEvents o As Thing
        Sub p()
        End Sub
        Private late As Long
    )",
                    "public control mnuType as vb.menu; private a as variant; private b as variant; "
                    "public c as variant; public const d as variant; public const e as variant; "
                    "private type f(g as long); public enum h(i as long); private declare sub k() as variant; "
                    "public event sub l(argument m as long); public event sub n(); public o as thing; public sub p()"}},
                  "Form1.frm");
}

TEST_F(Sections, EachProcedureMeetsItsReader) {
    ExpectObjects({{R"(
        Private Sub A()
        End Sub
        Public Function B()
        End Function
        Friend Sub C()
        End Sub
        Private Static Sub D()
        End Sub
        Public Event F()
        Global Sub G(): End Sub
    )",
                    "private sub A(); public function B(result B as variant) as variant; public sub C(); "
                    "public sub D(); public event sub F(); public sub G()"}});
}
