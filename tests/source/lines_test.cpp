#include "source/lines.h"

#include <gtest/gtest.h>

namespace {

using namespace modMain;

// The positions from `from` to one after the end: "x" where the predicate is true.
std::string Map(bool (*predicate)(std::string_view, Pos), std::string_view text, Pos from) {
    std::string map;
    for (Pos pos = from; pos <= Len(text) + 1; ++pos)
        map += predicate(text, pos) ? 'x' : '-';
    return map;
}

TEST(Lines, QuotesAndBracketsBeforeThePositionDecide) {
    EXPECT_EQ(Map(PositionInString, "a \"b\"\"c\" d", 0), "---xx-xx----");
    EXPECT_EQ(Map(PositionInKlammer, "f(g(a)) \"(\" b)(", 1), "--xxxxx---------");
}

TEST(Lines, CommentIsCutOutsideStrings) {
    EXPECT_EQ(Get_ZeileOhneKommentar("x = \"it's\"  ' it's"), "x = \"it's\"");
    EXPECT_EQ(Get_ZeileOhneKommentar("  x  "), "  x  ");  // trimmed only if a comment was removed
    EXPECT_EQ(Get_ZeileOhneKommentar("'"), "");
    EXPECT_EQ(GetCodeAusString("  \"Form1\" ' note"), "\"Form1\"");
}

TEST(Lines, LogicalLineIsJoinedToOne) {
    using Case = std::pair<const char*, const char*>;
    for (const auto& [line, clean] :
         {Case{"  x = 1 ' note", "x = 1"}, Case{"  foo( a , b )", "foo( a , b )"},  // a single line does not change
          Case{"dim a _\r\n   as long", "dim a as long"}, Case{"foo _\r\n    .bar", "foo.bar"},
          Case{"foo _\r\n    (1)", "foo(1)"}, Case{"a = b + _\r\n    (c)", "a = b + (c)"},
          Case{"a = b & _\r\n    .c", "a = b & .c"}, Case{"a. _\r\n    b", "a.b"},
          Case{"call foo( _\r\n    a , _\r\n    b _\r\n    ) ' note", "call foo(a, b)"}})
        EXPECT_EQ(Get_Clean_VBZeile(line), clean) << line;
}

TEST(Lines, SearchesSkipStrings) {
    const std::string_view text = "a, \"b, c\", d, e";
    for (const auto& [start, hit] : {std::pair{0, 2}, {2, 10}, {13, 0}})
        EXPECT_EQ(Get_StringPos_RechtsVonPos(text, ",", start), hit) << start;
    for (const auto& [start, hit] : {std::pair{15, 13}, {10, 2}, {2, 0}})
        EXPECT_EQ(Get_StringPos_LinksVonPos(text, ",", start), hit) << start;
    EXPECT_EQ(Get_StringPos_LinksVonPos(text, ", ", 12), 10);
    EXPECT_EQ(Get_StringPos_LinksVonPos(text, ", ", 11), 2);  // the hit must end before the position
    for (const auto& [from, to, count] : {std::tuple{0, 15, 3}, {2, 15, 2}, {0, 10, 2}, {0, 9, 1}})
        EXPECT_EQ(Get_AnzStr_InString(text, ",", from, to), count) << from << ' ' << to;
}

TEST(Lines, BracketContentIsThatOfTheInnermostPair) {
    using Case = std::tuple<const char*, Pos, const char*, std::pair<Pos, Pos>>;
    const char* whole = "f(a, g(b, \")\"), c)";
    for (const auto& [text, pos, content, range] :
         {Case{whole, 3, "a, g(b, \")\"), c", {3, 18}}, Case{whole, 17, "a, g(b, \")\"), c", {3, 18}},
          Case{whole, 8, "b, \")\"", {8, 14}}, Case{"f(a)", 1, "", {}}, Case{"f((a", 4, "", {}}}) {
        Pos start = -1;
        Pos ende = -1;
        EXPECT_EQ(Get_KlammerInhalt(text, pos, start, ende), content);
        EXPECT_EQ(std::pair(start, ende), range);
    }
}

TEST(Lines, NearestBlankToTheLeftSeparates) {
    // Searches from the last character of each text.
    using Case = std::pair<const char*, Pos>;
    for (const auto& [text, blank] : {Case{"x = abc", 4}, Case{"x =    abc", 7}, Case{"abc", 0},
                                      Case{"f a _\r\n  b", 9}, Case{"f a. _\r\n  b c", 12},
                                      // The indentation of a line that continues after an operator is skipped.
                                      Case{"f a. _\r\n  b", 5}, Case{"f a( _\r\n  b", 5}, Case{"f a & _\r\n  b", 6}})
        EXPECT_EQ(Get_Next_BlankPos_Left(text, Len(text)), blank) << text;
    EXPECT_EQ(Get_Next_BlankPos_Left(" a", 1), 0);
    for (const auto& [start, pos] : {std::pair{5, 2}, {6, 6}})
        EXPECT_EQ(Get_Next_NotBlankPos_Left("ab   c", start), pos);
    EXPECT_EQ(Get_Next_NotBlankPos_Left("   ", 3), 0);
}

}  // namespace
