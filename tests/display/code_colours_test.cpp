#include "display/code_colours.h"

#include <gtest/gtest.h>

#include "calls/driver.h"
#include "findings/dead_objects.h"
#include "model/clsEnum.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsTypeLib.h"
#include "model/clsVariable.h"
#include "platform/code_page.h"
#include "support/marked.h"
#include "support/program_state.h"
#include "support/read_project.h"

namespace {

class CodeColours : public ProgramState {
protected:
    static void Analyse() {
        Who_Calls_Who(*gProjekt);
        Tote_Untote_Kennzeichnen(*gProjekt);
    }
    static CodeText Declarations(std::string_view snippet, std::string_view file = "M.bas") {
        const clsModul& modul = ReadModule(snippet, file);
        Analyse();
        return ShowMe(modul);
    }
    static CodeText Procedure(std::string_view codePath) {
        CodeObject* object = modMain::GetObjectFromCodePath(codePath);
        return ShowMe(*gProjekt, static_cast<clsProzedur&>(*object));
    }
    static CodeText Procedure(std::string_view snippet, std::string_view codePath) {
        ReadModule(snippet, "M.bas");
        Analyse();
        return Procedure(codePath);
    }
};

}  // namespace

TEST_F(CodeColours, DeclarationsGoByAccess) {
    EXPECT_EQ(Declarations(R"(
        Private a As Long, b
        Public Const c = "x", d = 5
        Private Type T
            m As Long
        End Type
        Private Enum E
            One
        End Enum
        Public Enum F
            Two = 2
        End Enum
        Declare Sub Api Lib "k" ()
        Private Declare Sub Hidden Lib "k" ()
    )")
                  .Dump(),
              "private:a private:b public:c string:\"x\" public:d private:T private:m private:E private:One "
              "public:F public:Two public:Api string:\"k\" private:Hidden string:\"k\"");
}

TEST_F(CodeColours, DeclarationsShowWhatTheyUse) {
    ReadProject({{"M.bas", Vb(R"(
                      Public Type T
                          a As U
                      End Type
                      Public x As T
                      Public c As Other
                  )")
                               .text},
                 {"N.bas", "Public Type U\r\n  b As Long\r\nEnd Type\r\n"},
                 {"Other.cls", "Public Sub S()\r\nEnd Sub\r\n"}});
    Analyse();
    EXPECT_EQ(ShowMe(ModuleOf("m")).Dump(), "public:T public:a callOut:U public:x callIn:T public:c callOut:Other");
}

TEST_F(CodeColours, CommentsStringsAndInactiveCode) {
    const CodeText shown = Procedure(R"(
        Sub S()
            x = "a""b" ' it's "quoted"
            y = "" + "c"
            #If False Then
                z = 1 ' gone
            #End If
        End Sub
    )",
                                     "m.s");
    // The tokeniser marks closing quotes for its own use; they are as much of the string as the opening ones.
    EXPECT_EQ(shown.Dump(),
              "string:\"a\"\"b\" comment:' it's \"quoted\" string:\"\" string:\"c\" hidden:#If False Then\r\n        z "
              "= 1 ' gone\r\n    "
              "#End If\r");
}

TEST_F(CodeColours, CallsAreTheirModulesOrOthersOrPossible) {
    ReadProject({{"M.bas", Vb(R"(
                      Public v As Long
                      Sub S(arg)
                          Dim loc
                          Own arg
                          N.Far loc
                          v = w
                          arg.Member
                          Dim t As T
                          Dim o As New C
                      End Sub
                      Sub Own(a)
                      End Sub
                  )")
                               .text},
                 {"N.bas", "Public w As Long\r\nPublic Type T\r\n a As Long\r\nEnd Type\r\nSub Far(a)\r\nEnd Sub\r\n"},
                 {"C.cls", "Public Sub Member()\r\nEnd Sub\r\n"}});
    Analyse();
    EXPECT_EQ(Procedure("m.s").Dump(),
              "local:arg local:loc callIn:Own local:arg callOut:N callOut:Far local:loc callIn:v callOut:w local:arg "
              "maybe:Member local:t callOut:T local:o callOut:C");
}

TEST_F(CodeColours, PlacesOfTheResultStandOut) {
    EXPECT_EQ(Procedure(R"(
        Function F(a)
            F = a
            If F > 1 Then F = 2
        End Function
    )",
                        "m.f")
                  .Dump(),
              "local:F local:a result:F local:a result:F result:F");
}

TEST_F(CodeColours, ProcedureIsShownWholeAndTellsWhereItStands) {
    const CodeText shown = Procedure(R"(
        Option Explicit

        Sub S()
            x = 1
        End Sub ' after
    )",
                                     "m.s");
    EXPECT_EQ(shown.text, "Sub S()\r\n    x = 1\r\nEnd Sub");
    EXPECT_EQ(shown.firstLine, 3);
    EXPECT_EQ(shown.InModule(0), 20);
    EXPECT_EQ(shown.Shown(20, 3), (CodeRange{0, 3}));
    EXPECT_EQ(shown.Shown(43, 99), (CodeRange{23, 4}));  // cut at the end
    EXPECT_EQ(shown.Shown(19, 3), std::nullopt);
    EXPECT_EQ(shown.Shown(47, 1), std::nullopt);
}

