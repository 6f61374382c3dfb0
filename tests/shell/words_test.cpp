#include "shell/words.h"

#include <gtest/gtest.h>

#include "shell/vb_text.h"

namespace {

TEST(VbText, MidCountsFromOneAndEndsWithTheText) {
    EXPECT_EQ(Mid("abcd", 4, 9), "d");
    EXPECT_EQ(Mid("abcd", 5, 1), "");
    EXPECT_THROW((void)Mid("abcd", 0, 1), VbError);
    EXPECT_THROW((void)Mid("abcd", 1, -1), VbError);
    EXPECT_EQ(InStr(7, "abcabc", "c") + InStr(9, "abcabc", "c"), 0);
    EXPECT_EQ(Replace("( ( a", "( ", "("), "((a");  // the result is not searched again
}

TEST(VbText, InStrRevFindsTheLastThatEndsAtItsStart) {
    for (const auto& [start, hit] : {std::pair{6, 5}, {5, 2}, {3, 2}, {2, 0}, {0, 0}})
        EXPECT_EQ(InStrRev("abcabc", "bc", start), hit) << start;
    EXPECT_EQ(InStrRev("", "bc"), 0);
}

TEST(GetWortNrAusString, CountsRunsBetweenSeparators) {
    using Case = std::tuple<const char*, int, const char*>;
    for (const auto& [text, nr, word] :
         {Case{"Form=Form1.frm", 1, "Form"}, Case{"Form=Form1.frm", 3, "frm"}, Case{"Form=Form1.frm", 4, ""},
          Case{"   first second", 2, "second"}, Case{"Name=\"Projekt 1\"", 2, "Projekt"},  // quotes do not group
          Case{"a(,).-+*/=:b", 2, "b"}, Case{"a_b;c\td", 1, "a_b;c\td"}, Case{"x'y z", 1, "x"},
          Case{"x'y z", 2, ""},  // the text ends at the apostrophe
          Case{"'x", 1, ""}, Case{" .,", 1, ""}}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(modMain::GetWortNrAusString(text, nr), word);
    }
}

TEST(GetStringContent, IsTheTextBetweenTheFirstTwoQuotes) {
    for (const auto& [text, content] :
         {std::pair{"Name=\"Projekt 1\" \"x\"", "Projekt 1"}, {"Name=\"\"", ""}, {"Name=\"open", ""}, {"none", ""}})
        EXPECT_EQ(modMain::GetStringContent(text), content) << text;
}

TEST(DirOrFileName, CutsAfterTheLastSeparatorOfEitherKind) {
    using Case = std::pair<const char*, const char*>;
    for (const auto& [directory, file] :
         {Case{"c:\\p\\", "a.vbp"}, Case{"/home/me\\..\\", "a.vbp"}, Case{"c:\\p/", "a b.c.vbp"}, Case{"c:\\p\\", ""},
          Case{"", "a.vbp"}, Case{"", ""}}) {
        const std::string path = std::string(directory) + file;
        EXPECT_EQ(modMain::DirOrFileName(path, 1), directory) << path;
        EXPECT_EQ(modMain::DirOrFileName(path, 0), file) << path;
    }
}

}  // namespace
