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
         {Case{"Form=Form1.frm", 1, "Form"}, Case{"Form=Form1.frm", 3, "frm"}, Case{"Form=Form1.frm", 4, ""},
          Case{"   first second", 2, "second"}, Case{"Name=\"Projekt 1\"", 2, "Projekt"},  // quotes group nothing
          Case{"a(,).-+*/=:b", 2, "b"}, Case{"a_b;c\td", 1, "a_b;c\td"}, Case{"x'y z", 1, "x"},
          Case{"x'y z", 2, ""},  // the text ends behind the apostrophe
          Case{"'x", 1, ""}, Case{" .,", 1, ""}}) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(modMain::GetWortNrAusString(c.text, c.nr), c.word);
    }
}

TEST(GetStringContent, IsWhatStandsBetweenTheFirstTwoQuotes) {
    for (const auto& [text, content] :
         {std::pair{"Name=\"Projekt 1\" \"x\"", "Projekt 1"}, {"Name=\"\"", ""}, {"Name=\"open", ""}, {"none", ""}})
        EXPECT_EQ(modMain::GetStringContent(text), content) << text;
}

TEST(DirOrFileName, CutsBehindTheLastSeparatorOfEitherKind) {
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
