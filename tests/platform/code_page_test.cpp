#include "platform/code_page.h"

#include <gtest/gtest.h>

#include <initializer_list>

#include "active_page.h"

namespace {

using namespace std::string_view_literals;

TEST(CodePageSetting, KeepsKnownNumbersAndFallsBackToAuto) {
    for (const char* known : {"1252", "932", "65001", "20866"})
        EXPECT_EQ(CodePage(known).Setting(), known);
    // 500 is a page in which even letters have other codes; 1200 has two bytes per character.
    for (const char* unknown : {"auto", "", "utf8", "-1", "01252", "1252 ", "12 52", "500", "1200", "99999", "123456"})
        EXPECT_EQ(CodePage(unknown).Setting(), "auto") << unknown;
}

TEST(CodePageLower, FollowsTheLettersOfThePage) {
    for (const auto& [page, text, lower] : std::initializer_list<std::array<const char*, 3>>{
             {"auto", "Sub F\xDC\xDF_1[@]", "sub f\xFC\xDF_1[@]"},              // Ü has a lower case, ß none
             {"1252", "\x8A\x9F\xD7\xDE\xFF\x81", "\x9A\xFF\xD7\xFE\xFF\x81"},  // × and undefined bytes: unchanged
             {"1251", "\xC0\xDF\xA8", "\xE0\xFF\xB8"},                          // А Я Ё
             {"932", "AB\x83\x41Z\xDC", "ab\x83\x61z\xDC"},                     // bytes below 128 only
             {"65001", "\xC3\x9CZ", "\xC3\x9Cz"}})
        EXPECT_EQ(CodePage(page).LowerCase(text), lower) << page;
    EXPECT_EQ(LowerCase("\xC0"), "\xE0");
    const WithCodePage page("1251");  // applies to the whole program
    EXPECT_EQ(LowerCase("\xA8"), "\xB8");
}

TEST(CodePageLower, IsTheSameForEveryLengthAndPlaceOfHighBytes) {
    const CodePage page;
    std::string text;
    for (int i = 0; i < 300; ++i)
        text += static_cast<char>(i < 130 ? 'A' + i % 60 : i * 7);
    for (std::size_t begin = 0; begin < 70; ++begin) {
        for (const std::size_t length : {0, 1, 15, 63, 64, 65, 128, 200}) {
            std::string expected = text.substr(begin, length);
            for (char& c : expected)
                c = static_cast<char>(page.Lower(static_cast<unsigned char>(c)));
            std::string inPlace = text.substr(begin, length);
            page.LowerCase(inPlace, inPlace.data());
            ASSERT_EQ(inPlace, expected) << begin << ' ' << length;
        }
    }
}

TEST(CodePageToUtf8, DecodesPageAndNeverFails) {
    using Case = std::array<std::string_view, 3>;
    for (const auto& [page, bytes, utf8] :
         {Case{"auto", "a\0b"sv, "a\0b"sv}, Case{"auto", "\xC3\xBC", "ü"},  // is UTF-8 already
          Case{"auto", "\xFC\xC3\xBC", "üÃ¼"},                              // is not, as a whole
          Case{"1252", "\xC3\xBC\x80\x81", "Ã¼€\uFFFD"}, Case{"1251", "\xCF\xF0", "Пр"},
          Case{"1258", "a\xEC", "a\u0301"},                   // a lone accent is not held back
          Case{"932", "\x95\x5C\x8E\xA6\x95", "表示\uFFFD"},  // half a character
          Case{"932", "\xFD\x95\x5C", "\uFFFD表"}, Case{"949", "\xC7\xD1", "한"},
          Case{"65001", "\xC3\xBC\xC3 \xED\xA0\x80", "ü\uFFFD \uFFFD\uFFFD\uFFFD"}})
        EXPECT_EQ(CodePage(page).ToUtf8(bytes), utf8) << page;
    std::string all;
    for (int i = 0; i < 256; ++i)
        all += static_cast<char>(i);
    for (const char* page : {"auto", "1252", "1255", "932", "936", "949", "950", "65001"})
        EXPECT_TRUE(IsValidUtf8(CodePage(page).ToUtf8(all))) << page;
}

TEST(CodePageFromUtf8, SaysWhatThePageCanSay) {
    struct Case {
        const char* page;
        std::string_view utf8;
        std::string_view bytes;
        bool isWhole = true;
    };
    for (const Case& c :
         {Case{"1252", "für 5 €", "f\xFCr 5 \x80"}, Case{"1252", "ü→ü", "\xFC?\xFC", false},
          Case{"1252", "a\xC3", "a?", false},  // torn UTF-8
          Case{"932", "表→示z", "\x95\x5C\x81\xA8\x8E\xA6z"}, Case{"932", "表ü示", "\x95\x5C?\x8E\xA6", false},
          Case{"65001", "ü→", "ü→"}, Case{"auto", "ü", "\xFC"}, Case{"auto", "ü→", "ü→", false},
          Case{"auto", "Ã¼", "Ã¼", false}}) {  // its two bytes would be read as "ü"
        SCOPED_TRACE(std::string(c.page) + " " + std::string(c.utf8));
        EXPECT_EQ(CodePage(c.page).FromUtf8(c.utf8), c.bytes);
        EXPECT_EQ(CodePage(c.page).FromUtf8Whole(c.utf8).has_value(), c.isWhole);
    }
}

TEST(Utf8, KnowsWellFormedTexts) {
    for (const char* good : {"", "abc", "ü", "€", "\U0001F600", "\xF4\x8F\xBF\xBF"})
        EXPECT_TRUE(IsValidUtf8(good)) << good;
    // Overlong form, surrogate, beyond Unicode, incomplete, lone continuation byte.
    for (const char* bad : {"\xC0\x80", "\xE0\x80\xAF", "\xF0\x80\x80\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80",
                            "\xE2\x82", "\x80", "\xFF", "\xC3("})
        EXPECT_FALSE(IsValidUtf8(bad)) << testing::PrintToString(bad);
    const std::string block(63, 'a');  // with the error at its border
    EXPECT_TRUE(IsValidUtf8(block + "ü" + block + block));
    EXPECT_FALSE(IsValidUtf8(block + "a\xC3"));
}

TEST(CodePageNames, AreThoseOfUsers) {
    using Case = std::pair<const char*, const char*>;
    for (const auto& [name, setting] :
         {Case{"auto", "auto"}, Case{"1256", "1256"}, Case{"Windows-1256", "1256"}, Case{"CP932", "932"},
          Case{"Shift-JIS", "932"}, Case{"UTF-8", "65001"}, Case{"koi8-r", "20866"}})
        EXPECT_EQ(CodePageNamed(name), setting) << name;
    for (const char* unknown : {"", "windows-", "1200", "99999", "klingon", "windows-koi8-r"})
        EXPECT_EQ(CodePageNamed(unknown), std::nullopt) << unknown;
    for (const CodePageName& page : SupportedCodePages())
        EXPECT_EQ(CodePage(page.number).Setting(), page.number);
}

}  // namespace
