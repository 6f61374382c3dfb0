// Tests where declarations and procedures begin, and which reader is called for each.
#include "structure/sections.h"

#include "structure/reading.h"

namespace {

class Sections : public ProgramState {
protected:
    // The mark is the first token of the procedures section.
    static void ExpectProceduresAtMark(std::initializer_list<std::string_view> snippets) {
        for (const std::string_view snippet : snippets) {
            SCOPED_TRACE(snippet);
            const clsModul& modul = ReadModule(snippet);
            EXPECT_EQ(modul.BeginnProcBereich, Vb(snippet).pos());
            EXPECT_EQ(modul.tokens->PosOf(modul.TokNrBeginnProcBereich), Vb(snippet).pos());
        }
    }
};

}  // namespace

TEST_F(Sections, ProceduresStartWithTheFirstOneAndItsAccessWord) {
    ExpectProceduresAtMark({"Dim a\n{{Sub}} S()\nEnd Sub\nSub T()\nEnd Sub", "{{Function}} F()\nEnd Function",
                            "Dim a\n{{Private}} Sub S()\nEnd Sub", "{{Public}} Property Get P()\nEnd Property",
                            // other words are not part of it
                            "Friend {{Sub}} S()\nEnd Sub", "Public Static {{Sub}} S()\nEnd Sub"});
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

TEST_F(Sections, DeclarationsBeginAfterHeaderAndAttributes) {
    for (const auto& [file, snippet] :
         {std::pair("A.bas", "{{Dim}} a"),
          std::pair("A.bas", "Attribute VB_Name = \"A\"\nAttribute VB_Other = 1\n{{Option}} Explicit\nDim a"),
          std::pair("C.cls", "VERSION 1.0 CLASS\nBEGIN\n  MultiUse = -1\nEND\nAttribute VB_Name = \"C\"\n{{Dim}} a"),
          std::pair("F.frm", "Begin VB.Form F\nBegin VB.Label l\nEnd\nEnd\n{{Dim}} a\nSub S()\nBegin = 1\nEnd Sub")})
        EXPECT_EQ(ReadModule(snippet, file).BeginnVarBereich, Vb(snippet).pos()) << snippet;
    // The End of the header is the last token of the module.
    const Marked vb = Vb("VERSION 1.0 CLASS\nBEGIN\n  MultiUse = -1\n{{END}}");
    const clsModul& empty = ReadModuleAsItIs(vb.text, "C.cls");
    EXPECT_EQ(empty.BeginnVarBereich, vb.last() + 1);
    EXPECT_EQ(DumpObjects(empty), "");
}

TEST_F(Sections, WordsOfHeadersAndHiddenCodeDeclareNothing) {
    ExpectObjects({{"Begin VB.Form Form1\n  Begin VB.Menu mnuType\n    Caption = \"Type\"\n  End\n  Type = 2\n"
                    "  Public = \"Dim x\"\nEnd\nOption Explicit\nImplements IThing\nPrivate b: Public c\n"
                    "#If Win16 Then\nPrivate Declare Sub j Lib \"j\" ()\n#Else\n"
                    "Private Declare Sub k Lib \"k\" ()\n#End If\nPublic Event l(m As Long)\nEvent n()\n"
                    "Public WithEvents o As Thing\nSub p(): End Sub\nPrivate late As Long",
                    "public control mnuType as vb.menu; private b as variant; public c as variant; "
                    "private declare sub k() as variant; public event sub l(argument m as long); "
                    "public event sub n(); public o as thing; public sub p()"}},
                  "Form1.frm");
}

TEST_F(Sections, OtherWordsBeforeAProcedureLeaveItPublic) {
    ExpectObjects(
        {{"Friend Sub C(): End Sub\nPrivate Static Sub D(): End Sub\nPublic Event F()\nGlobal Sub G(): End Sub",
          "public sub C(); public sub D(); public event sub F(); public sub G()"}});
}
