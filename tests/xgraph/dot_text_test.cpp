#include "xgraph/dot_text.h"

#include <gtest/gtest.h>

TEST(DotText, NothingInACaptionHasAMeaning) {
    EXPECT_EQ(DotQuoted(""), R"("")");
    EXPECT_EQ(DotQuoted("Main.Start"), R"("Main.Start")");
    EXPECT_EQ(DotQuoted(R"(say "no")"), R"("say \"no\"")");
    EXPECT_EQ(DotQuoted(R"(C:\new\)"), R"("C:\\new\\")");
    EXPECT_EQ(DotQuoted("a&lt;b"), R"("a&amp;lt;b")");
    EXPECT_EQ(DotQuoted("one\ntwo\tthree"), R"("one\ntwo three")");
    EXPECT_EQ(DotQuoted("Gr\xC3\xB6\xC3\x9F"
                        "e"),
              "\"Gr\xC3\xB6\xC3\x9F"
              "e\"");
}
