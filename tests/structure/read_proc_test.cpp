#include "structure/read_proc.h"

#include <gmock/gmock.h>

#include "model/clsProzedur.h"
#include "model/clsVariable.h"
#include "source/module_text.h"
#include "structure/reading.h"
#include "structure/tokens.h"
#include "support/program_state.h"

using testing::ElementsAre;

namespace {

using Procedures = ProgramState;
using Arguments = ProgramState;
using Results = ProgramState;

class Locals : public ProgramState {
protected:
    // Bodies of `Sub S()`, and its locals.
    static void ExpectLocals(std::initializer_list<Case> cases) {
        for (const Case& c : cases)
            ExpectObjects({{"Sub S()\n" + c.source + "\nEnd Sub", "public sub S(" + c.objects + ")"}});
    }
};

class Handlers : public ProgramState {
protected:
    // Which of these subs of a module their reading marks.
    static std::vector<std::string> Of(const std::string& file, const std::string& header,
                                       std::initializer_list<std::string> names) {
        std::string text = header + "\r\nDim a\r\n";
        for (const std::string& name : names)
            text += "Private Sub " + name + "()\r\nEnd Sub\r\n";
        ReadProject({{file, text}, {"A.bas", "Dim a\r\n"}});
        std::vector<std::string> handlers;
        for (const clsProzedur* proc : gProjekt->OwnedModules().front()->MyProcs)
            if (proc->IsEvent)
                handlers.emplace_back(proc->myNameOrg());
        return handlers;
    }
};

}  // namespace

