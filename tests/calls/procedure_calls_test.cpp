#include "calls/keywords.h"
#include "support/call_dumps.h"
#include "support/project_test.h"

namespace {

struct Case {
    const char* body;
    const char* edges;
};

class ProcedureCalls : public ProgramState {
protected:
    // The calls and uses of a sub in Main.bas with the body `body`, in a project of several modules that call each
    // other.
    static std::string Of(std::string_view body) {
        ReadProject(
            {{"Main.bas",
              "Private Type Rec\n part As Long\n inner As Thing\n input As Thing\n step As Long\nEnd Type\n"
              "Private t As Thing, u, n As Long, r As Rec\nSub Go(Optional a, Optional b): End Sub\n"
              "Function Calc(x) As Thing: End Function\nProperty Get P(): End Property\n"
              "Property Let P(v): End Property\nProperty Set P(o): End Property\nSub Main()\n" +
                  std::string(body) + "\nEnd Sub"},
             {"Lib.bas",
              "Public g As Thing, n As Long\nPublic Const Limit = 1\nPublic Enum Shade\n red\nEnd Enum\n"
              "Public Sub Help(Optional x): End Sub\nPublic Sub Go(): End Sub\n"
              "Public Function Fetch() As Thing: End Function\nPublic Property Get Prop(): End Property\n"
              "Private Sub Hidden(): End Sub"},
             {"Thing.cls",
              "Public Value As Long, Inner As Thing\nPublic Sub Run(Optional x): End Sub\n"
              "Public Function Ask(Optional x) As Thing: End Function\nPublic Property Get Name(): End Property\n"
              "Public Property Let Name(v): End Property\nPublic Property Set Name(o): End Property\n"
              "Private Sub Secret(): End Sub"},
             {"Other.cls", "Public Only"},
             {"Form1.frm",
              "Begin VB.Form Form1\nBegin VB.CommandButton Command1\nEnd\nBegin Project1.Dial Dial1\nEnd\nEnd\n"
              "Public Sub Redraw(): End Sub"},
             {"Dial.ctl", "Public Property Let Turn(v): End Property"}});
        Who_Calls_Who(*gProjekt);
        return DumpEdgesOf("main.main");
    }
    static void Expect(std::initializer_list<Case> cases) {
        for (const Case& c : cases)
            EXPECT_EQ(Of(c.body), c.edges) << c.body;
    }
    // The calls and uses of the procedure at `caller` in a project of one module.
    static std::string Of(std::string_view snippet, std::string_view file, std::string_view caller) {
        ReadModule(snippet, file);
        Who_Calls_Who(*gProjekt);
        return DumpEdgesOf(caller);
    }
};

}  // namespace

TEST_F(ProcedureCalls, WordAtTheStartOfAStatementIsCalled) {
    Expect({{"Go", "> go"},
            {"Go(n)", "> go; > n"},
            {"n = 1: Go: Go", "> n; > go; > go"},
            {"x = \"Go\" ' Go", ""},
            {"P", ""}});  // a property is never called
}

TEST_F(ProcedureCalls, WordInAValueIsRead) {
    Expect({{"n = P", "> n; > p [get]"},
            {"n = Go", "> n"},
            {"Do While P <> n", "> p [get]; > n"},
            {"For n = P To P", "> n; > p [get]; > p [get]"},
            {"n = 1 & P", "> n; > p [get]"}});
}

TEST_F(ProcedureCalls, EqualsSignAfterTheWordAssignsToIt) {
    Expect({{"P = 1", "> p [let]"},
            {"P = P", "> p [let]; > p [get]"},
            {"Set P = t", "> p [set]; > t"},
            {"P(n = 1) = 2", "> p [let]; > n"},
            {"Set P(1) = t", "> p [set]; > t"}});
}

// A comma and a blank between arguments make them values, which are read; a single argument counts as a call.
TEST_F(ProcedureCalls, ArgumentsWithoutBrackets) {
    Expect({{"Go P", "> go"},
            {"Go Calc", "> go; > calc"},
            {"Go -P", "> go; > p [get]"},
            {"Go \"a.b\", P", "> go; > p [get]"},
            {"Go t.Name, P", "> go; > t; > thing.name [get]; > p [get]"}});
}

