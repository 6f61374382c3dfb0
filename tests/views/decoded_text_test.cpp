#include "views/decoded_text.h"

#include <gtest/gtest.h>

#include "platform/code_page.h"

namespace {

// Maps each place of the shown text to a byte and back, and each byte to its character.
void ExpectWaysMeet(const DecodedText& text) {
    for (int place = 0; place <= text.Text().size(); ++place) {
        const bool isSecondHalf = place < text.Text().size() && text.Text()[place].isLowSurrogate();
        EXPECT_EQ(text.ToUtf16(text.ToByte(place)), isSecondHalf ? place - 1 : place) << place;
    }
    int before = 0;
    for (Pos byte = 0; byte <= text.ByteCount(); ++byte) {
        const int place = text.ToUtf16(byte);
        EXPECT_GE(place, before) << byte;
        EXPECT_LE(text.ToByte(place), byte);
        before = place;
    }
    EXPECT_EQ(text.ToUtf16(text.ByteCount() + 9), text.Text().size());
    EXPECT_EQ(text.ToUtf16(-1), 0);
    EXPECT_EQ(text.ToByte(static_cast<int>(text.Text().size())), text.ByteCount());
}

}  // namespace

TEST(DecodedText, CountsInStepBetweenLineEndsAndLongCharacters) {
    using Case = std::tuple<const char*, const char*, const char16_t*>;
    for (const auto& [page, bytes, shown] :
         {Case{"1252", "", u""}, Case{"1252", "a\r\nb\rc\nd\r\n", u"a\nb\nc\nd\n"},
          Case{"1252", "\xE4 \x80\r\n\xFF", u"\u00E4 \u20AC\n\u00FF"}, Case{"1251", "\xC4\xE0", u"\u0414\u0430"},
          Case{"65001", "a\xC3\xA4\r\n\xE2\x82\xACz", u"a\u00E4\n\u20ACz"},
          Case{"65001", "\xF0\x9F\x98\x80x", u"\U0001F600x"}, Case{"65001", "x\xC3(\xFFy", u"x\uFFFD(\uFFFDy"},  // torn
          Case{"932", "\x83\x5C\r\nz\xB1", u"\u30BD\nz\uFF71"}, Case{"932", "z\x83", u"z\uFFFD"},
          Case{"932", "\x83\r\nz", u"\uFFFD\nz"}}) {
        const DecodedText text(bytes, CodePage(page));
        EXPECT_EQ(text.Text(), QString::fromUtf16(shown)) << page;
        EXPECT_EQ(text.ByteCount(), static_cast<Pos>(std::string_view(bytes).size()));
        ExpectWaysMeet(text);
    }
}

TEST(DecodedText, MarksOfDirectionBelongToNoByte) {
    const std::vector<Pos> bounds{0, 2, 3, 99};
    const DecodedText text("a\xE0\r\nb", CodePage("1255"), bounds);
    EXPECT_TRUE(text.HasRightToLeft());
    EXPECT_EQ(text.Text(), QString::fromUtf16(u"\u200Ea\u05D0\u200E\n\u200Eb"));
    EXPECT_EQ(text.WithoutMarks(0, 7), QString::fromUtf16(u"a\u05D0\nb"));
    EXPECT_EQ(text.WithoutMarks(1, 4), QString::fromUtf16(u"a\u05D0"));
    for (Pos byte : {0, 1, 2, 4})
        EXPECT_EQ(text.ToByte(text.ToUtf16(byte)), byte);
    EXPECT_EQ(text.Text()[text.ToUtf16(4)], QLatin1Char('b'));
    EXPECT_FALSE(DecodedText("a\xE4", CodePage("1252")).HasRightToLeft());
}

TEST(DecodedText, SignsOfTheTextWidgetAreNoLineEnds) {
    using namespace std::string_view_literals;
    const DecodedText text("a\0b\xE2\x80\xA9"sv, CodePage("65001"));
    EXPECT_EQ(text.Text(), QString::fromUtf16(u"a\uFFFDb\uFFFD"));
}