TEST_F(Procedures, KnowWhereTheyStand) {
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

TEST_F(Procedures, AccessorsOfAPropertyShareItsName) {
    const clsModul& modul = ReadModule(R"(
        Public Property Get Item(Key) As Thing
        End Property
        Private Property Let Item(Key, ByVal v As Long)
        End Property
        Property Set Item(Key, ByVal o As Thing)
        End Property
    )");
    EXPECT_EQ(DumpObjects(modul),
              "public property get Item(argument Key as variant, result Item as thing) as thing; "
              "private property let Item(argument Key as variant, argument v as long); "
              "public property set Item(argument Key as variant, argument o as thing)");
    std::vector<std::string> paths;
    for (const clsProzedur* proc : modul.MyProcs) {
        paths.push_back(proc->CodePathOrg());
        EXPECT_EQ(proc->MyVars.ItemNr(1)->CodePathOrg(), "Module1.Item.Key");
    }
    EXPECT_THAT(paths, ElementsAre("Module1.Item [Get]", "Module1.Item [Let]", "Module1.Item [Set]"));
}

TEST_F(Procedures, EventEndsWithItsStatement) {
    const std::string_view snippet = "{{Public Event Moved(ByVal x As Long, y%)}}\nDim a";
    const clsModul& modul = ReadModule(snippet);
    EXPECT_EQ(DumpObjects(modul),
              "public event sub Moved(argument x as long, argument y as integer); private a as variant");
    const clsProzedur& moved = *modul.MyProcs.Item("moved");
    EXPECT_EQ(Place(moved), Vb(snippet).ranges[0]);
    EXPECT_EQ(modul.tokens->EndOf(moved.DeclareEndTNr), moved.DeclareEnd);
}

TEST_F(Procedures, EndOfAnotherKindClosesNothing) {
    ExpectObjects({{"Sub A()\nEnd Function\nExit Sub\nDim x\nEnd Sub\nSub B()\nEnd Sub",
                    "public sub A(local x as variant); public sub B()"}});
}

TEST_F(Procedures, MissingEndRunsToTheLastToken) {
    const std::string_view snippet = "Sub A()\nDim x\nEnd If\nSub B()\nDim {{y}}";
    const clsModul& modul = ReadModule(snippet);
    EXPECT_EQ(DumpObjects(modul), "public sub A(local x as variant, local y as variant)");
    EXPECT_EQ(Place(*modul.MyProcs.Item("a")).second, Vb(snippet).last());
    // Without its line end the closing word of the last line is no token.
    const clsModul& torn = ReadModuleAsItIs("Sub A()\r\nEnd Sub");
    EXPECT_EQ(torn.MyProcs.Item("a")->DeclareEndTNr, torn.tokens->Count());
    EXPECT_EQ(torn.tokens->Text(torn.text->ModulTextOrg(), torn.tokens->Count()), "End");
}

TEST_F(Procedures, HeadWithoutANameMakesNone) {
    ExpectObjects({{"Sub A()\nEnd Sub\nPrivate Property", "public sub A()"}});
}

TEST_F(Arguments, TakeTheirTypeFromAsOrASign) {
    ExpectObjects(
        {{"Sub S(a, b As Long, c$)\nEnd Sub",
          "public sub S(argument a as variant, argument b as long, argument c as string)"},
         {"Sub S(a() As Lib.Thing, b$())\nEnd Sub", "public sub S(argument a as lib.thing, argument b as string)"},
         {"Sub S\nEnd Sub", "public sub S()"}});
}

TEST_F(Arguments, PassingWordsAndDefaultsAreNotKept) {
    ExpectObjects(
        {{"Sub S(ByVal a As Long, ByRef b, Optional c As New X, ParamArray d())\nEnd Sub",
          "public sub S(argument a as long, argument b as variant, argument c as x, argument d as variant)"},
         {"Sub S(Optional a As Date = #1/5/2004#, _\n  Optional b$ = \"x, y\", Optional c = (1 + 2))\nEnd Sub",
          "public sub S(argument a as date, argument b as string, argument c as variant)"}});
}

TEST_F(Results, OfFunctionsStandAmongTheArguments) {
    ExpectObjects(
        {{"Function F$(a%)\nEnd Function", "public function F(argument a as integer, result F as string) as string"},
         {"Function F() As Byte()\nEnd Function", "public function F(result F as byte()) as byte()"},
         {"Function F() _\n  As Lib.Thing\nEnd Function", "public function F(result F as lib.thing) as lib.thing"},
         {"Function F()\nEnd Function", "public function F(result F as variant) as variant"},
         // Without brackets no argument list is looked for, and no type behind it.
         {"Function F As Long\nEnd Function", "public function F(result F as variant) as variant"},
         {"Function F() As Long\nDim f As Byte\nEnd Function", "public function F(local f as byte) as long"}});
    const std::string_view snippet = "Private Function {{Area}}() As Long\nEnd Function";
    const clsVariable& result = *ReadModule(snippet).MyProcs.Item("area")->MyVars.Item("area");
    EXPECT_EQ(result.DeclareStart, Vb(snippet).pos());
    EXPECT_EQ(result.Zugriff, "argument");
}

TEST_F(Results, PropertyGetWithoutTypeStaysWithoutOne) {
    ExpectObjects({{"Property Get P()\nEnd Property", "public property get P(result P)"},
                   {"Property Get P%()\nEnd Property", "public property get P(result P as integer) as integer"},
                   {"Property Let P(v)\nEnd Property", "public property let P(argument v as variant)"}});
}

TEST_F(Locals, OfDimAndStatic) {
    ExpectLocals({{"Dim a, b As Long", "local a as variant, local b as long"},
                  {"Static a$, b As New Lib.Thing", "local a as string, local b as lib.thing"},
                  {"Dim a(1 To 5) As String * 10, _\n    b()", "local a as string*10, local b as variant"},
                  {"Dim a: Dim b As Long: x = 1: Static c", "local a as variant, local b as long, local c as variant"},
                  {"If x Then Dim a As Long", "local a as long"},
                  {"Dim a As Long, A As Byte", "local a as long"}});
}

TEST_F(Locals, ConstantWithoutATypeHasItsValueForOne) {
    ExpectLocals({{"Const x = 5", "local const x as 5"},
                  {"Const x = -5", "local const x as -"},
                  {"Const x As Long = 5", "local const x as long"},
                  {"Const x& = 5", "local const x as long"},
                  // The name behind the first comma is taken for a part of the value before it.
                  {"Const a = 1, b = 2, c = 3", "local const a as 1, local const c as 3"},
                  {"Const a As Long = 1, b As Byte = 2", "local const a as longbyte"}});
}

TEST_F(Locals, ReDimDeclaresUnknownNamesOnly) {
    const std::string_view module = R"(
        Private mOwn() As Long
        Sub S(given)
            ReDim mOwn(5), mFresh(1 To n) As Byte
            ReDim Preserve gShared(2), mOther(2)
            ReDim given(3) As Long
            ReDim mOwn.Items(4)
        End Sub
    )";
    ReadProject({{"A.bas", Vb(module).text},
                 {"B.bas", "Public gShared() As Long\r\nPrivate mOther() As Long\r\n"},
                 {"C.cls", "Public mFresh As Long\r\n"}});
    EXPECT_EQ(DumpObjects(ModuleOf("a")),
              "private mOwn as long; "
              "public sub S(argument given as variant, local mFresh as byte, local mOther as variant)");
    ExpectLocals({{"ReDim .Field(5)", "local . as variant"}, {"ReDim rec.Items(5) As Long", "local rec as long"}});
}

