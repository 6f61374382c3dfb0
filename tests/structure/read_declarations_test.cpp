// Variables, constants, types, enumerations and declares before the first procedure.
#include <gmock/gmock.h>

#include "model/clsEnum.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"
#include "source/module_text.h"
#include "structure/reading.h"
#include "support/program_state.h"

namespace {

using Variables = ProgramState;
using Constants = ProgramState;
using Types = ProgramState;
using Enums = ProgramState;
using Declares = ProgramState;

}  // namespace

TEST_F(Variables, TakeTheirTypeFromAsOrASign) {
    ExpectObjects({{"Dim a", "private a as variant"},
                   {"Dim a, b As Long", "private a as variant; private b as long"},
                   {"Dim s$, n&, i%", "private s as string; private n as long; private i as integer"},
                   {"Dim f!, d#, c@", "private f as single; private d as double; private c as currency"},
                   {"Dim a As New Lib.Thing", "private a as lib.thing"},
                   {"Dim a As String * 10", "private a as string*10"},
                   {"Private a As Long, _\n    b As Byte", "private a as long; private b as byte"}});
}

TEST_F(Variables, BoundsOfArraysAreNotKept) {
    ExpectObjects({{"Dim a(1 To 5) As Integer, s$(), b(3, 4)",
                    "private a as integer; private s as string; private b as variant"}});
}

TEST_F(Variables, AccessComesFromTheFirstWord) {
    ExpectObjects({{"Private a", "private a as variant"},
                   {"Public a", "public a as variant"},
                   {"Global a", "public a as variant"},
                   {"Dim WithEvents a As Foo", "private a as foo"},
                   {"Public WithEvents a As Foo", "public a as foo"},
                   {"WithEvents a As Foo", "public a as foo"}});
}

TEST_F(Variables, NothingButCommasMakesNone) {
    ExpectObjects({{"Dim\nDim b", "private b as variant"}, {"Dim , b", "private b as variant"}, {"Private (x)", ""}});
}

TEST_F(Variables, AndConstantsStandWhereTheirNameIs) {
    const std::string_view snippet = "Private {{Counter}} As Long, {{Total}}@\nConst A = 1, {{B}} As Long = 2";
    const clsModul& modul = ReadModule(snippet);
    EXPECT_EQ(Place(*modul.MyVars.Item("counter")), Vb(snippet).ranges[0]);
    EXPECT_EQ(Place(*modul.MyVars.Item("total")), Vb(snippet).ranges[1]);
    EXPECT_EQ(Place(*modul.MyVars.Item("b")), Vb(snippet).ranges[2]);
}

TEST_F(Constants, ExistWhereAnEqualSignStands) {
    ExpectObjects({{"Const A = 1, B = 2", "public const A as variant; public const B as variant"},
                   {"Const A", ""},
                   {"Const = 1", ""},
                   {"Const A = 1, = 2", "public const A as variant"},
                   {"Const A = (1 = 2), B = 3", "public const A as variant; public const B as variant"},
                   {"Const A = 1 = 2", "public const A as variant"},
                   {"#Const A = 1", "public const A as variant"}});
}

TEST_F(Constants, TakeAccessAndTypeAsVariablesDo) {
    ExpectObjects({{"Private Const A = 1", "private const A as variant"},
                   {"Global Const A = 1", "public const A as variant"},
                   {"Dim Const A = 1", "public const A as variant"},
                   {"Const A& = 1, B$ = \"x\"", "public const A as long; public const B as string"},
                   {"Const A As Date = #1/5/2004#, B As String = \"x, y = z\"",
                    "public const A as date; public const B as string"}});
}

TEST_F(Types, EachAsMakesAMember) {
    ExpectObjects({{R"(
        Private Type Point
            x As Long: y As Long
            Names(1 To 3) As String * 10   ' three of them
            Owner As New Lib.Thing
            X As Byte
            stray
        End Type
        Type Plain
            Dim As Byte
        End Type: Dim behind
    )",
                    "private type Point(x as long, y as long, Names as string*10, Owner as newlib.thing); "
                    "public type Plain(Dim as byte); private behind as variant"}});
}

