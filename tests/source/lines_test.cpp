#include "source/lines.h"

#include <gtest/gtest.h>

namespace {

using namespace modMain;

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

}  // namespace
