#include "source/statement.h"

#include <gtest/gtest.h>

#include "source/comments.h"
#include "support/marked.h"

namespace {

// The statement at the first mark of a snippet.
class At {
public:
    explicit At(const char* snippet) : vb(Vb(snippet)), text_(vb.text), statement_(text_) {
        Comments_Initialisieren(text_);
        Strings_Initialisieren(text_);
        statement_.Initialisieren(vb.pos());
    }
    clsStatement* operator->() { return &statement_; }

    // All splits, "a|=|b".
    [[nodiscard]] std::string Splits() const {
        std::string splits;
        for (int nr = 1; nr <= statement_.SplitCount(); ++nr)
            splits.append(nr == 1 ? "" : "|").append(statement_.SplitStr(nr));
        return splits;
    }

    const Marked vb;

private:
    ModuleText text_;
    clsStatement statement_;
};

using Case = std::pair<const char*, const char*>;

TEST(Statement, IsSplitAtBlanksThatSeparate) {
    for (const auto& [snippet, splits] :
         {Case{"{{a}} = b + c", "a|=|b|+|c"}, Case{"{{foo}} (1, 2), 3", "foo (1, 2),|3"}, Case{"{{x}}.y .z", "x.y .z"},
          Case{"{{MsgBox}} \"x y\"", "msgbox|\"x y\""}, Case{"{{a}} = \"(\" & b & \" c\"", "a|=|\"(\"|&|b|&|\" c\""},
          Case{"{{a}}   =   b", "a|=|b"}, Case{"{{a}} = b And (c Or d)", "a|=|b|and|(c or d)"},
          Case{"{{a}} = b. c <> .d", "a|=|b. c|<>|.d"}, Case{"{{a}} = \"s\" (1)", "a|=|\"s\"|(1)"},
          Case{"{{foo}} a, _\n    b ' note", "foo|a,|b"}})
        EXPECT_EQ(At(snippet).Splits(), splits) << snippet;
}

TEST(Statement, SplitsHavePositions) {
    At at("Foo: a = b.{{c}}d + e");
    EXPECT_EQ(at->Statement(), "a = b.cd + e");
    EXPECT_EQ(at->SplitPos(3), 5);
    EXPECT_THROW((void)at->SplitStr(6), VbError);
    // Several blanks count as one in the positions of splits.
    EXPECT_EQ(At("a    {{=}} b")->SplitPos(3), 5);
}

TEST(Statement, IsCutAtColonAndThen) {
    for (const auto& [snippet, statement] :
         {Case{"If a Then {{b}} = 1: c = 2", "b = 1"}, Case{"If {{a}} Then b = 1: c = 2", "if a"},
          Case{"a = \": \": {{b}} = \" then \"", "b = \" then \""}, Case{"a = 1:   {{b}} = 2 ' note: x", "b = 2"},
          Case{"{{x}}:y = 1", "x:y = 1"},
          // Both separators to the left and the colon nearer: the line from its start.
          Case{"If a Then b = 1: {{c}} = 2", "if a then b = 1: c = 2"},
          Case{"first\nfoo a, _\n  {{b}}", "foo a,      b"}}) {  // a continuation does not shift positions
        SCOPED_TRACE(snippet);
        At at(snippet);
        EXPECT_EQ(at->Statement(), statement);
        EXPECT_EQ(CharAt(at->Statement(), at.vb.pos() - at->StatementPos() + 1), CharAt(at.vb.text, at.vb.pos()));
    }
}

TEST(Statement, LineWithoutCodeHasNoSplits) {
    for (const char* snippet : {"  {{'}} a = b", "{{}}   \nx", "{{}}\nx"})
        EXPECT_EQ(At(snippet)->SplitCount(), 0) << snippet;
    EXPECT_EQ(At("x = \"it's\"   ' {{n}}ote").Splits(), "x|=|\"it's\"");
}

}  // namespace
