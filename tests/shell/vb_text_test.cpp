#include "shell/vb_text.h"

#include <gtest/gtest.h>

namespace {

TEST(VbText, MidCountsFromOneAndEndsWithTheText) {
    EXPECT_EQ(Mid("abcd", 2, 2), "bc");
    EXPECT_EQ(Mid("abcd", 3), "cd");
    EXPECT_EQ(Mid("abcd", 4, 9), "d");
    EXPECT_EQ(Mid("abcd", 5, 1), "");
    EXPECT_EQ(Mid("", 9), "");
    EXPECT_THROW((void)Mid("abcd", 0, 1), VbError);
    EXPECT_THROW((void)Mid("abcd", 1, -1), VbError);
}

TEST(VbText, InStrFindsTheFirstFromItsStart) {
    for (const auto& [start, hit] : {std::pair{1, 3}, {3, 3}, {4, 6}, {7, 0}, {9, 0}})
        EXPECT_EQ(InStr(start, "abcabc", "c"), hit) << start;
    EXPECT_EQ(InStr("abc", "C"), 0);
}

TEST(VbText, InStrRevFindsTheLastThatEndsAtItsStart) {
    for (const auto& [start, hit] : {std::pair{6, 5}, {5, 2}, {3, 2}, {2, 0}, {0, 0}})
        EXPECT_EQ(InStrRev("abcabc", "bc", start), hit) << start;
    EXPECT_EQ(InStrRev("", "bc"), 0);
}

TEST(VbText, ReplaceIsOnePassFromLeftToRight) {
    EXPECT_EQ(Replace("( ( a", "( ", "("), "((a");
    EXPECT_EQ(Replace("a   b", "  ", " "), "a  b");
}

}  // namespace
