#include "shell/clsText.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "platform/code_page.h"
#include "support/ports.h"

namespace {

TEST(Texts, AreAtTheLineOfTheirNumberAndKeepTheirValueWithoutANewOne) {
    const RecordingErrors errors;
    const MemoryFiles files{{"o\\Languages\\english.txt", "Open\r\n\r\nExit"}, {"o/Languages/german.txt", "Auf\r\n"}};
    clsText text;
    text.Language = "";  // selects english
    text.SetLanguage(files, "o\\");
    EXPECT_EQ(text.TextNr(Text::OpenProject), "Open");
    text.Language = "german";
    text.SetLanguage(files, "o\\");
    text.SetLanguage(MemoryFiles(), "o\\");  // a missing file is not an error
    for (const auto& [nr, line] : {std::pair{1, "Auf"}, {2, ""}, {3, "Exit"}, {0, ""}, {4, ""}, {1000, ""}})
        EXPECT_EQ(text.TextNr(Text{nr}), line) << nr;
    EXPECT_THAT(errors.tags, testing::IsEmpty());
}

// Ranges of the text numbers that the program uses.
constexpr std::pair<int, int> kInUse[] = {{1, 4},   {6, 11},  {13, 15}, {19, 19}, {21, 22}, {24, 26},
                                          {30, 33}, {43, 43}, {45, 45}, {50, 51}, {53, 62}, {66, 69},
                                          {72, 75}, {77, 84}, {86, 86}, {89, 97}, {99, 99}};

class LanguageFiles : public testing::TestWithParam<const char*> {};

TEST_P(LanguageFiles, HaveEveryTextInUseAndTheFormOfTheProgram) {
    DiskFiles files;
    const std::string root = std::string(OSTRIVANE_SOURCE_DIR) + "/";
    clsText text;
    text.Language = GetParam();
    text.SetLanguage(files, root);
    for (const auto& [first, last] : kInUse)
        for (int nr = first; nr <= last; ++nr)
            EXPECT_NE(text.TextNr(Text{nr}), "") << nr;

    const FileText file = files.ReadText(root + "Languages/" + GetParam() + ".txt");
    const FileText other = files.ReadText(root + "Languages/english.txt");
    EXPECT_FALSE(file.hadOnlyLineFeeds);
    EXPECT_FALSE(IsValidUtf8(file.text)) << "the texts hold characters beyond ASCII, in Windows-1252";
    EXPECT_TRUE(file.text.ends_with("\r\n"));
    EXPECT_EQ(file.text.find('&'), std::string::npos) << "the program underlines letters itself";
    EXPECT_EQ(std::ranges::count(file.text, '\n'), std::ranges::count(other.text, '\n'));
}

INSTANTIATE_TEST_SUITE_P(Both, LanguageFiles, testing::Values("english", "german"));

}  // namespace
