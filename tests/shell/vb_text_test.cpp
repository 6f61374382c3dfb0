#include "shell/vb_text.h"

#include <gtest/gtest.h>

namespace {

template <class Statement>
int ErrorOf(Statement statement) {
    try {
        statement();
    } catch (const VbError& error) {
        return error.number;
    }
    return 0;
}

TEST(VbText, MidCountsFromOneAndEndsWithTheText) {
    EXPECT_EQ(Mid("abcd", 2, 2), "bc");
    EXPECT_EQ(Mid("abcd", 3), "cd");
    EXPECT_EQ(Mid("abcd", 4, 9), "d");
    EXPECT_EQ(Mid("abcd", 2, 0), "");
    EXPECT_EQ(Mid("abcd", 5, 1), "");
    EXPECT_EQ(Mid("", 9), "");
    EXPECT_EQ(ErrorOf([] { (void)Mid("abcd", 0, 1); }), 5);
    EXPECT_EQ(ErrorOf([] { (void)Mid("abcd", 1, -1); }), 5);
    EXPECT_EQ(ErrorOf([] { (void)Mid("abcd", -1); }), 5);
}

TEST(VbText, InStrFindsTheFirstFromItsStart) {
    EXPECT_EQ(InStr("abcabc", "c"), 3);
    EXPECT_EQ(InStr(3, "abcabc", "c"), 3);
    EXPECT_EQ(InStr(4, "abcabc", "c"), 6);
    EXPECT_EQ(InStr("abc", "C"), 0);
    EXPECT_EQ(InStr(4, "abc", "c"), 0);
    EXPECT_EQ(InStr(9, "abc", "c"), 0);
    EXPECT_EQ(ErrorOf([] { (void)InStr(0, "abc", "c"); }), 5);
}

TEST(VbText, InStrRevFindsTheLastThatEndsAtItsStart) {
    EXPECT_EQ(InStrRev("abcabc", "bc"), 5);
    EXPECT_EQ(InStrRev("abcabc", "bc", 6), 5);
    EXPECT_EQ(InStrRev("abcabc", "bc", 5), 2);
    EXPECT_EQ(InStrRev("abcabc", "bc", 3), 2);
    EXPECT_EQ(InStrRev("abcabc", "bc", 2), 0);
    EXPECT_EQ(InStrRev("abcabc", "bc", 0), 0);
    EXPECT_EQ(InStrRev("", "bc"), 0);
}

TEST(VbText, ReplaceIsOnePassFromLeftToRight) {
    EXPECT_EQ(Replace("( ( a", "( ", "("), "((a");
    EXPECT_EQ(Replace("a   b", "  ", " "), "a  b");
    EXPECT_EQ(Replace("abc", "x", "y"), "abc");
}

}  // namespace
