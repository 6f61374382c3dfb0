#include "shell/words.h"

#include <gtest/gtest.h>

namespace {

TEST(GetWortNrAusString, CountsRunsBetweenSeparators) {
    struct Case {
        const char* text;
        int nr;
        const char* word;
    };
    for (const Case& c :
         {Case{"Form=Form1.frm", 1, "Form"}, Case{"Form=Form1.frm", 2, "Form1"}, Case{"Form=Form1.frm", 3, "frm"},
          Case{"Form=Form1.frm", 4, ""}, Case{"   first second", 1, "first"}, Case{"   first second", 2, "second"},
          Case{"Name=\"Projekt 1\"", 2, "Projekt"},  // quotes group nothing
          Case{"Name=\"Projekt 1\"", 3, "1"}, Case{"a(,).-+*/=:b", 2, "b"}, Case{"a_b;c\td", 1, "a_b;c\td"},
          Case{"x'y z", 1, "x"}, Case{"x'y z", 2, ""},  // the text ends behind the apostrophe
          Case{"'x", 1, ""}, Case{"", 1, ""}, Case{" .,", 1, ""}}) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(modMain::GetWortNrAusString(c.text, c.nr), c.word);
    }
}

TEST(GetStringContent, IsWhatStandsBetweenTheFirstTwoQuotes) {
    EXPECT_EQ(modMain::GetStringContent("Name=\"Projekt 1\" \"x\""), "Projekt 1");
    EXPECT_EQ(modMain::GetStringContent("Name=\"\""), "");
    EXPECT_EQ(modMain::GetStringContent("Name=\"open"), "");
    EXPECT_EQ(modMain::GetStringContent("Name=none"), "");
}

TEST(DirOrFileName, CutsBehindTheLastSeparatorOfEitherKind) {
    struct Case {
        const char* path;
        const char* directory;
        const char* file;
    };
    for (const Case& c :
         {Case{"c:\\p\\a.vbp", "c:\\p\\", "a.vbp"}, Case{"/home/me/a.vbp", "/home/me/", "a.vbp"},
          Case{"/home/me\\..\\a.vbp", "/home/me\\..\\", "a.vbp"}, Case{"c:\\p/a b.c.vbp", "c:\\p/", "a b.c.vbp"},
          Case{"c:\\p\\", "c:\\p\\", ""}, Case{"a.vbp", "", "a.vbp"}, Case{"", "", ""}}) {
        SCOPED_TRACE(c.path);
        EXPECT_EQ(modMain::DirOrFileName(c.path, 1), c.directory);
        EXPECT_EQ(modMain::DirOrFileName(c.path, 0), c.file);
        EXPECT_EQ(modMain::DirOrFileName(c.path, 2), c.file);
    }
}

}  // namespace
