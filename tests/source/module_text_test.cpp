#include "source/module_text.h"

#include "support/project_test.h"

namespace {

TEST(ModuleText, FlagsOutsideTheTextAreAnError) {
    ModuleText text("abc");
    text.Mark(2, 99, IsString);
    text.Mark(-5, 2, IsComment);
    text.Mark(3, 2, NotCompile);
    EXPECT_FALSE(text.PosNotCode(0));  // entry 0 belongs to no character
    EXPECT_EQ(text.FlagsAt(1), IsComment);
    EXPECT_EQ(text.FlagsAt(2), IsComment | IsString);
    EXPECT_TRUE(text.PosIsString(3) && text.PosNotCode(3));
    for (const Pos pos : {-1, 4})
        EXPECT_THROW((void)text.PosNotCode(pos), VbError) << pos;
}

TEST(VBZeilenEnde, IsTheCarriageReturnAfterTheLastContinuation) {
    const Marked vb = Vb(R"(
        {{D}}im a _
            As Long{{}}
        b_{{}}
        {{c}}
    )");
    const ModuleText text(vb.text);
    for (const auto& [from, end] : {std::pair{vb.pos(1), vb.pos(2)},
                                    {vb.pos(2), vb.pos(2)},  // the line end itself
                                    {vb.pos(3), vb.pos(3)},  // "_" directly after a letter: no continuation
                                    {vb.pos(4), vb.pos(4) + 1},
                                    {vb.pos(4) + 2, 0}})
        EXPECT_EQ(text.Get_VBZeilenEnde(from), end) << from;
    EXPECT_EQ(ModuleText("a\r\nlast").Get_VBZeilenEnde(4), 0);
    EXPECT_EQ(ModuleText("a _\r\n").Get_VBZeilenEnde(1), 0);
}

TEST(VBZeilenBeginn, IsTheFirstCharacterBeforeAllContinuations) {
    const Marked vb = Vb(R"(
        first{{}}
        {{D}}im a, _
            b, _
            {{c}}
        {{e}}_
        {{g}}
    )");
    const ModuleText text(vb.text);
    for (const auto& [from, begin] : {std::pair{1, 1},
                                      {vb.pos(1), 1},  // the line end itself
                                      {vb.pos(3), vb.pos(2)},
                                      {vb.pos(4), vb.pos(4)},
                                      {vb.pos(5), vb.pos(5)}}) {
        EXPECT_EQ(text.Get_VBZeilenBeginn_Safe(from), begin) << from;
    }
    EXPECT_EQ(text.Get_VBZeilenBeginn_Safe(0), 0);
    EXPECT_EQ(ModuleText(" _\r\nx\r\n").Get_VBZeilenBeginn_Safe(5), 0) << "a text that begins with a continuation";
}

TEST(VBZeilenBeginn, LineBreakAtTextStartIsReportedWithTheLineOnly) {
    RecordingErrors errors;
    EXPECT_EQ(ModuleText("\r\nDim a\r\n").Get_VBZeilenBeginn_Safe(4), 1);
    EXPECT_EQ(ModuleText("x\r\nDim a\r\n").Get_VBZeilenBeginn_Safe(5), 1);
    EXPECT_EQ(ModuleText("xy\r\nDim a\r\n").Get_VBZeilenBeginn_Safe(6), 5);
    EXPECT_THAT(errors.tags, ElementsAre());
    Pos start = 0;
    Pos length = 0;
    std::string_view line;
    EXPECT_TRUE(ModuleText("\r\nDim a\r\n").Get_VBZeile_Nach_Pos(4, start, length, line));
    EXPECT_EQ(start, 3);
    EXPECT_THAT(errors.tags, ElementsAre("clsModul: Get_VBZeilenBeginn"));
}

TEST(VBZeile, IsReadInEitherSpellingAndTheLastWithoutLineEndIsReported) {
    const ModuleText text("first\r\nDim A _\r\n  As Long\r\nlast");
    using Reader = bool (ModuleText::*)(Pos, Pos&, Pos&, std::string_view&) const;
    for (const auto& [read, expected, tag] :
         {std::tuple<Reader, const char*, const char*>{&ModuleText::Get_VBZeile_Nach_Pos, "dim a _\r\n  as long", ""},
          {&ModuleText::Get_VBZeile_Nach_Pos_Org, "Dim A _\r\n  As Long", "_Org"}}) {
        const RecordingErrors errors;
        Pos start = 0;
        Pos length = 0;
        std::string_view line;
        EXPECT_TRUE((text.*read)(20, start, length, line));
        EXPECT_EQ(std::tuple(line, start, length), std::tuple(expected, 8, 18));
        EXPECT_FALSE((text.*read)(29, start, length, line));
        EXPECT_EQ(std::tuple(line, start, length), std::tuple(expected, 28, -28)) << "the text stays";
        EXPECT_THAT(errors.tags, ElementsAre(std::string("clsModul: Get_VBZeile_Nach_Pos") + tag));
        EXPECT_THAT(errors.numbers, ElementsAre(5));
    }
}

}  // namespace