TEST_F(CodeColours, DeadAndUndeadProceduresStandOnGrey) {
    ReadModule(R"(
        Sub a()
            b
        End Sub
        Sub b()
        End Sub
    )",
               "F.frm");
    Analyse();
    EXPECT_TRUE(Procedure("f.a").onGrey);
    EXPECT_TRUE(Procedure("f.b").onGrey);
    ReadModule("Sub Form_Load()\n    b\nEnd Sub\nSub b()\nEnd Sub\n", "F.frm");
    Analyse();
    EXPECT_FALSE(Procedure("f.form_load").onGrey);
    EXPECT_FALSE(Procedure("f.b").onGrey);
}

TEST_F(CodeColours, LocalVariablesAreLookedForOnce) {
    ReadModule("Sub S()\n    Dim a\n    a = 1\nEnd Sub\n", "M.bas");
    EXPECT_TRUE(Procedure("m.s").localsChecked);
    const CodeText again = Procedure("m.s");
    EXPECT_FALSE(again.localsChecked);
    EXPECT_EQ(again.Dump(), "local:a local:a");
}

TEST_F(CodeColours, NamesAreFoundInTheTextThatShowsThem) {
    clsModul& modul = ReadModule(R"(
        Private v As Long
        Private Type T
            m As Long
        End Type
        Sub S(a)
        End Sub
    )",
                                 "M.bas");
    const CodeText declarations = ShowMe(modul);
    const CodeText procedure = Procedure("m.s");
    const auto marked = [](const CodeObject* object, const CodeText& shown) {
        const auto range = NameMarkieren(*object, shown);
        return range
                   ? shown.text.substr(static_cast<std::size_t>(range->start), static_cast<std::size_t>(range->length))
                   : std::string("-");
    };
    EXPECT_EQ(marked(modMain::GetObjectFromCodePath("m.v"), declarations), "v");
    EXPECT_EQ(marked(modMain::GetObjectFromCodePath("m.t [type]"), declarations), "T");
    EXPECT_EQ(marked(modMain::GetObjectFromCodePath("m.t.m"), declarations), "m");
    EXPECT_EQ(marked(modMain::GetObjectFromCodePath("m.s"), procedure), "S");
    EXPECT_EQ(marked(static_cast<clsProzedur*>(modMain::GetObjectFromCodePath("m.s"))->MyVars.Item("a"), procedure),
              "a");
    EXPECT_EQ(marked(modMain::GetObjectFromCodePath("m.s"), declarations), "-");
    EXPECT_EQ(marked(&modul, declarations), "-");
}

TEST_F(CodeColours, LibraryTellsItsFileFirst) {
    clsTypeLib library;
    library.SetName(Name("MSComctlLib"));
    library.InprocServer32 = "C:\\Windows\\comctl.ocx";
    library.Version = "2.0";
    EXPECT_EQ(ShowMe(library).text, "C:\\Windows\\comctl.ocx\r\n\r\nMSComctlLib\r\n2.0\r\n");
    EXPECT_EQ(ShowMe(library).firstLine, 0);
}

TEST_F(CodeColours, LaterSelectionsCoverEarlierOnes) {
    CodePaint paint(10, 10);
    const auto spans = [&paint] { return paint.Spans(); };
    EXPECT_TRUE(spans().empty());
    paint.Select(12, 5, Colour::Comment);
    paint.Select(14, 1, Colour::CallIn);
    paint.Select(1, 10, Colour::Public);    // from before the stretch
    paint.Select(19, 100, Colour::Public);  // beyond its end
    paint.Select(0, 99, Colour::Private);   // no place at all
    EXPECT_EQ(spans(), (std::vector<CodeSpan>{{0, 1, Colour::Public},
                                              {2, 2, Colour::Comment},
                                              {4, 1, Colour::CallIn},
                                              {5, 2, Colour::Comment},
                                              {9, 1, Colour::Public}}));
}

TEST_F(CodeColours, PageIsSettledByTheWholeModule) {
    // Valid UTF-8 in the procedure alone, but not in the module, whose first line is Windows-1252.
    ReadModuleAsItIs("' \xE9\r\nSub S()\r\n' \xC3\xA9\r\nEnd Sub\r\n", "M.bas");
    EXPECT_EQ(Procedure("m.s").page->Setting(), "1252");
    ReadModuleAsItIs("' \xC3\xA9\r\nSub S()\r\nEnd Sub\r\n", "M.bas");
    EXPECT_EQ(Procedure("m.s").page->Setting(), "65001");
}
