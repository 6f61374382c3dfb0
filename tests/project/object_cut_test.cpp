#include "project/object_cut.h"

#include "support/project_test.h"

using CuttingObjects = ProgramState;

namespace {

/// The text of a module without an object; "-" where the object cannot be cut.
std::string Without(std::string_view snippet, std::string_view codePath, std::string_view file = "M.bas") {
    const clsModul& modul = ReadModule(snippet, file);
    CodeObject* object = gProjekt->GetObjectFromCodePath(codePath);
    if (!object) {
        const clsProzedur* inner = modul.MyProcs.Item(codePath.substr(0, codePath.find('.')));
        object = inner ? inner->MyVars.Item(codePath.substr(codePath.find('.') + 1)) : nullptr;
    }
    if (!object)
        throw std::invalid_argument("no object " + std::string(codePath));
    const ObjectCut cut = DeleteMe(*object);
    std::string text(modul.text->ModulTextOrg());
    for (auto stretch = cut.stretches.rbegin(); stretch != cut.stretches.rend(); ++stretch)
        text.erase(static_cast<std::size_t>(stretch->start) - 1, static_cast<std::size_t>(stretch->length));
    return cut.whyNot == Text::None ? text : "-";
}

std::string Lines(std::string_view snippet) {
    return Vb(snippet).text;
}

}  // namespace

TEST_F(CuttingObjects, OneOfSeveralVariablesGoesWithItsComma) {
    const struct {
        const char* declaration;
        const char* name;
        const char* left;
    } cases[] = {
        {"Dim a, b As Long, c ' all", "a", "Dim b As Long, c ' all"},
        {"Dim a, b As Long, c ' all", "b", "Dim a, c ' all"},
        {"Dim a, b As Long, c ' all", "c", "Dim a, b As Long ' all"},
        {"Private WithEvents a As X, WithEvents b As X", "a", "Private WithEvents b As X"},
        {"Private WithEvents a As X, WithEvents b As X", "b", "Private WithEvents a As X"},
        {"Public a(1, 2) As Long, b$ , c(3)", "b", "Public a(1, 2) As Long, c(3)"},
        {"Const a = \"x, 'y\", b = \"z\"", "a", "Const b = \"z\""},
        {"Const a = \"x, 'y\", b = \"z\" ' two", "b", "Const a = \"x, 'y\" ' two"},
        {"Dim a, _\n    b, _\n    c", "b", "Dim a, _\n    c"},
        {"Dim a, _\n    b ' last", "b", "Dim a ' last"},
        {"Dim a: Dim b, c: Dim d", "c", "Dim a: Dim b: Dim d"},
        {"Dim a: Dim b: Dim d", "a", "Dim b: Dim d"},
        {"Dim a: Dim b: Dim d", "b", "Dim a: Dim d"},
        {"Dim a: Dim b: Dim d ' last", "d", "Dim a: Dim b ' last"},
    };
    for (const auto& [declaration, name, left] : cases)
        EXPECT_EQ(Without(std::string("x = 1\n") + declaration + "\nDim z\n", std::string("m.") + name),
                  Lines(std::string("x = 1\n") + left + "\nDim z\n"))
            << declaration << " without " << name;
}

TEST_F(CuttingObjects, DeclarationsGoWithTheirLinesAndAttributes) {
    const std::string_view module = R"(
        Option Explicit
        ' about a
        Private WithEvents a As X ' more
        Attribute a.VB_VarHelpID = -1
        Private b, c
        Attribute b.VB_VarDescription = "b"
        Attribute c.VB_VarDescription = "c"
        Public Enum E
            one
        End Enum

        Private Type T
            x As Long
            Type As Long
        End Type

        Private Declare Sub Sleep Lib "kernel32" _
            (ByVal ms As Long)
        Public Event Done()
        Attribute Done.VB_Description = "d"
        )";
    const std::string whole = Lines(module);
    const auto expect = [&](std::string_view path, std::string_view gone) {
        std::string left = whole;
        left.erase(left.find(Lines(gone)), Lines(gone).size());
        EXPECT_EQ(Without(module, path), left) << path;
    };
    expect("m.a", "Private WithEvents a As X ' more\nAttribute a.VB_VarHelpID = -1\n");
    expect("m.e [enum]", "Public Enum E\n    one\nEnd Enum\n");
    expect("m.t [type]", "Private Type T\n    x As Long\n    Type As Long\nEnd Type\n\n");
    expect("m.sleep", "Private Declare Sub Sleep Lib \"kernel32\" _\n    (ByVal ms As Long)\n");
    expect("m.done", "Public Event Done()\nAttribute Done.VB_Description = \"d\"\n");
    EXPECT_THAT(Without(module, "m.b"), HasSubstr("Private c\r\nAttribute c.VB_VarDescription"));
    for (const char* part : {"m.e.one", "m.t.x"})
        EXPECT_EQ(Without(module, part), "-") << part;
}

