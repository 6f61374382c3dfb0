#include "display/code_colours.h"

#include "support/code_dump.h"
#include "support/project_test.h"

namespace {

class CodeColours : public ProgramState {
protected:
    static CodeText Procedure(std::string_view codePath) {
        LocalUses locals;
        return ShowMe(ProcedureAt(codePath), locals);
    }
    static CodeText Procedure(std::string_view snippet, std::string_view codePath) {
        Analyse(ReadModule(snippet, "M.bas"));
        return Procedure(codePath);
    }
};

}  // namespace

TEST_F(CodeColours, DeclarationsGoByAccess) {
    EXPECT_EQ(DumpCode(ShowMe(ReadModule(R"(
        Private a As Long, b
        Public Const c = "x", d = 5
        Private Type T
            m As Long
        End Type
        Public Enum F
            Two = 2
        End Enum
        Declare Sub Api Lib "k" ()
        Private Declare Sub Hidden Lib "k" ()
    )"))),
              "private:a private:b public:c string:\"x\" public:d private:T private:m public:F public:Two public:Api "
              "string:\"k\" private:Hidden string:\"k\"");
}

TEST_F(CodeColours, DeclarationsShowWhatTheyUse) {
    Analyse(ReadProject({{"M.bas", "Public Type T\na As U\nEnd Type\nPublic x As T\nPublic c As Other\n"},
                         {"N.bas", "Public Type U\n  b As Long\nEnd Type\n"},
                         {"Other.cls", "Public Sub S()\nEnd Sub\n"}}));
    EXPECT_EQ(DumpCode(ShowMe(ModuleOf("m"))), "public:T public:a callOut:U public:x callIn:T public:c callOut:Other");
}

TEST_F(CodeColours, CommentsStringsInactiveCodeAndTheResult) {
    // The tokeniser flags closing quotes for its own use; they belong to the string like the opening ones.
    EXPECT_EQ(DumpCode(Procedure(R"(
        Function F(a)
            x = "a""b" ' it's "quoted"
            y = "" + "c"
            #If False Then
                z = 1 ' gone
            #End If
            If F > 1 Then F = 2
        End Function
    )",
                                 "m.f")),
              "local:F local:a string:\"a\"\"b\" comment:' it's \"quoted\" string:\"\" string:\"c\" "
              "hidden:#If False Then\r\n        z = 1 ' gone\r\n    #End If\r result:F result:F");
}

TEST_F(CodeColours, CallsAreTheirModulesOrOthersOrPossible) {
    Analyse(ReadProject({{"M.bas", R"(
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
                  )"},
                         {"N.bas", "Public w As Long\nPublic Type T\n a As Long\nEnd Type\nSub Far(a)\nEnd Sub\n"},
                         {"C.cls", "Public Sub Member()\nEnd Sub\n"}}));
    LocalUses locals;
    EXPECT_TRUE(ShowMe(ProcedureAt("m.s"), locals).localsChecked);
    const CodeText again = ShowMe(ProcedureAt("m.s"), locals);
    EXPECT_FALSE(again.localsChecked) << "looked for once";
    EXPECT_EQ(DumpCode(again),
              "local:arg local:loc callIn:Own local:arg callOut:N callOut:Far local:loc callIn:v callOut:w local:arg "
              "maybe:Member local:t callOut:T local:o callOut:C");
}

TEST_F(CodeColours, ProcedureIsShownWithItsPosition) {
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

TEST_F(CodeColours, DeadAndUndeadProceduresHaveAGreyBackground) {
    Analyse(ReadModule("Sub Form_Load()\n  b\nEnd Sub\nSub b()\nEnd Sub\nSub c()\n  d\nEnd Sub\nSub d()\nEnd Sub",
                       "F.frm"));
    for (const auto& [path, isGrey] : {std::pair("f.form_load", false), {"f.b", false}, {"f.c", true}, {"f.d", true}})
        EXPECT_EQ(Procedure(path).shade == Shade::Grey, isGrey) << path;
}

TEST_F(CodeColours, LaterSelectionsCoverEarlierOnes) {
    CodePaint paint(10, 10);
    EXPECT_TRUE(paint.Spans().empty());
    paint.Select(12, 5, Colour::Comment);
    paint.Select(14, 1, Colour::CallIn);
    paint.Select(1, 10, Colour::Public);    // from before the range
    paint.Select(19, 100, Colour::Public);  // beyond its end
    paint.Select(0, 99, Colour::Private);   // not a position
    EXPECT_EQ(paint.Spans(), (std::vector<CodeSpan>{{0, 1, Colour::Public},
                                                    {2, 2, Colour::Comment},
                                                    {4, 1, Colour::CallIn},
                                                    {5, 2, Colour::Comment},
                                                    {9, 1, Colour::Public}}));
}

TEST_F(CodeColours, PageIsSettledByTheWholeModule) {
    // Valid UTF-8 in the procedure, but not in the whole module, whose first line is Windows-1252.
    ReadModuleAsItIs("' \xE9\r\nSub S()\r\n' \xC3\xA9\r\nEnd Sub\r\n", "M.bas");
    EXPECT_EQ(Procedure("m.s").page->Setting(), "1252");
    ReadModuleAsItIs("' \xC3\xA9\r\nSub S()\r\nEnd Sub\r\n", "M.bas");
    EXPECT_EQ(Procedure("m.s").page->Setting(), "65001");
}
