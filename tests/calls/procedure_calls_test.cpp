#include <gtest/gtest.h>

#include <initializer_list>

#include "calls/driver.h"
#include "calls/keywords.h"
#include "model/clsProzedur.h"
#include "support/call_dumps.h"
#include "support/marked.h"
#include "support/program_state.h"
#include "support/read_project.h"

namespace {

struct Case {
    const char* body;
    const char* edges;
};

class ProcedureCalls : public ProgramState {
protected:
    // What `body` calls and uses as the body of a sub in Main.bas, beside a few modules that know each other.
    static std::string Of(std::string_view body) {
        ReadProject({{"Main.bas", Vb(R"(
                         Private Type Rec
                             part As Long
                             inner As Thing
                             input As Thing
                             step As Long
                         End Type
                         Private t As Thing, u, n As Long, r As Rec
                         Sub Go(Optional a, Optional b): End Sub
                         Function Calc(x) As Thing: End Function
                         Property Get P(): End Property
                         Property Let P(v): End Property
                         Property Set P(o): End Property
                         Sub Main()
                     )")
                                          .text +
                                      std::string(body) + "\r\nEnd Sub\r\n"},
                     {"Lib.bas", Vb(R"(
                         Public g As Thing, n As Long
                         Public Const Limit = 1
                         Public Enum Shade
                             red
                         End Enum
                         Public Sub Help(Optional x): End Sub
                         Public Sub Go(): End Sub
                         Public Function Fetch() As Thing: End Function
                         Public Property Get Prop(): End Property
                         Private Sub Hidden(): End Sub
                     )")
                                     .text},
                     {"Thing.cls", Vb(R"(
                         Public Value As Long, Inner As Thing
                         Public Sub Run(Optional x): End Sub
                         Public Function Ask(Optional x) As Thing: End Function
                         Public Property Get Name(): End Property
                         Public Property Let Name(v): End Property
                         Public Property Set Name(o): End Property
                         Private Sub Secret(): End Sub
                     )")
                                       .text},
                     {"Other.cls", "Public Only\r\n"},
                     {"Form1.frm", Vb(R"(
                         Begin VB.Form Form1
                            Begin VB.CommandButton Command1
                            End
                            Begin Project1.Dial Dial1
                            End
                         End
                         Public Sub Redraw(): End Sub
                     )")
                                       .text},
                     {"Dial.ctl", "Public Property Let Turn(v): End Property\r\n"}});
        Who_Calls_Who(*gProjekt);
        return DumpEdgesOf("main.main");
    }
    static void Expect(std::initializer_list<Case> cases) {
        for (const Case& c : cases) {
            SCOPED_TRACE(c.body);
            EXPECT_EQ(Of(c.body), c.edges);
        }
    }
    // What the procedure at `caller` calls and uses in a project of one module.
    static std::string Of(std::string_view snippet, std::string_view file, std::string_view caller) {
        ReadModule(snippet, file);
        Who_Calls_Who(*gProjekt);
        return DumpEdgesOf(caller);
    }
};

}  // namespace

TEST_F(ProcedureCalls, WordAtTheStartOfAStatementIsCalled) {
    Expect({{"Go", "> go"},
            {"Go n, 2", "> go; > n"},
            {"Go (n)", "> go; > n"},
            {"Go(n)", "> go; > n"},
            {"Call Go(n)", "> go; > n"},
            {"Calc 1", "> calc"},
            {"n = 1: Go: Go", "> n; > go; > go"},
            {"If n Then Go", "> n; > go"},
            {"P", ""}});  // a property is never called
}

TEST_F(ProcedureCalls, WordInAValueIsRead) {
    Expect({{"n = P", "> n; > p [get]"},
            {"n = Calc(1) + P", "> n; > calc; > p [get]"},
            {"n = Go", "> n"},
            {"If P Then", "> p [get]"},
            {"Do While P <> n", "> p [get]; > n"},
            {"Case P", "> p [get]"},
            {"For n = P To P", "> n; > p [get]; > p [get]"},
            {"Print P", "> p [get]"},
            {"n = 1 & P", "> n; > p [get]"}});
}

TEST_F(ProcedureCalls, EqualsSignBehindTheWordAssignsToIt) {
    Expect({{"P = 1", "> p [let]"},
            {"P = P", "> p [let]; > p [get]"},
            {"Set P = t", "> p [set]; > t"},
            {"P(1) = 2", "> p [let]"},
            {"P(n = 1) = 2", "> p [let]; > n"},
            {"Set P(1) = t", "> p [set]; > t"},
            {"If n Then P = 1", "> n; > p [let]"}});
}

// The first argument behind a comma and a blank makes the rest of the statement a value; a lone argument is judged as
// a call itself.
TEST_F(ProcedureCalls, ArgumentsWithoutBrackets) {
    Expect({{"Go P", "> go"},
            {"Go Calc", "> go; > calc"},
            {"Go -P", "> go; > p [get]"},
            {"Go P, n", "> go; > p [get]; > n"},
            {"Go n, P", "> go; > n; > p [get]"},
            {"Go \"a.b\", P", "> go; > p [get]"},
            {"Go t.Name, P", "> go; > t; > thing.name [get]; > p [get]"}});
}

