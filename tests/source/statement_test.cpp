#include "source/statement.h"

#include <gtest/gtest.h>

#include "source/comments.h"
#include "support/marked.h"

namespace {

// The statement at the first mark of a snippet.
class At {
public:
    explicit At(const char* snippet) : vb(Vb(snippet)), text_(vb.text), statement_(text_) {
        Comments_Initialisieren(text_);
        Strings_Initialisieren(text_);
        statement_.Initialisieren(vb.pos());
    }
    clsStatement* operator->() { return &statement_; }

    // All splits, "a|=|b".
    [[nodiscard]] std::string Splits() const {
        std::string splits;
        for (int nr = 1; nr <= statement_.SplitCount(); ++nr)
            splits.append(nr == 1 ? "" : "|").append(statement_.SplitStr(nr));
        return splits;
    }

    const Marked vb;

private:
    ModuleText text_;
    clsStatement statement_;
};

using Case = std::pair<const char*, const char*>;

TEST(Statement, IsSplitAtBlanksThatSeparate) {
    for (const auto& [snippet, splits] :
         {Case{"{{a}} = b + c", "a|=|b|+|c"}, Case{"{{foo}} (1, 2), 3", "foo (1, 2),|3"}, Case{"{{x}}.y .z", "x.y .z"},
          Case{"{{MsgBox}} \"x y\"", "msgbox|\"x y\""}, Case{"{{a}} = \"(\" & b & \" c\"", "a|=|\"(\"|&|b|&|\" c\""},
          Case{"{{a}}   =   b", "a|=|b"}, Case{"{{a}} = b And (c Or d)", "a|=|b|and|(c or d)"},
          Case{"{{a}} = b. c <> .d", "a|=|b. c|<>|.d"}, Case{"{{a}} = \"s\" (1)", "a|=|\"s\"|(1)"},
          Case{"{{foo}} a, _\n    b ' note", "foo|a,|b"}})
        EXPECT_EQ(At(snippet).Splits(), splits) << snippet;
}

TEST(Statement, FindsTheSplitThatContainsThePosition) {
    At at("Foo: a = b.{{c}}d + e");
    EXPECT_EQ(at->Statement(), "a = b.cd + e");
    EXPECT_EQ(at->SplitNr(), 3);
    EXPECT_EQ(at->Split_Str(), "b.cd");
    EXPECT_EQ(at->SplitPos(3), 5);
    EXPECT_EQ(at->SplitLen(3), 4);
    EXPECT_EQ(at->PosInSplit(), 3);
    EXPECT_EQ(at->Gleich_Ist_SplitNr(), 2);
    EXPECT_EQ(at->Get_AnzStr_InSplit("."), 1);
    EXPECT_THROW((void)at->SplitStr(6), VbError);
    // Several blanks count as one in the positions of splits, so the position in the text lies after the split's.
    At wide("a    {{=}} b");
    EXPECT_EQ(wide->SplitPos(3), 5);
    EXPECT_EQ(wide->SplitNr(), 0);
    EXPECT_EQ(At("foo {{a}}")->Gleich_Ist_SplitNr(), 0);
}

TEST(Statement, IsCutAtColonAndThen) {
    for (const auto& [snippet, statement] :
         {Case{"If a Then {{b}} = 1: c = 2", "b = 1"}, Case{"If {{a}} Then b = 1: c = 2", "if a"},
          Case{"a = \": \": {{b}} = \" then \"", "b = \" then \""}, Case{"a = 1:   {{b}} = 2 ' note: x", "b = 2"},
          Case{"{{x}}:y = 1", "x:y = 1"},
          // Both separators to the left and the colon nearer: the line from its start.
          Case{"If a Then b = 1: {{c}} = 2", "if a then b = 1: c = 2"},
          Case{"first\nfoo a, _\n  {{b}}", "foo a,      b"}}) {  // a continuation does not shift positions
        SCOPED_TRACE(snippet);
        At at(snippet);
        EXPECT_EQ(at->Statement(), statement);
        EXPECT_EQ(CharAt(at->Statement(), at->PosInStatement()), CharAt(at.vb.text, at.vb.pos()));
        EXPECT_EQ(at->PosInStatement(), at.vb.pos() - at->StatementPos() + 1);
    }
}

TEST(Statement, LineWithoutCodeHasNoContent) {
    for (const char* snippet : {"  {{'}} a = b", "{{}}   \nx", "{{}}\nx"}) {
        SCOPED_TRACE(snippet);
        At at(snippet);
        EXPECT_TRUE(at->NoContent());
        EXPECT_EQ(at->SplitCount(), 0);
    }
    At code("x = \"it's\"   ' {{n}}ote");
    EXPECT_FALSE(code->NoContent());
    EXPECT_EQ(code->LineNoComment(), "x = \"it's\"");
}

TEST(Statement, KnowsItsBrackets) {
    At at("{{foo}} (a(1), \")\")");
    std::string inside;
    for (Pos pos = 1; pos <= at->StatementLen(); ++pos)
        inside += at->PosInKlammer(pos) ? 'x' : '-';
    EXPECT_EQ(inside, "-----xxxxxxxxxx");
    EXPECT_EQ(at->Get_PosKlammerRechts(6), 15);
    EXPECT_EQ(at->Get_PosKlammerRechts(8), 9);
    EXPECT_EQ(At("{{foo}} (a")->Get_PosKlammerRechts(6), 0);
}

TEST(Statement, DistinguishesArgumentsTargetsNamesAndDeclarations) {
    for (const char* argument : {"If {{a}} = 1 Then", "Loop Until {{a}}", "Case {{a}}", "foo {{a}}", "foo 1, {{a}}",
                                 "a({{i}}) = 1", "Call foo({{a}})", "Set x = f({{a}})"})
        EXPECT_TRUE(At(argument)->PosInArgumentListe()) << argument;
    for (const char* target :
         {"{{a}} = 1", "{{foo}} a", "Call {{foo}}(a)", "Set {{x}} = y", "If a Then {{b}} = 1", "x = {{y}}"})
        EXPECT_FALSE(At(target)->PosInArgumentListe()) << target;
    for (const char* declaration : {"Dim {{x}}", "Friend {{Function}} f()", "Enum {{e}}"})
        EXPECT_TRUE(At(declaration)->PosInDeklaration()) << declaration;
    for (const char* other : {"x = {{dim}}", "ReDim {{x}}(1)", "End {{Sub}}", "Dimension {{x}}"})
        EXPECT_FALSE(At(other)->PosInDeklaration()) << other;
}

TEST(Statement, DottedNameUpToThePosition) {
    for (const auto& [snippet, name] :
         {Case{"a.b.{{c}}.d = 1", "a.b.c"}, Case{"x = a.{{b}} + 1", "a.b"}, Case{"foo(x.{{y}}, z)", "x.y"},
          Case{"foo 1, (a + b.{{c}})", "b.c"}, Case{"x = a(1, 2).{{b}}", "a(1, 2).b"}, Case{"x = -a.{{b}}", "a.b"},
          Case{"x = a .{{b}}", "a .b"}, Case{".{{b}} = 1", ".b"}})
        EXPECT_EQ(At(snippet)->Get_Prop_With_Parents(), name) << snippet;
    At at("x = foo(1, a.{{b}}c)");
    EXPECT_EQ(at->Get_Prop_With_Parents(2), "a.bc");
    EXPECT_EQ(at->ParentStartPos(), at.vb.pos() - 2);
}

}  // namespace