TEST_F(ProcedureCalls, ObjectsOnTheWayAreRead) {
    Expect({{"t.Run", "> t; > thing.run"},
            {"P(1).Value = 2", "> p [get]; ? thing.value"},
            {"Calc(1).Value = 2", "> calc; > thing.value"},
            {"Go(1).Value = 2", "? thing.value"},  // a sub is not read
            {"n = t.Ask.Name", "> n; > t; > thing.ask; > thing.name [get]"},
            {"t.Inner.Inner.Run", "> t; > thing.inner; > thing.inner; > thing.run"},
            {"t.Run x:=n", "> t; > thing.run; > n"},
            // Each bracket has a chain of its own.
            {"n = Calc(Calc(u).Inner).Value", "> n; > calc; > calc; > u; > thing.inner; > thing.value"},
            {"r.part = r.inner.Value", "> r; > rec.part; > r; > rec.inner; > thing.value"}});
}

TEST_F(ProcedureCalls, UnbalancedBracketsEndWithTheStatement) {
    Expect({{"n = Calc(t.Value\nGo P, 1", "> n; > calc; > t; > thing.value; > go; > p [get]"},
            {"n = t).Value\nP = 1", "> n; > t; ? thing.value; > p [let]"},
            {"Go ))((n", "> go; > n"}});
}

TEST_F(ProcedureCalls, DotsInsideWithReferToItsObject) {
    Expect({{"With t: .Run: End With", "> t; > thing.run"},
            {"With t: Set .Name = u: End With", "> t; > thing.name [let]; > u"},  // after the dot, Set is a name
            {"With t: If .Value Then .Run: End With", "> t; > thing.value; > thing.run"},
            {"With t: Go .Value, .Name: End With", "> t; > go; > thing.value; > thing.name [get]"},
            {"With t: r.inner.Run: End With", "> t; > r; > rec.inner; > thing.run"},
            {"With t: .Inner.Inner.Run: End With", "> t; > thing.inner; > thing.inner; > thing.run"},
            // the object is the last name of the line
            {"With r.inner: .Run: End With", "> r; > rec.inner; > thing.run"},
            {"With Calc(n): .Run: End With", "> calc; > n; > thing.run"},
            {"With New Thing: .Run: End With", ""},
            {"With u: .Run: End With", "> u"}});
}

TEST_F(ProcedureCalls, NestedWithKnowsNothingOfTheOuterOne) {
    Expect({{"With u: With t: .Run: End With: End With", "> u; > t; > thing.run"},
            // after the inner End With no With object is active
            {"With t: With u: End With: .Run: n = .Value: End With", "> t; > u; ? thing.run; > n; ? thing.value"},
            {"With t: With .Inner: .Value = 1: End With: End With", "> t; ? rec.inner; ? thing.inner"}});
}

// The With object only determines a member after a dot that opens a statement.
TEST_F(ProcedureCalls, UnknownMembersInsideWith) {
    Expect({{"With t: .Only = 1: End With", "> t"},
            {"With t: n = .Only: End With", "> t; > n; ? other.only"},
            {"With t: u.Only = 1: End With", "> t; > u; ? other.only"},
            // a dot after a bracket continues the chain of the bracket's content
            {"With t: n = Calc(.Value): End With", "> t; > n; > calc; ? thing.value"},
            {"With u: n = Calc(t) + Calc(.Value): End With", "> u; > n; > calc; > t; > calc; > thing.value"}});
}

TEST_F(ProcedureCalls, TypesAfterAsAreUsed) {
    Expect({{"Dim a, b As New Thing", ": thing"},
            {"Dim a(n) As Rec", "> n; : rec [type]"},
            {"Dim a As Project1.Thing, b As Lib.Shade", ": thing; : lib.shade [enum]"},
            {"Dim a As Long, b As Form1, c As Dial", ": form1; : dial"},
            {"Dim a As Lib", ""},  // a standard module is not a type
            {"Set t = New Thing", "> t"}});
}

