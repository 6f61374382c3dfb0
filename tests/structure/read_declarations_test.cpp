// Variables, constants, types, enumerations and declares before the first procedure.
#include "structure/reading.h"

namespace {

using Variables = ProgramState;
using Constants = ProgramState;
using Types = ProgramState;
using Enums = ProgramState;
using Declares = ProgramState;

}  // namespace

TEST_F(Variables, TakeTheirTypeFromAsOrASign) {
    ExpectObjects(
        {{"Dim a, b As Long", "private a as variant; private b as long"},
         {"Dim s$, n&, i%", "private s as string; private n as long; private i as integer"},
         {"Dim f!, d#, c@", "private f as single; private d as double; private c as currency"},
         {"Dim a As New Lib.Thing", "private a as lib.thing"},
         {"Dim a As String * 10", "private a as string*10"},
         {"Private a As Long, _\n    b As Byte", "private a as long; private b as byte"},
         {"Dim a(1 To 5) As Integer, s$(), b(3, 4)", "private a as integer; private s as string; private b as variant"},
         // A declaration without a name declares nothing.
         {"Dim\nDim b", "private b as variant"},
         {"Dim , b", "private b as variant"},
         {"Private (x)", ""}});
}

TEST_F(Variables, AccessComesFromTheFirstWord) {
    ExpectObjects({{"Global a", "public a as variant"},
                   {"Dim WithEvents a As Foo", "private a as foo"},
                   {"Public WithEvents a As Foo", "public a as foo"},
                   {"WithEvents a As Foo", "public a as foo"}});
}

TEST_F(Constants, ComeFromEachEqualSign) {
    ExpectObjects({{"Const A = 1, B = 2", "public const A as variant; public const B as variant"},
                   {"Const A", ""},
                   {"Const A = 1, = 2", "public const A as variant"},
                   {"Const A = (1 = 2), B = 3", "public const A as variant; public const B as variant"},
                   {"Const A = 1 = 2", "public const A as variant"},
                   {"#Const A = 1", "public const A as variant"},
                   {"Dim Const A = 1", "public const A as variant"},
                   {"Const A& = 1, B As String = \"x, y = z\"", "public const A as long; public const B as string"}});
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

TEST_F(Types, AndEnumsWithoutTheirEndRunToTheLastToken) {
    const std::string_view type = "Dim a\nType T\nx As Long\nDim {{b}}";
    EXPECT_EQ(Place(*ReadModule(type).myTypes.Item("t")).second, Vb(type).last());
    EXPECT_EQ(DumpObjects(ModuleOf("module1")), "private a as variant; public type T(x as long)");
    const std::string_view block = "Enum E\na\nb = {{1}}";
    EXPECT_EQ(Place(*ReadModule(block).myEnums.Item("e")).second, Vb(block).last());
    EXPECT_EQ(DumpObjects(ModuleOf("module1")), "public enum E(a as long, b as long)");
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
