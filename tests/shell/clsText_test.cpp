#include "shell/clsText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "platform/code_page.h"
#include "support/ports.h"

namespace {

using testing::IsEmpty;
using testing::Not;

TEST(Texts, StandAtTheLineOfTheirNumber) {
    const MemoryFiles files{{"c:\\o\\Languages\\english.txt", "Open\r\n\r\nExit"}};
    clsText text;
    text.Language = "";  // becomes english
    text.SetLanguage(files, "c:\\o\\");
    EXPECT_EQ(text.Language, "english");
    EXPECT_EQ(text.TextNr(1), "Open");
    EXPECT_EQ(text.TextNr(2), "");
    EXPECT_EQ(text.TextNr(3), "Exit");
    for (const int nr : {-1, 0, 4, 1000})
        EXPECT_EQ(text.TextNr(nr), "") << nr;
}

TEST(Texts, TheOldTableStaysWhereNothingComesInItsPlace) {
    const RecordingErrors errors;
    const MemoryFiles files{{"Languages/english.txt", "one\r\ntwo\r\nthree\r\n"}, {"Languages/german.txt", "eins\r\n"}};
    clsText text;
    text.SetLanguage(files, "");
    text.Language = "german";
    text.SetLanguage(files, "");
    text.SetLanguage(MemoryFiles(), "");  // a missing file is no failure
    EXPECT_EQ(text.TextNr(1), "eins");
    EXPECT_EQ(text.TextNr(2), "two");
    EXPECT_EQ(text.TextNr(3), "three");
    EXPECT_THAT(errors.tags, IsEmpty());
}

// Numbers that some part of the program asks for, as stretches.
constexpr std::pair<int, int> kInUse[] = {{1, 4},   {6, 11},  {13, 15}, {19, 22}, {24, 26}, {30, 33},
                                          {43, 43}, {45, 45}, {50, 51}, {53, 62}, {66, 69}, {72, 75},
                                          {77, 84}, {86, 86}, {89, 97}, {99, 99}};

class LanguageFiles : public testing::TestWithParam<const char*> {};

TEST_P(LanguageFiles, HaveEveryTextInUse) {
    DiskFiles files;
    const std::string root = std::string(OSTRIVANE_SOURCE_DIR) + "/";
    clsText text;
    text.Language = GetParam();
    text.SetLanguage(files, root);
    for (const auto& [first, last] : kInUse)
        for (int nr = first; nr <= last; ++nr)
            EXPECT_THAT(text.TextNr(nr), Not(IsEmpty())) << nr;
}

TEST_P(LanguageFiles, AreWrittenInTheFormOfTheProgram) {
    DiskFiles files;
    const FileText file = files.ReadText(std::string(OSTRIVANE_SOURCE_DIR) + "/Languages/" + GetParam() + ".txt");
    const FileText other = files.ReadText(std::string(OSTRIVANE_SOURCE_DIR) + "/Languages/english.txt");
    ASSERT_EQ(file.error, FileError::None);
    EXPECT_FALSE(file.hadOnlyLineFeeds);
    EXPECT_FALSE(IsValidUtf8(file.text)) << "the texts hold characters beyond ASCII, in Windows-1252";
    EXPECT_TRUE(file.text.ends_with("\r\n"));
    EXPECT_EQ(file.text.find(" \r\n"), std::string::npos) << "blanks at the end of a line";
    EXPECT_EQ(file.text.find('&'), std::string::npos) << "the program underlines letters itself";
    EXPECT_EQ(std::count(file.text.begin(), file.text.end(), '\n'),
              std::count(other.text.begin(), other.text.end(), '\n'));
}

INSTANTIATE_TEST_SUITE_P(Both, LanguageFiles, testing::Values("english", "german"),
                         [](const auto& language) { return std::string(language.param); });

TEST(EnglishTexts, ErrorWindowReadsAsItsFallbacks) {
    DiskFiles files;
    clsText text;
    text.SetLanguage(files, std::string(OSTRIVANE_SOURCE_DIR) + "/");
    EXPECT_EQ(text.TextNr(3), "Exit");
    EXPECT_EQ(text.TextNr(74), "Mail this Error to:");
    EXPECT_EQ(text.TextNr(75), "Ignore");
    EXPECT_EQ(text.TextNr(82), "Creates and opens a mail with the error text. You just need to send it!");
}

}  // namespace
