#include "platform/text_bytes.h"

#include <gtest/gtest.h>

#include <utility>

#include "active_page.h"

namespace {

using namespace std::string_view_literals;

/// The text, after checking that both overloads of SetText give the same.
FileText Read(std::string_view bytes) {
    FileText copied;
    SetText(copied, bytes);
    FileText moved;
    SetText(moved, std::string(bytes));
    EXPECT_EQ(copied.text, moved.text);
    EXPECT_EQ(copied.hadOnlyLineFeeds, moved.hadOnlyLineFeeds);
    return copied;
}

TEST(LineEnds, ComeOutAsCrLf) {
    struct Case {
        std::string_view bytes;
        std::string_view text;
        bool hadOnlyLineFeeds = false;
    };
    for (const Case& c :
         {Case{"", ""}, Case{"a", "a"}, Case{"a\r\nb\r\n", "a\r\nb\r\n"}, Case{"a\nb\n", "a\r\nb\r\n", true},
          Case{"a\rb\r", "a\r\nb\r\n"}, Case{"\r\r\n\n\n\r", "\r\n\r\n\r\n\r\n\r\n"},
          Case{"a\nb\r\nc\rd", "a\r\nb\r\nc\r\nd"}, Case{"\n\r", "\r\n\r\n"}, Case{"a\0\n\0"sv, "a\0\r\n\0"sv, true}}) {
        SCOPED_TRACE(testing::PrintToString(c.bytes));
        EXPECT_EQ(Read(c.bytes).text, c.text);
        EXPECT_EQ(Read(c.bytes).hadOnlyLineFeeds, c.hadOnlyLineFeeds);
    }
}

TEST(LineEnds, AreFoundAtEveryPlaceOfALongText) {
    for (const std::size_t at : {239u, 240u, 241u, 479u, 16382u, 16383u, 16384u, 16385u, 32768u, 39999u}) {
        for (const char* lineEnd : {"\n", "\r", "\r\n"}) {
            const std::string before(at, 'x');
            const std::string behind(40000 - at, 'x');
            ASSERT_EQ(Read(before + lineEnd + behind).text, before + "\r\n" + behind) << at;
        }
    }
    EXPECT_EQ(Read(std::string(1000, '\r')).text, Read(std::string(1000, '\n')).text);
    EXPECT_EQ(Read(std::string(1000, '\n')).text.size(), 2000);
}

TEST(Marks, AreTakenOffAndUtf16IsConverted) {
    using Case = std::pair<std::string_view, std::string_view>;
    for (const auto& [bytes, text] :
         {Case{"\xEF\xBB\xBF", ""}, Case{"\xEF\xBB\xBF\xC3\xBC\n", "ü\r\n"}, Case{"\xEF\xBB", "\xEF\xBB"},
          Case{"\xFF\xFE", ""}, Case{"\xFF\xFEx\0\n\0\xFC\0"sv, "x\r\n\xFC"},
          Case{"\xFE\xFF\0x\0\r\0\n\0\xFC"sv, "x\r\n\xFC"},
          Case{"\xFF\xFE\xFC\0\x92\x21"sv, "ü→"},            // not completely representable in the page
          Case{"\xFF\xFE\x3D\xD8\x00\xDE"sv, "\U0001F600"},  // a surrogate pair, followed by cases with halves of one
          Case{"\xFF\xFEx\0\x3D\xD8y\0"sv, "x?y"}, Case{"\xFF\xFE\x3D\xD8"sv, "?"},
          Case{"\xFF\xFE\x00\xDE\x00\xDE"sv, "??"}, Case{"\xFF\xFE\x00\xDE\x92\x21"sv, "\uFFFD→"},
          Case{"\xFF\xFEx\0y"sv, "x?"}}) {  // half a unit
        SCOPED_TRACE(testing::PrintToString(bytes));
        EXPECT_EQ(Read(bytes).text, text);
        EXPECT_EQ(Read(bytes).convertedFromUtf16, bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF"));
    }
    const WithCodePage page("1251");
    EXPECT_EQ(Read("\xFE\xFF\x04\x1F"sv).text, "\xCF");
}

}  // namespace
