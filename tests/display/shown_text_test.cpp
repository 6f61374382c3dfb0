#include "display/shown_text.h"

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
    using Case = std::pair<long long, const char*>;
    for (const auto& [number, text] : {Case{0, "0"}, Case{999, "999"}, Case{1000, "1,000"}, Case{-1234, "-1,234"},
                                       Case{-123, "-123"}, Case{1234567, "1,234,567"}})
        EXPECT_EQ(Utf8Number(number), text);
    gText.Language = "german";
    EXPECT_EQ(Utf8Number(252711), "252.711");
}

}  // namespace
