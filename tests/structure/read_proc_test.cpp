#include "structure/read_proc.h"

#include "structure/reading.h"

namespace {

using Procedures = ProgramState;
using Arguments = ProgramState;
using Results = ProgramState;

class Locals : public ProgramState {
protected:
    // Each case is the body of `Sub S()` and its expected locals.
    static void ExpectLocals(std::initializer_list<Case> cases) {
        for (const Case& c : cases)
            ExpectObjects({{"Sub S()\n" + c.source + "\nEnd Sub", "public sub S(" + c.objects + ")"}});
    }
};

class Handlers : public ProgramState {
protected:
    // The subs of the module that are marked as handlers.
    static std::string Of(const std::string& file, const std::string& header,
                          std::initializer_list<std::string> names) {
        std::string text = header + "\r\nDim a\r\n";
        for (const std::string& name : names)
            text += "Private Sub " + name + "()\r\nEnd Sub\r\n";
        ReadProject({{file, text}, {"A.bas", "Dim a\r\n"}});
        std::string handlers;
        for (const clsProzedur* proc : gProjekt->OwnedModules().front()->MyProcs)
            if (proc->IsEvent)
                handlers.append(proc->myNameOrg()).append(" ");
        return handlers;
    }
};

}  // namespace

TEST_F(Procedures, KnowTheirPositions) {
    const std::string_view snippet = R"(
        Dim a
        {{Private Function {{Area}}{{(}}ByVal w As Long{{)}} As Long
            Exit Function
            If w Then
            End If
        End Function}}
        Sub Other()
        End Sub
    )";
    const Marked vb = Vb(snippet);
    const clsModul& modul = ReadModule(snippet);
    const clsProzedur& area = *modul.MyProcs.Item("area");
    EXPECT_EQ(Place(area), vb.ranges[0]);
    EXPECT_EQ(area.NamePos, vb.pos(2));
    EXPECT_EQ(area.ArgListStart, vb.pos(3));
    EXPECT_EQ(area.ArgListEnd, vb.pos(4));
    EXPECT_EQ(modul.tokens->PosOf(area.DeclareStartTNr), area.DeclareStart);
    EXPECT_EQ(modul.tokens->EndOf(area.DeclareEndTNr), area.DeclareEnd);
}

TEST_F(Procedures, EndOfAnotherKindClosesNothing) {
    ExpectObjects({{"Sub A()\nEnd Function\nExit Sub\nDim x\nEnd Sub\nSub B()\nEnd Sub",
                    "public sub A(local x as variant); public sub B()"},
                   {"Sub A()\nEnd Sub\nPrivate Property", "public sub A()"}});  // a head needs a name
}

TEST_F(Procedures, MissingEndRunsToTheLastToken) {
    const std::string_view snippet = "Sub A()\nDim x\nEnd If\nSub B()\nDim {{y}}";
    const clsModul& modul = ReadModule(snippet);
    EXPECT_EQ(DumpObjects(modul), "public sub A(local x as variant, local y as variant)");
    EXPECT_EQ(Place(*modul.MyProcs.Item("a")).second, Vb(snippet).last());
    // Without its line end the closing keyword of the last line is not a token.
    const clsModul& torn = ReadModuleAsItIs("Sub A()\r\nEnd Sub");
    EXPECT_EQ(torn.MyProcs.Item("a")->DeclareEndTNr, torn.tokens->Count());
    EXPECT_EQ(torn.tokens->Text(torn.text->ModulTextOrg(), torn.tokens->Count()), "End");
}

TEST_F(Arguments, TakeTheirTypeAsVariablesDoWithoutPassingWordsAndDefaults) {
    ExpectObjects(
        {{"Sub S(a, b As Long, c$)\nEnd Sub",
          "public sub S(argument a as variant, argument b as long, argument c as string)"},
         {"Sub S(a() As Lib.Thing, b$())\nEnd Sub", "public sub S(argument a as lib.thing, argument b as string)"},
         {"Sub S\nEnd Sub", "public sub S()"},
         {"Sub S(ByVal a As Long, ByRef b, Optional c As New X, ParamArray d())\nEnd Sub",
          "public sub S(argument a as long, argument b as variant, argument c as x, argument d as variant)"},
         {"Sub S(Optional a As Date = #1/5/2004#, _\n  Optional b$ = \"x, y\", Optional c = (1 + 2))\nEnd Sub",
          "public sub S(argument a as date, argument b as string, argument c as variant)"}});
}