TEST_F(Locals, AndArgumentsEndBehindTheirType) {
    const std::string_view snippet =
        "Sub S(ByVal {{a As Lib.Thing}}, {{b%}}, {{c}})\nDim {{d() As Lib.Thing}}, {{e}}\nEnd Sub";
    const Marked vb = Vb(snippet);
    const clsProzedur& proc = *ReadModule(snippet).MyProcs.Item("s");
    for (int nr = 1; nr <= 5; ++nr) {
        const PosRange mark = vb.ranges[static_cast<std::size_t>(nr) - 1];
        const bool hasType = nr != 3 && nr != 5;
        EXPECT_EQ(Place(*proc.MyVars.ItemNr(nr)), PosRange(mark.first, hasType ? mark.second : -1));
        EXPECT_EQ(proc.MyVars.ItemNr(nr)->Zugriff, nr <= 3 ? "argument" : "procedure");
        EXPECT_EQ(proc.MyVars.ItemNr(nr)->Prozedur, &proc);
    }
}

TEST_F(Handlers, AreTheProceduresNamedAfterTheFormOrAControl) {
    EXPECT_THAT(
        Of("frmMain.frm",
           "Begin VB.Form frmMain\r\nBegin VB.CommandButton cmd_Ok\r\nEnd\r\nBegin VB.TextBox txt\r\nEnd\r\nEnd",
           {"Form_Load", "CMD_OK_Click", "txt_Helper", "cmd_Click", "txtOther_Change", "txt", "frmMain_Load",
            "UserControl_Resize", "Class_Initialize"}),
        ElementsAre("Form_Load", "CMD_OK_Click", "txt_Helper"));
    EXPECT_THAT(Of("ctl.ctl", "Begin VB.UserControl ctl\r\nBegin VB.Label lbl\r\nEnd\r\nEnd",
                   {"UserControl_Resize", "lbl_Click", "Form_Load"}),
                ElementsAre("UserControl_Resize", "lbl_Click"));
}

TEST_F(Handlers, OfAClassAreItsTwoOwnAndAModuleHasNone) {
    EXPECT_THAT(Of("Class1.cls", "Private WithEvents mBook As Book",
                   {"Class_Initialize", "Class_Terminate", "Class_InitProperties", "mBook_Opened", "Form_Load"}),
                ElementsAre("Class_Initialize", "Class_Terminate"));
    EXPECT_THAT(Of("B.bas", "", {"Form_Load", "Class_Initialize"}), ElementsAre());
}
