// Whatever bytes a module file holds: its two spellings have one length, and no position leaves the text.
#include <gtest/gtest.h>

#include <array>
#include <random>

#include "model/clsControl.h"
#include "model/clsEnum.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"
#include "platform/code_page.h"
#include "shell/settings.h"
#include "source/comments.h"
#include "source/cond_compile.h"
#include "source/module_text.h"
#include "structure/tokens.h"
#include "support/program_state.h"
#include "support/read_project.h"

namespace {

class AnyBytes : public ProgramState {
protected:
    // Reads `bytes` as a module of the kind that `seed` picks and looks at every position that was kept.
    void Check(const std::string& bytes, unsigned seed) {
        static constexpr std::array<const char*, 4> kFiles = {"M.bas", "M.frm", "M.cls", "M.ctl"};
        const clsModul& modul = ReadModuleAsItIs(bytes, kFiles[seed % kFiles.size()]);
        if (!modul.text)
            return;
        count_ = modul.text->CharCount();
        EXPECT_EQ(modul.text->ModulText().size(), modul.text->ModulTextOrg().size());
        EXPECT_EQ(modul.text->ModulText(), LowerCase(modul.text->ModulTextOrg()));
        CheckMap(modul);
        CheckTokens(*modul.tokens);
        Inside(modul.BeginnVarBereich, "start of the declarations");
        Inside(modul.BeginnProcBereich, "start of the procedures");
        Token(modul.TokNrBeginnVarBereich, modul);
        Token(modul.TokNrBeginnProcBereich, modul);
        for (const auto& object : modul.Owned())
            CheckObject(*object, modul);
        if (HasFailure())
            ADD_FAILURE() << testing::PrintToString(bytes) << " as " << kFiles[seed % kFiles.size()];
    }

private:
    void Inside(Pos pos, std::string_view what) const {
        if (pos < 0 || pos > count_ + 1)
            ADD_FAILURE() << what << " at " << pos << " of " << count_;
    }
    static void Token(int nr, const clsModul& modul) {
        if (nr < 0 || nr > modul.tokens->Count() + 1)
            ADD_FAILURE() << "token " << nr << " of " << modul.tokens->Count();
    }

    // The map was released after the reading and is made anew here: it must be the one that the steps leave.
    static void CheckMap(const clsModul& modul) {
        ModuleText text{std::string(modul.text->ModulTextOrg())};
        Comments_Initialisieren(text);
        Strings_Initialisieren(text);
        CondCompile_Initialisieren(text, gCondComps, "");
        const TokenTable tokens = Analyse_Parsen(text);
        EXPECT_EQ(tokens.All(), modul.tokens->All());
        for (Pos pos = 0; pos <= text.CharCount(); ++pos)
            ASSERT_EQ(text.FlagsAt(pos), modul.text->FlagsAt(pos)) << pos;
    }

    void CheckTokens(const TokenTable& tokens) const {
        int statement = 1;
        for (const auto& token : tokens.All()) {
            if (token.pos < 1 || token.len < 1 || token.pos + token.len > count_ + 1 || token.statementNr < statement ||
                token.statementNr > statement + 1)
                ADD_FAILURE() << "token at " << token.pos << " of length " << token.len;
            statement = token.statementNr;
        }
    }

    void CheckObject(const CodeObject& object, const clsModul& modul) const {
        Inside(object.DeclareStart, object.myNameOrg());
        Inside(object.DeclareEnd, object.myNameOrg());
        if (object.Class() == ObjectClass::Prozedur) {
            const auto& proc = static_cast<const clsProzedur&>(object);
            Inside(proc.ArgListStart, object.myNameOrg());
            Inside(proc.ArgListEnd, object.myNameOrg());
            Token(proc.DeclareStartTNr, modul);
            Token(proc.DeclareEndTNr, modul);
            CheckOwner(proc, modul);
        } else if (object.Class() == ObjectClass::Type) {
            CheckOwner(static_cast<const clsType&>(object), modul);
        } else if (object.Class() == ObjectClass::Enum) {
            CheckOwner(static_cast<const clsEnum&>(object), modul);
        }
    }
    template <class Owner>
    void CheckOwner(const Owner& owner, const clsModul& modul) const {
        Inside(owner.NamePos, owner.myNameOrg());
        for (const clsVariable* member : owner.MyVars)
            CheckObject(*member, modul);
    }