TEST_F(CuttingObjects, ProceduresGoWithTheirLines) {
    const std::string_view module = R"(
        Dim z

        ' about p
        Public Static Sub p(x)
            Dim a, b: Dim c
            If x Then Dim d
            Static e
        #If Win32 Then
            e = 1
        #End If
        End Sub ' p

        Friend Property Get q()
        End Property
        Property Let q(v): End Property: Sub last()
        End Sub)";
    const std::string whole = Lines(module);
    EXPECT_EQ(Without(module, "m.p"), Lines(R"(
        Dim z

        ' about p

        Friend Property Get q()
        End Property
        Property Let q(v): End Property: Sub last()
        End Sub)"));
    EXPECT_THAT(Without(module, "m.q [get]"), HasSubstr("' p\r\n\r\nProperty Let q(v)"));
    EXPECT_THAT(Without(module, "m.q [let]"), testing::EndsWith("End Property\r\nSub last()\r\nEnd Sub\r\n"));
    EXPECT_THAT(Without(module, "p.e"), HasSubstr("Then Dim d\r\n#If"));
    EXPECT_THAT(Without(module, "p.a"), HasSubstr("    Dim b: Dim c\r\n"));
    for (const char* unsafe : {"p.c", "p.d", "p.x"})
        EXPECT_EQ(Without(module, unsafe), "-") << unsafe;
    EXPECT_EQ(Without("Sub a()\nEnd Sub\nSub b()\nEnd Sub", "m.b"), "Sub a()\r\nEnd Sub\r\n");
}

TEST_F(CuttingObjects, NothingIsCutWhereTheEndIsNotClear) {
    EXPECT_EQ(Without("Sub a()\nSub b()\nEnd Sub\n", "m.a"), "-");
    EXPECT_EQ(Without("Sub a()\nEnd Function\nPrivate Sub b()\nEnd Sub\n", "m.a"), "-");
    EXPECT_EQ(Without("Sub a()\n", "m.a"), "-");
    EXPECT_EQ(Without("Type T\n x As Long\nPublic Type U\n y As Long\nEnd Type\n", "m.t [type]"), "-");
    EXPECT_EQ(Without("#If Win16 Then\nSub a(x)\n#Else\nSub a(y)\n#End If\nEnd Sub\n", "m.a"), "-");
    EXPECT_EQ(Without("Sub a()\n#Const Deep = 1\nEnd Sub\n", "m.a"), "-");
    EXPECT_EQ(Without("#If Win16 Then\nSub a(x)\nEnd Sub\n#Else\nSub a(y)\nEnd Sub\n#End If\n", "m.a"),
              Lines("#If Win16 Then\nSub a(x)\nEnd Sub\n#Else\n#End If\n"));
}

TEST_F(CuttingObjects, ControlsGoWithAllBlocksOfTheirName) {
    const std::string_view form = R"(
        VERSION 5.00
        Begin VB.Form frm
           Caption = "x"
           Begin VB.Frame fra
              Begin VB.CommandButton cmd
                 Index = 0
                 BeginProperty Font
                 EndProperty
              End
              Begin VB.CommandButton cmd
                 Index = 1
              End
           End
           Begin VB.Label lab
           End
        End
        Attribute VB_Name = "frm"
        Dim a
        )";
    EXPECT_THAT(Without(form, "frm.cmd", "frm.frm"),
                HasSubstr("Begin VB.Frame fra\r\n   End\r\n   Begin VB.Label lab\r\n"));
    EXPECT_THAT(Without(form, "frm.fra", "frm.frm"), HasSubstr("\"x\"\r\n   Begin VB.Label lab\r\n   End\r\nEnd"));
}