TEST_F(ProcedureCalls, KeywordAfterADotStaysAKeywordUnlessADotFollows) {
    Expect({{"t.Open n", "> t; > n"},
            {"r.step = 1", "> r"},
            {"r.input.Value = 1", "> r; > rec.input; > thing.value"},
            {"u!Only = 1", "> u"}});
}

TEST_F(ProcedureCalls, ModulesControlsAndUserControls) {
    Expect({{"Form1.Redraw", "> form1; > form1.redraw"},
            {"Form1.Command1(2).Caption = n", "> form1; > form1.command1; > n"},
            {"Form1.Dial1.Turn = 1", "> form1; > form1.dial1; > dial.turn [let]"},
            {"Load Form1", ""},                       // a module is only read
            {"Command1.Value = 1", "? thing.value"},  // a control of another form is not visible as a bare name
            {"u.Command1.Turn = 1", "> u; ? form1.command1; ? dial.turn [let]"},
            {"Lib.Hidden", "> lib; > lib.hidden"}});
}

TEST_F(ProcedureCalls, PublicNamesOfOtherModules) {
    Expect({{"Help 1", "> lib.help"},
            {"g = Limit", "> lib.g; > lib.limit"},
            {"Go g", "> go"},  // a public variable is not called
            {"n = red", "> n; > lib.shade.red"},
            {"n = Shade.red", "> n"},
            {"n = Only", "> n; > other.only"},
            {"n = Ask + Redraw", "> n"},
            {"Hidden", ""}});
}

TEST_F(ProcedureCalls, NearerNamesShadowFartherOnes) {
    Expect({{"n = 1", "> n"},  // Lib also has an n and a Go
            {"Lib.n = 1", "> lib; > lib.n"},
            {"Go", "> go"},
            {"Dim n, Go: n = Go", ""},  // locals get no edges
            {"Dim t As Other: t.Only = 1", ": other; > other.only"},
            {"n = part", "> n"}});  // members are not visible as bare names
    EXPECT_EQ(Of("Function F(a)\nF = a\nEnd Function\nSub S()\nF 1\nEnd Sub", "M.bas", "m.f"), "");
    EXPECT_EQ(DumpEdgesOf("m.s"), "> f");
}

TEST_F(ProcedureCalls, MeReachesPrivateMembersAndEventsAreCalled) {
    EXPECT_EQ(Of("Public Event Done(x)\nPrivate v As Long\nPrivate Sub Secret(): End Sub\n"
                 "Sub Run()\n  Me.Secret\n  Me.v = 1\n  RaiseEvent Done(v)\nEnd Sub",
                 "C.cls", "c.run"),
              "> me; > secret; > me; > v; > done; > v");
}

// Compares only the positions, also of procedures in different modules.
TEST_F(ProcedureCalls, NoEdgeToAProcedureWhoseNameIsAtTheSamePosition) {
    const std::string caller = "Sub Run()\r\nTarget\r\nEnd Sub\r\n";
    for (const auto& [target, edges] : {std::pair("'2345\r\nSub Target()\r\nEnd Sub\r\n", ""),
                                        std::pair("'23456\r\nSub Target()\r\nEnd Sub\r\n", "> a.target")}) {
        ReadProject({{"A.bas", target}, {"B.bas", caller}});
        Who_Calls_Who(*gProjekt);
        EXPECT_EQ(DumpEdgesOf("b.run"), edges);
    }
}

TEST(Numbers, AreTokensThatNameNothing) {
    for (const char* number :
         {"0", "12", "1.5", "1.", ".5", "1e5", "1.5e-3", "2d+4", "-1", "+.5", "&h10", "&hff", "&o17"})
        EXPECT_TRUE(IsNumeric(number)) << number;
    for (const char* word : {"", ".", "-", "x", "1x", "1.2.3", "e5", "1e", "1e+", "&h", "&hg", "&", "--1", "&o1a"})
        EXPECT_FALSE(IsNumeric(word)) << word;
}