TEST_F(ProcedureCalls, ObjectsOnTheWayAreRead) {
    Expect({{"t.Run", "> t; > thing.run"},
            {"t.Run n", "> t; > thing.run; > n"},
            {"Call t.Run(n)", "> t; > thing.run; > n"},
            {"t.Name = 1", "> t; > thing.name [let]"},
            {"Set t.Name = u", "> t; > thing.name [set]; > u"},
            {"P(1).Value = 2", "> p [get]; ? thing.value"},
            {"Calc(1).Value = 2", "> calc; > thing.value"},
            {"Go(1).Value = 2", "? thing.value"},  // a sub is not read
            {"n = t.Ask.Name", "> n; > t; > thing.ask; > thing.name [get]"},
            {"t.Inner.Inner.Run", "> t; > thing.inner; > thing.inner; > thing.run"},
            {"r.part = r.inner.Value", "> r; > rec.part; > r; > rec.inner; > thing.value"}});
}

TEST_F(ProcedureCalls, EachBracketHasItsOwnChain) {
    Expect({{"n = Calc(t.Inner).Name", "> n; > calc; > t; > thing.inner; > thing.name [get]"},
            {"t.Ask(r.inner).Run", "> t; > thing.ask; > r; > rec.inner; > thing.run"},
            {"n = Calc(Calc(u).Inner).Value", "> n; > calc; > calc; > u; > thing.inner; > thing.value"}});
}

TEST_F(ProcedureCalls, UnbalancedBracketsEndWithTheStatement) {
    Expect({{"n = Calc(t.Value\r\nGo P, 1", "> n; > calc; > t; > thing.value; > go; > p [get]"},
            {"n = t).Value\r\nP = 1", "> n; > t; ? thing.value; > p [let]"},
            {"Go ))((n", "> go; > n"}});
}

TEST_F(ProcedureCalls, WithGivesItsObjectToTheDotsInside) {
    Expect({{"With t: .Run: End With", "> t; > thing.run"},
            {"With t: .Value = 1: .Name = 2: End With", "> t; > thing.value; > thing.name [let]"},
            {"With t: Set .Name = u: End With", "> t; > thing.name [let]; > u"},  // the dot makes a name of Set
            {"With t: n = .Name: End With", "> t; > n; > thing.name [get]"},
            {"With t: n = 1 + .Value * .Value: End With", "> t; > n; > thing.value; > thing.value"},
            {"With t: If .Value Then .Run: End With", "> t; > thing.value; > thing.run"},
            {"With t: n = Not .Value And .Value: End With", "> t; > n; > thing.value; > thing.value"},
            {"With t: Load .Inner: End With", "> t; > thing.inner"},
            {"With t: Go .Value, .Name: End With", "> t; > go; > thing.value; > thing.name [get]"},
            {"With t: r.inner.Run: End With", "> t; > r; > rec.inner; > thing.run"},
            {"With t: .Inner.Inner.Run: End With", "> t; > thing.inner; > thing.inner; > thing.run"}});
}

TEST_F(ProcedureCalls, LastNameOfTheWithLineIsTheObject) {
    Expect({{"With r.inner: .Run: End With", "> r; > rec.inner; > thing.run"},
            {"With Calc(n): .Run: End With", "> calc; > n; > thing.run"},
            {"With New Thing: .Run: End With", ""},
            {"With u: .Run: End With", "> u"}});
}

TEST_F(ProcedureCalls, NestedWithKnowsNothingOfTheOuterOne) {
    Expect({{"With u: With t: .Run: End With: End With", "> u; > t; > thing.run"},
            // behind the inner one nothing is active any more
            {"With t: With u: End With: .Run: n = .Value: End With", "> t; > u; ? thing.run; > n; ? thing.value"},
            {"With t: With .Inner: .Value = 1: End With: End With", "> t; ? rec.inner; ? thing.inner"}});
}

// Only the dot that opens a statement is certain of the object.
TEST_F(ProcedureCalls, UnknownMembersInsideWith) {
    Expect({{"With t: .Only = 1: End With", "> t"},
            {"With t: n = .Only: End With", "> t; > n; ? other.only"},
            {"With t: u.Only = 1: End With", "> t; > u; ? other.only"},
            // a dot behind a bracket goes on with what the bracket held before
            {"With t: n = Calc(.Value): End With", "> t; > n; > calc; ? thing.value"},
            {"With u: n = Calc(t) + Calc(.Value): End With", "> u; > n; > calc; > t; > calc; > thing.value"}});
}

TEST_F(ProcedureCalls, NamedArgumentsAreJudgedAsNames) {
    Expect({{"Go b:=P", "> go; > p [get]"},
            {"Go n:=1", "> go; > n"},
            {"Calc(x:=P)", "> calc; > p [get]"},
            {"t.Run x:=n", "> t; > thing.run; > n"}});
}

