#include "display/shown_text.h"

#include <gtest/gtest.h>

#include "platform/code_page.h"
#include "shell/clsText.h"
#include "support/program_state.h"

namespace {

using ShownTexts = ProgramState;

TEST_F(ShownTexts, PathsHaveOneSeparatorWhateverTheProjectFileWrites) {
    EXPECT_EQ(ShownPath("/a/b\\..\\C d.frm"), "/a/b/../C d.frm");
    SetActiveCodePage(CodePage("932"));
    EXPECT_EQ(ShownPath("p\\\x83\\x\\y.bas"), "p/\x83\\x/y.bas") << "the second byte of a character is no separator";
    EXPECT_EQ(ShownPath("p\\\x83"), "p/\x83");
}

TEST_F(ShownTexts, CountsHaveTheSeparatorsOfTheLanguage) {
    gText.Language = "english";
    for (const auto& [number, text] : {std::pair{0LL, "0"},
                                       {999LL, "999"},
                                       {1000LL, "1,000"},
                                       {-1234LL, "-1,234"},
                                       {-123LL, "-123"},
                                       {1234567LL, "1,234,567"}})
        EXPECT_EQ(Utf8Number(number), text);
    gText.Language = "german";
    EXPECT_EQ(Utf8Number(252711), "252.711");
}

}  // namespace
