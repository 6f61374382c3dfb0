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
    Pos start = -1;
    Pos ende = -1;
    for (const Pos pos : {3, 17}) {
        EXPECT_EQ(Get_KlammerInhalt(text, pos, start, ende), "a, g(b, \")\"), c");
        EXPECT_EQ(std::pair(start, ende), std::pair(3, 18));
    }
    EXPECT_EQ(Get_KlammerInhalt(text, 8, start, ende), "b, \")\"");
    EXPECT_EQ(std::pair(start, ende), std::pair(8, 14));
    for (const auto& [none, pos] : {std::pair{"f(a)", 1}, {"f((a", 4}}) {
        EXPECT_EQ(Get_KlammerInhalt(none, pos, start, ende), "");
        EXPECT_EQ(std::pair(start, ende), std::pair(0, 0));
    }
}

TEST(Lines, NearestBlankToTheLeftSeparates) {
    // From the last character of each text.
    for (const auto& [text, blank] : {std::pair{"x = abc", 4},
                                      {"x =    abc", 7},
                                      {"abc", 0},
                                      {"f a _\r\n  b", 9},
                                      {"f a. _\r\n  b c", 12},
                                      // The indent of a line that goes on behind an operator is passed over.
                                      {"f a. _\r\n  b", 5},
                                      {"f a( _\r\n  b", 5},
                                      {"f a & _\r\n  b", 6}}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(Get_Next_BlankPos_Left(text, Len(text)), blank);
    }
    EXPECT_EQ(Get_Next_BlankPos_Left(" a", 1), 0);
    EXPECT_EQ(Get_Next_NotBlankPos_Left("ab   c", 5), 2);
    EXPECT_EQ(Get_Next_NotBlankPos_Left("ab   c", 6), 6);
    EXPECT_EQ(Get_Next_NotBlankPos_Left("   ", 3), 0);
}

}  // namespace
