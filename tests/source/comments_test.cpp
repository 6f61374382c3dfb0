#include "source/comments.h"

#include <set>

#include "support/module_dumps.h"
#include "support/project_test.h"

namespace {

// The marks of each snippet are the expected ranges.
template <class Ranges>
void ExpectMarked(Ranges ranges, std::initializer_list<const char*> snippets) {
    for (const char* snippet : snippets) {
        SCOPED_TRACE(snippet);
        const Marked vb = Vb(snippet);
        EXPECT_EQ(ranges(ModuleText(vb.text)), vb.ranges);
    }
}

TEST(Comments, BeginAtAnApostropheOutsideStrings) {
    ExpectMarked(CommentRanges, {"a = 1 {{' note}}\nb = 2", "a = \"it's\" {{' it's \"quoted\"}}", "{{'}}",
                                 "a = \"\"\"\" {{' one quote}}", "a = \"open ' code to the end"});
}

TEST(Comments, RunOnOverAContinuation) {
    ExpectMarked(CommentRanges, {"x = 1 {{' first _\nstill comment}}\ny = 2", "x = 1 {{' ends here_}}\ny = 2",
                                 "first\nx = \"a\" & _\n  \"it's\" {{' note}}\ny"});
}

TEST(Comments, BeginAtRemAfterABlankOrALineEnd) {
    ExpectMarked(CommentRanges,
                 {"x\n{{Rem a}}\ny", "x = 1: {{Rem a}}", "x\n  {{rem a}}", "x {{Rem a}}", "x\n{{Rem a _\nb}}\nc",
                  "x = \" rem a\"", "x\nRemark a", "x\nRem\ny", "x\n{{Rem it's}}", "x {{' a rem b}}",
                  // A Rem at the start of the text stays code.
                  "Rem a\n{{Rem b}}", " {{Rem behind a blank}}\nx"});
}

TEST(Comments, LastLineWithoutLineEndUsesTheLineBefore) {
    const RecordingErrors errors;
    const auto comments = [](const char* text) { return CommentRanges(ModuleText(text)); };
    EXPECT_EQ(comments("x = 1\r\ny ' a"), std::vector<PosRange>());
    EXPECT_EQ(comments("a ' long enough\r\ny ' a"), (std::vector<PosRange>{{3, 15}, {20, 22}}));
    EXPECT_EQ(comments("a 'b\r\nyyy ' a"), (std::vector<PosRange>{{3, 4}}));
    EXPECT_THAT(std::set(errors.tags.begin(), errors.tags.end()),
                testing::ElementsAre("clsModul: Get_VBZeile_Nach_Pos"));
}

TEST(Strings, IncludeTheirQuotesAndGoOnOverLineEndsToTheNextQuote) {
    ExpectMarked(StringRanges,
                 {"x = {{\"a b\"}} & y", "x = {{\"a\"\"b\"}}", "x = {{\"\"}}", "f {{\"a\"}}, {{\"b\"}}",
                  "x = 1 ' it's \"quoted\"\ny = {{\"c\"}}", "x = {{\"a\ny = \"}}b", "x = {{\"a\"}} & \"open\ny = 1"});
}

}  // namespace