TEST_F(ProcedureCalls, TypesBehindAsAreUsed) {
    Expect({{"Dim a As Thing", ": thing"},
            {"Dim a As Thing, b As Other", ": thing; : other"},
            {"Dim a As New Thing", ": thing"},
            {"Dim a(n) As Rec", "> n; : rec [type]"},
            {"Dim a As Project1.Thing, b As Lib.Shade", ": thing; : lib.shade [enum]"},
            {"Dim a As Long, b As Form1, c As Dial", ": form1; : dial"},
            {"Dim a As Lib", ""},  // a standard module is no type
            {"Set t = New Thing", "> t"}});
}

TEST_F(ProcedureCalls, HeadsUseTheTypesOfArgumentsAndResult) {
    EXPECT_EQ(Of(R"(
        Private Type T
            m As Long
        End Type
        Private Enum E
            k
        End Enum
        Function F(a As T, b() As E, Optional c As Long = k) As T
        End Function
    )",
                 "M.bas", "m.f"),
              ": t [type]; : e [enum]; : t [type]");
}

TEST_F(ProcedureCalls, KeywordBehindADotStaysOneUnlessADotFollows) {
    Expect({{"t.Open n", "> t; > n"},
            {"u.Open P", "> u; > p [get]"},
            {"r.step = 1", "> r"},
            {"r.input.Value = 1", "> r; > rec.input; > thing.value"},
            {"u!Only = 1", "> u"}});
}

TEST_F(ProcedureCalls, ModulesControlsAndUserControls) {
    Expect({{"Form1.Redraw", "> form1; > form1.redraw"},
            {"Form1.Command1(2).Caption = n", "> form1; > form1.command1; > n"},
            {"Form1.Dial1.Turn = 1", "> form1; > form1.dial1; > dial.turn [let]"},
            {"Load Form1", ""},                       // a module is only read
            {"Command1.Value = 1", "? thing.value"},  // a control of another form is no bare name
            {"u.Command1.Turn = 1", "> u; ? form1.command1; ? dial.turn [let]"},
            {"Lib.Help", "> lib; > lib.help"},
            {"Lib.Hidden", "> lib; > lib.hidden"}});
}

TEST_F(ProcedureCalls, PublicNamesOfOtherModules) {
    Expect({{"Help 1", "> lib.help"},
            {"Fetch", "> lib.fetch"},
            {"n = Fetch.Value", "> n; > lib.fetch; > thing.value"},
            {"n = Help", "> n"},
            {"g = Limit", "> lib.g; > lib.limit"},
            {"g.Run", "> lib.g; > thing.run"},
            {"Go g", "> go"},  // a public variable is not called
            {"n = red", "> n; > lib.shade.red"},
            {"n = Shade.red", "> n"},
            {"n = Only", "> n; > other.only"},
            {"n = Prop", "> n"},
            {"n = Ask + Redraw", "> n"},
            {"Hidden", ""}});
}

TEST_F(ProcedureCalls, NearerNamesShadowFartherOnes) {
    Expect({{"n = 1", "> n"},  // Lib has an n and a Go as well
            {"Lib.n = 1", "> lib; > lib.n"},
            {"Go", "> go"},
            {"Dim n, Go: n = Go", ""},  // locals give no edges
            {"Dim t As Other: t.Only = 1", ": other; > other.only"},
            {"n = part", "> n"}});  // members are no bare names
    EXPECT_EQ(Of("Function F(a)\nF = a\nEnd Function\nSub S()\nF 1\nEnd Sub", "M.bas", "m.f"), "");
    EXPECT_EQ(DumpEdgesOf("m.s"), "> f");
}

TEST_F(ProcedureCalls, MeReachesPrivateMembersAndEventsAreCalled) {
    EXPECT_EQ(Of(R"(
        Public Event Done(x)
        Private v As Long
        Private Sub Secret()
        End Sub
        Sub Run()
            Me.Secret
            Me.v = 1
            RaiseEvent Done(v)
        End Sub
    )",
                 "C.cls", "c.run"),
              "> me; > secret; > me; > v; > done; > v");
}

TEST_F(ProcedureCalls, EdgesStandAtTheirTokens) {
    const Marked vb = Vb(R"(
        Sub Help()
        End Sub
        Sub Run(Optional a As {{Long}})
            {{Help}}: {{Help}} ' Help
            x = "Help" & {{v}} _
                + {{v}}
        End Sub
        Public Function v(): End Function
    )");
    ReadModuleAsItIs(vb.text);
    Who_Calls_Who(*gProjekt);
    EXPECT_EQ(DumpEdges(),
              "module1.run > module1.help; module1.run > module1.help; module1.run > module1.v; "
              "module1.run > module1.v");
    std::size_t mark = 1;
    gProjekt->calls.ForEach([&](const clsCall& call) { EXPECT_EQ(call.CallPos, vb.pos(++mark)); });
}

// Only the numbers are compared, of whatever module they are.
TEST_F(ProcedureCalls, NoEdgeToAProcedureWhoseNameStandsAtTheSamePosition) {
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