TEST_F(Types, AndTheirMembersKnowWhereTheyStand) {
    const std::string_view snippet = "{{Private Type {{Point}}\n    {{x}} As Long\nEnd Type}}";
    const Marked vb = Vb(snippet);
    const clsModul& modul = ReadModule(snippet);
    const clsType& type = *modul.myTypes.Item("point");
    EXPECT_EQ(Place(type), vb.ranges[0]);
    EXPECT_EQ(type.NamePos, vb.pos(2));
    const clsVariable& x = *type.MyVars.Item("x");
    EXPECT_EQ(Place(x), PosRange(vb.pos(3), -1));
    EXPECT_EQ(x.Zugriff, "type member");
    EXPECT_EQ(x.MyType, &type);
    EXPECT_EQ(x.Modul, &modul);
}

TEST_F(Enums, FirstWordOfEachStatementIsAMember) {
    ExpectObjects({{R"(
        Public Enum Colour
            Red = 1: Green
            ' between
            Blue = Red + _
                   2
            [_Last]
        End Enum
        Private Enum Empty
        End Enum
        Enum Plain
            Dim
        End Enum: Dim behind
    )",
                    "public enum Colour(Red as long, Green as long, Blue as long, [_Last] as long); "
                    "private enum Empty(); public enum Plain(Dim as long); private behind as variant"}});
}

TEST_F(Enums, AndTheirMembersKnowWhereTheyStand) {
    const std::string_view snippet = "{{Public Enum {{Colour}}\n    {{Red}} = 1\nEnd Enum}}";
    const Marked vb = Vb(snippet);
    const clsModul& modul = ReadModule(snippet);
    const clsEnum& colour = *modul.myEnums.Item("colour");
    EXPECT_EQ(Place(colour), vb.ranges[0]);
    EXPECT_EQ(colour.NamePos, vb.pos(2));
    const clsVariable& red = *colour.MyVars.Item("red");
    EXPECT_EQ(Place(red), vb.ranges[2]);
    EXPECT_EQ(red.Zugriff, "enum member");
    EXPECT_TRUE(red.IsConst);
    EXPECT_EQ(red.MyEnum, &colour);
}

TEST_F(Types, AndEnumsWithoutTheirEndRunToTheLastToken) {
    const std::string_view type = "Dim a\nType T\nx As Long\nDim {{b}}";
    EXPECT_EQ(Place(*ReadModule(type).myTypes.Item("t")).second, Vb(type).last());
    EXPECT_EQ(DumpObjects(ModuleOf("module1")), "private a as variant; public type T(x as long)");
    const std::string_view block = "Enum E\na\nb = {{1}}";
    EXPECT_EQ(Place(*ReadModule(block).myEnums.Item("e")).second, Vb(block).last());
    EXPECT_EQ(DumpObjects(ModuleOf("module1")), "public enum E(a as long, b as long)");
}

TEST_F(Declares, AreProceduresWithoutArguments) {
    ExpectObjects({{"Private Declare Function F Lib \"x\" Alias \"FA\" (ByVal a As Long, b As Any) As Long",
                    "private declare function F() as long"},
                   {"Public Declare Sub S Lib \"x\" (ByVal ms As Long)", "public declare sub S() as variant"},
                   {"Global Declare Function G Lib \"x\" ()", "public declare function G() as variant"},
                   {"Declare Function H Lib \"x\" () As Lib.Thing", "public declare function H() as lib.thing"},
                   {"Dim a\nPrivate Declare Function", "private a as variant"}});
}

TEST_F(Declares, EndWithTheStartOfTheirLastWord) {
    const std::string_view snippet =
        "{{Private}} Declare Function {{Tick}} Lib \"k\" _\n    (ByVal a As Long) As {{Long}}";
    const Marked vb = Vb(snippet);
    const clsProzedur& tick = *ReadModule(snippet).MyProcs.Item("tick");
    EXPECT_EQ(tick.DeclareStart, vb.pos(1));
    EXPECT_EQ(tick.NamePos, vb.pos(2));
    EXPECT_EQ(tick.DeclareEnd, vb.pos(3));
    EXPECT_EQ(tick.DeclareStartTNr, 0);
    EXPECT_EQ(tick.DeclareEndTNr, 0);
}