TEST_F(Results, OfFunctionsAreAmongTheArguments) {
    ExpectObjects(
        {{"Function F$(a%)\nEnd Function", "public function F(argument a as integer, result F as string) as string"},
         {"Function F() As Byte()\nEnd Function", "public function F(result F as byte()) as byte()"},
         {"Function F() _\n  As Lib.Thing\nEnd Function", "public function F(result F as lib.thing) as lib.thing"},
         {"Function F()\nEnd Function", "public function F(result F as variant) as variant"},
         // Without brackets neither arguments nor the type after them are read.
         {"Function F As Long\nEnd Function", "public function F(result F as variant) as variant"},
         {"Function F() As Long\nDim f As Byte\nEnd Function", "public function F(local f as byte) as long"},
         // A Property Get without As has no type.
         {"Property Get P()\nEnd Property", "public property get P(result P)"},
         {"Property Get P%()\nEnd Property", "public property get P(result P as integer) as integer"}});
}

TEST_F(Locals, OfDimAndStatic) {
    ExpectLocals({{"Static a$, b As New Lib.Thing", "local a as string, local b as lib.thing"},
                  {"Dim a(1 To 5) As String * 10, _\n    b()", "local a as string*10, local b as variant"},
                  {"Dim a: Dim b As Long: x = 1: Static c", "local a as variant, local b as long, local c as variant"},
                  {"Dim a As Long, A As Byte", "local a as long"}});
}

TEST_F(Locals, ConstantWithoutATypeHasItsValueForOne) {
    ExpectLocals({{"Const x = 5", "local const x as 5"},
                  {"Const x = -5", "local const x as -"},
                  {"Const x As Long = 5", "local const x as long"},
                  // The name after the first comma counts as a part of the value before it.
                  {"Const a = 1, b = 2, c = 3", "local const a as 1, local const c as 3"},
                  {"Const a As Long = 1, b As Byte = 2", "local const a as longbyte"}});
}

TEST_F(Locals, ReDimDeclaresUnknownNamesOnly) {
    const std::string module = R"(
        Private mOwn() As Long
        Sub S(given)
            ReDim mOwn(5), mFresh(1 To n) As Byte
            ReDim Preserve gShared(2), mOther(2)
            ReDim given(3) As Long
            ReDim mOwn.Items(4)
        End Sub
    )";
    ReadProject({{"A.bas", module},
                 {"B.bas", "Public gShared() As Long\r\nPrivate mOther() As Long\r\n"},
                 {"C.cls", "Public mFresh As Long\r\n"}});
    EXPECT_EQ(DumpObjects(ModuleOf("a")),
              "private mOwn as long; "
              "public sub S(argument given as variant, local mFresh as byte, local mOther as variant)");
    ExpectLocals({{"ReDim .Field(5)", "local . as variant"}, {"ReDim rec.Items(5) As Long", "local rec as long"}});
}

TEST_F(Locals, AndArgumentsEndAfterTheirType) {
    const std::string_view snippet =
        "Sub S(ByVal {{a As Lib.Thing}}, {{b%}}, {{c}})\nDim {{d() As Lib.Thing}}, {{e}}\nEnd Sub";
    const Marked vb = Vb(snippet);
    const clsProzedur& proc = *ReadModule(snippet).MyProcs.Item("s");
    for (int nr = 1; nr <= 5; ++nr) {
        const PosRange mark = vb.ranges[static_cast<std::size_t>(nr) - 1];
        const bool hasType = nr != 3 && nr != 5;
        EXPECT_EQ(Place(*proc.MyVars.ItemNr(nr)), PosRange(mark.first, hasType ? mark.second : -1));
        EXPECT_EQ(proc.MyVars.ItemNr(nr)->Zugriff, nr <= 3 ? Access::Argument : Access::Procedure);
        EXPECT_EQ(proc.MyVars.ItemNr(nr)->Prozedur, &proc);
    }
}

TEST_F(Handlers, AreTheProceduresNamedAfterTheFormOrAControl) {
    EXPECT_EQ(Of("frmMain.frm",
                 "Begin VB.Form frmMain\r\nBegin VB.CommandButton cmd_Ok\r\nEnd\r\nBegin VB.TextBox txt\r\nEnd\r\nEnd",
                 {"Form_Load", "CMD_OK_Click", "txt_Helper", "cmd_Click", "txtOther_Change", "txt", "frmMain_Load",
                  "UserControl_Resize", "Class_Initialize"}),
              "Form_Load CMD_OK_Click txt_Helper ");
    EXPECT_EQ(Of("ctl.ctl", "Begin VB.UserControl ctl\r\nBegin VB.Label lbl\r\nEnd\r\nEnd",
                 {"UserControl_Resize", "lbl_Click", "Form_Load"}),
              "UserControl_Resize lbl_Click ");
    EXPECT_EQ(Of("Class1.cls", "Private WithEvents mBook As Book",
                 {"Class_Initialize", "Class_Terminate", "Class_InitProperties", "mBook_Opened", "Form_Load"}),
              "Class_Initialize Class_Terminate ");
    EXPECT_EQ(Of("B.bas", "", {"Form_Load", "Class_Initialize"}), "");
}