    Pos count_ = 0;
};

// Pieces of code, one between two "|"; "~" is a line end.
constexpr std::string_view kPieces =
    "~|~|~|~| _~|_~|\n|\r| | |   |\t|: |:|:=|, |,|.|(|)| = |=| + |-|<>|\"|\"|\"\"|'|' |~Rem | rem |rem|~#If |"
    "#If Win32 Then~|#If (| Then|~#ElseIf 1 Then~|~#Else~|~#End If~|#|~#Const a = 1~|~Attribute VB_Name = \"M\"~|"
    "Attribute |Begin VB.Form F~|Begin |~Begin VB.CheckBox chk~|~End~|End |Sub |End Sub|~Private Sub chk_Click()~|"
    "Function f(|End Function|Property Get p|Property Let |Event e(|Declare Function d Lib \"x\"|Declare |Private |"
    "Public |Global |Static |Friend |Dim |ReDim Preserve |Const |Type t~|End Type|Enum en~|End Enum|WithEvents |"
    "ByVal |Optional |ParamArray | As | As New |Long|String * 5|a|b1|x$|n&|&H10|1.5|rs!f|\xC4\xF6|With x~|";

TEST_F(AnyBytes, RandomBytesAreRead) {
    std::mt19937 random(20240501);
    for (unsigned round = 0; round < 3000 && !HasFailure(); ++round) {
        std::string bytes(random() % 120, '\0');
        const bool fewKinds = round % 2 == 0;  // so that signs meet more often
        for (char& c : bytes)
            c = fewKinds ? "\r\n \"'_#:=,.()as\xC4"[random() % 16] : static_cast<char>(random());
        Check(bytes, round);
    }
}

TEST_F(AnyBytes, RandomPiecesOfCodeAreRead) {
    std::vector<std::string> pieces{std::string(1, '\0')};
    for (std::size_t from = 0; from < kPieces.size(); from = kPieces.find('|', from) + 1)
        pieces.push_back(Replace(kPieces.substr(from, kPieces.find('|', from) - from), "~", vbCrLf));
    std::mt19937 random(20240502);
    for (unsigned round = 0; round < 4000 && !HasFailure(); ++round) {
        std::string text;
        for (unsigned more = random() % 60; more > 0; --more)
            text += pieces[random() % pieces.size()];
        Check(text, round);
    }
}

TEST_F(AnyBytes, TornModuleIsReadWhereverItEnds) {
    const std::string whole = Replace(
        "VERSION 5.00~Begin VB.Form Form1~  Begin VB.CommandButton cmd~    Caption = \"a\"\"b\"~  End~End~"
        "Attribute VB_Name = \"Form1\"~Option Explicit ' it's~#Const d = 1~#If d = 1 And Win32 Then~"
        "Private Declare Function F Lib \"u\" (ByVal a As Long) As Long~#Else~Rem none~#End If~"
        "Public Type T~  a(1 To 3) As String * 5~End Type~Enum E: A1 = 1: B1~End Enum~"
        "Event Done(ByVal Nr As Integer)~Const K$ = \"x: y\", L = 2~Dim WithEvents o As Foo, n&~"
        "Private Sub cmd_Click()~  Dim i%, s(5) As String * 4: ReDim Preserve q(1)~  x = rs!f & _~    \" _\"~End Sub~"
        "Property Get P(Optional v = 1) As Byte()~  Const c = 5~End Property~",
        "~", vbCrLf);
    for (std::size_t length = 0; length <= whole.size() && !HasFailure(); ++length)
        for (unsigned kind = 0; kind < 4; ++kind)
            Check(whole.substr(0, length), kind);
}

}  // namespace
