#include "source/lines.h"

#include <gtest/gtest.h>

namespace {

using namespace modMain;

TEST(Lines, QuotesAtOrBeforeThePositionDecideAboutStrings) {
    const std::string_view text = "a \"b\"\"c\" d";
    std::string inside;
    for (Pos pos = 0; pos <= Len(text) + 1; ++pos)
        inside += PositionInString(text, pos) ? 'x' : '-';
    EXPECT_EQ(inside, "---xx-xx----");
}

TEST(Lines, BracketsBeforeThePositionDecideAboutNesting) {
    const std::string_view text = "f(g(a)) \"(\" b)(";
    std::string inside;
    for (Pos pos = 1; pos <= Len(text) + 1; ++pos)
        inside += PositionInKlammer(text, pos) ? 'x' : '-';
    EXPECT_EQ(inside, "--xxxxx---------");
}

TEST(Lines, CommentIsCutOutsideStrings) {
    EXPECT_EQ(Get_ZeileOhneKommentar("x = \"it's\"  ' it's"), "x = \"it's\"");
    EXPECT_EQ(Get_ZeileOhneKommentar("  x  "), "  x  ");  // trimmed only where something was cut
    EXPECT_EQ(Get_ZeileOhneKommentar("'"), "");
    EXPECT_EQ(GetCodeAusString("  x  "), "x");
    EXPECT_EQ(GetCodeAusString("  \"Form1\" ' note"), "\"Form1\"");
}

TEST(Lines, LogicalLineIsJoinedToOne) {
    struct Case {
        const char* line;
        const char* clean;
    };
    for (const Case& c : {Case{"  x = 1 ' note", "x = 1"},
                          Case{"  foo( a , b )", "foo( a , b )"},  // without a continuation as it stands
                          Case{"dim a _\r\n   as long", "dim a as long"}, Case{"foo _\r\n    .bar", "foo.bar"},
                          Case{"foo _\r\n    (1)", "foo(1)"}, Case{"a = b + _\r\n    (c)", "a = b + (c)"},
                          Case{"a = b & _\r\n    .c", "a = b & .c"},
                          Case{"call foo( _\r\n    a , _\r\n    b _\r\n    ) ' note", "call foo(a, b)"},
                          Case{"a. _\r\n    b", "a.b"}}) {
        SCOPED_TRACE(c.line);
        EXPECT_EQ(Get_Clean_VBZeile(c.line), c.clean);
    }
}

TEST(Lines, SearchesSkipStrings) {
    const std::string_view text = "a, \"b, c\", d, e";
    EXPECT_EQ(Get_StringPos_RechtsVonPos(text, ",", 0), 2);
    EXPECT_EQ(Get_StringPos_RechtsVonPos(text, ",", 2), 10);
    EXPECT_EQ(Get_StringPos_RechtsVonPos(text, ",", 13), 0);
    EXPECT_EQ(Get_StringPos_LinksVonPos(text, ",", 15), 13);
    EXPECT_EQ(Get_StringPos_LinksVonPos(text, ",", 10), 2);
    EXPECT_EQ(Get_StringPos_LinksVonPos(text, ", ", 12), 10);
    EXPECT_EQ(Get_StringPos_LinksVonPos(text, ", ", 11), 2);  // must end before the position
    EXPECT_EQ(Get_StringPos_LinksVonPos(text, ",", 2), 0);
    EXPECT_EQ(Get_AnzStr_InString(text, ",", 0, 15), 3);
    EXPECT_EQ(Get_AnzStr_InString(text, ",", 2, 15), 2);
    EXPECT_EQ(Get_AnzStr_InString(text, ",", 0, 10), 2);
    EXPECT_EQ(Get_AnzStr_InString(text, ",", 0, 9), 1);
}

TEST(Lines, BracketContentIsThatOfTheInnermostPair) {
    const std::string_view text = "f(a, g(b, \")\"), c)";
    struct Case {
        Pos pos;
        const char* content;
        Pos start;
        Pos ende;
    };
    for (const Case& c : {Case{3, "a, g(b, \")\"), c", 3, 18}, Case{8, "b, \")\"", 8, 14},
                          Case{17, "a, g(b, \")\"), c", 3, 18}, Case{1, "", 0, 0}}) {
        SCOPED_TRACE(c.pos);
        Pos start = -1;
        Pos ende = -1;
        EXPECT_EQ(Get_KlammerInhalt(text, c.pos, start, ende), c.content);
        EXPECT_EQ(start, c.start);
        EXPECT_EQ(ende, c.ende);
    }
    Pos start = -1;
    Pos ende = -1;
    EXPECT_EQ(Get_KlammerInhalt("f((a", 4, start, ende), "") << "brackets that never close end the search";
}

TEST(Lines, NearestBlankToTheLeftSeparates) {
    EXPECT_EQ(Get_Next_BlankPos_Left("x = abc", 7), 4);
    EXPECT_EQ(Get_Next_BlankPos_Left("x = abc", 4), 2);
    EXPECT_EQ(Get_Next_BlankPos_Left("abc", 3), 0);
    EXPECT_EQ(Get_Next_BlankPos_Left(" a", 1), 0);
    EXPECT_EQ(Get_Next_NotBlankPos_Left("ab   c", 5), 2);
    EXPECT_EQ(Get_Next_NotBlankPos_Left("ab   c", 6), 6);
    EXPECT_EQ(Get_Next_NotBlankPos_Left("   ", 3), 0);
}

TEST(Lines, IndentOfAContinuationDoesNotSeparateBehindAnOperator) {
    struct Case {
        const char* text;  // the position is its last character
        Pos blank;
    };
    for (const Case& c : {Case{"f a. _\r\n  b", 5},  // the scan goes on left of the line break
                          Case{"f a( _\r\n  b", 5}, Case{"f a & _\r\n  b", 6},
                          Case{"f a _\r\n  b", 9},  // a word ends at the line break
                          Case{"f a. _\r\n  b c", 12}}) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(Get_Next_BlankPos_Left(c.text, Len(c.text)), c.blank);
    }
}

}  // namespace
