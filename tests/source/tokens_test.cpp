#include "source/tokens.h"

#include "support/module_dumps.h"
#include "support/project_test.h"

namespace {

struct Case {
    std::string_view source;
    std::string_view tokens;
};

void ExpectTokens(std::initializer_list<Case> cases) {
    for (const Case& c : cases)
        EXPECT_EQ(DumpTokens(c.source), c.tokens) << c.source;
}

}  // namespace

TEST(Tokens, WordsSignsAndBracketsAreSeparate) {
    ExpectTokens({{"Dim a As Long", "1:Dim 1:a 1:As 1:Long"},
                  {"x = f(a, b) - 1", "1:x 1:= 1:f 1:( 1:a 1:, 1:b 1:) 1:- 1:1"},
                  {"a\r\n\r\n   \r\n  b_c\r\n", "1:a 2:b_c"},
                  {"", ""}});
}

TEST(Tokens, HoldTheirPlaceInTheText) {
    const Marked vb = Vb("{{Dim}}   {{counter}}\n{{x}}");
    ModuleText text(vb.text);
    const TokenTable tokens = Analyse_Parsen(text);
    EXPECT_THAT(tokens.All(),
                testing::ElementsAre(Token{vb.pos(1), 3, 1}, Token{vb.pos(2), 7, 1}, Token{vb.pos(3), 1, 2}));
    EXPECT_EQ(tokens.LastOfStatement(1), 2);
    for (const int outside : {0, 4}) {
        EXPECT_EQ(tokens.EndOf(outside), 0);
        EXPECT_EQ(tokens.Text(text.ModulText(), outside), "");
        EXPECT_TRUE(tokens.StartsStatement(outside));
    }
}

TEST(Tokens, LiteralsThatMayBeNamesAreNoted) {
    const Marked vb = Vb(R"(
        f p, "Name_1", "two words", "1st", "", "x""Rest", "open
    )");
    ModuleText text(vb.text);
    const TokenTable tokens = Analyse_Parsen(text);
    std::string literals;
    for (const int nr : tokens.NameLiterals())
        literals.append(tokens.Text(text.ModulTextOrg(), nr)).append(" ");
    EXPECT_EQ(literals, "\"Name_1\" \"Rest\" ");
}

TEST(Tokens, TypeSignIsOneButIncludesFollowingLetters) {
    ExpectTokens({{"x$ = y%", "1:x 1:$ 1:= 1:y 1:%"},
                  {"rs!Name", "1:rs 1:!Name"},
                  {"x = &H10", "1:x 1:= 1:&H10"},
                  {"f(&H1F&)", "1:f 1:( 1:&H1F 1:& 1:)"},
                  {"a & b", "1:a 1:& 1:b"},
                  {"Print #1, x", "1:Print 1:# 1:1 1:, 1:x"}});
}

TEST(Tokens, PointDividesNamesAndJoinsNumbers) {
    ExpectTokens({{"a.b", "1:a 1:. 1:b"},
                  {".Caption", "1:. 1:Caption"},
                  {"x = 1.5", "1:x 1:= 1:1.5"},
                  {"x = .5", "1:x 1:= 1:.5"},
                  {"x = -.5", "1:x 1:= 1:-.5"},
                  {"a.5", "1:a.5"}});
}

// The VB editor always inserts blanks there; other programs do not.
TEST(Tokens, SomeSignsAreGluedToTheNextWord) {
    ExpectTokens({{"a,b", "1:a 1:,b"},
                  {"a+b*c/d", "1:a 1:+b 1:*c 1:/d"},
                  {"a&b", "1:a 1:&b"},
                  {"a<b", "1:a<b"},
                  {"a<=b", "1:a<= 1:b"},
                  {"d = #1/5/2004#", "1:d 1:= 1:# 1:1 1:/5 1:/2004 1:#"},
                  {"\tx\t= 1", "1:\tx\t 1:= 1:1"},
                  // Two-character operators stay together.
                  {"Show Left:=1", "1:Show 1:Left 1::= 1:1"},
                  {"a <= b >= c <> d", "1:a 1:<= 1:b 1:>= 1:c 1:<> 1:d"}});
}

TEST(Tokens, ColonAndBlankStartANewStatement) {
    ExpectTokens({{"a = 1: b = 2", "1:a 1:= 1:1 2:b 2:= 2:2"},
                  {"If x Then y: z", "1:If 1:x 1:Then 1:y 2:z"},
                  {"Done: x", "1:Done 2:x"},
                  {"Done:\r\nx", "1:Done 1:: 2:x"},
                  {"a:b", "1:a 1::b"},
                  // The colon emits the text from the last token's start up to itself, though that token was emitted
                  // already.
                  {"x : y", "1:x 1:x  2:y"},
                  {"Show Left := 1", "1:Show 1:Left 1:Left  1::= 1:1"}});
}

TEST(Tokens, LiteralIsOneWithItsQuotes) {
    ExpectTokens({{R"(x = "a (b), c.d & e")", R"(1:x 1:= 1:"a (b), c.d & e")"},
                  {R"(Print"x")", R"(1:Print 1:"x")"},
                  {"x = \"abc\r\ny", "1:x 1:= 1:\"abc 2:y"},
                  // Of a literal with doubled quotes only the last part remains.
                  {R"(x = "say ""hi"" now")", R"(1:x 1:= 1:" now")"},
                  {R"(x = """")", R"(1:x 1:= 1:"")"},
                  {R"(f("a""b", c))", R"(1:f 1:( 1:"b" 1:, 1:c 1:))"}});
}

TEST(Tokens, ClosingQuoteIsFlaggedNotCompiled) {
    const Marked vb = Vb("x = \"abc{{\"}}");
    ModuleText text(vb.text);
    (void)Analyse_Parsen(text);
    EXPECT_EQ(FlagRanges(text, NotCompile), vb.ranges);
}

TEST(Tokens, ContinuationKeepsTheStatement) {
    ExpectTokens({{"a = b + _\r\n    c\r\nd", "1:a 1:= 1:b 1:+ 1:c 2:d"},
                  {"a_\r\nb", "1:a_ 2:b"},
                  {"f(_\r\nb", "1:f 1:( 1:_ 2:b"}});
}

TEST(Tokens, CommentsGiveNone) {
    ExpectTokens({{"x = 1 ' and more: y", "1:x 1:= 1:1"},
                  {"' nothing\r\nx\r\nRem nothing: y\r\nz", "1:x 2:z"},
                  {"x ' goes on _\r\n here\r\ny", "1:x 2:y"},
                  {"x\r\nRem\r\nRemark = 1", "1:x 2:Rem 3:Remark 3:= 3:1"},
                  // Without a blank before it, a comment extends the word.
                  {"x = 1' odd\r\ny", "1:x 1:= 1:1' odd 2:y"},
                  // The map has no comment for a Rem in the first line, so the tokeniser makes it one token.
                  {"Rem hello: you\r\nx", "1:Rem hello: you 2:x"}});
}

TEST(Tokens, WordAtTheEndWithoutALineEndIsLeftOut) {
    for (const Case& c : {Case{"End Sub", "1:End"}, Case{"a = (b)", "1:a 1:= 1:( 1:b"}, Case{"x ", "1:x"},
                          Case{"a\r\n\"b", "1:a"}, Case{"a:", "1:a"}, Case{"a\r", "1:a"}}) {
        SCOPED_TRACE(c.source);
        ModuleText text{std::string(c.source)};
        const TokenTable tokens = Analyse_Parsen(text);
        EXPECT_EQ(DumpTokens(text, tokens), c.tokens);
    }
}
