#include "source/words.h"

#include <gtest/gtest.h>

#include "source/comments.h"
#include "support/marked.h"

namespace {

class Source {
public:
    explicit Source(const char* snippet) : vb(Vb(snippet)), text(vb.text) {
        Comments_Initialisieren(text);
        Strings_Initialisieren(text);
    }
    const Marked vb;
    ModuleText text;
};

using Search = Pos (*)(const ModuleText&, Pos, std::string_view);

// Expects the search for "word" from the start of the text to return the mark, or 0 without a mark.
void ExpectHit(Search search, std::initializer_list<const char*> snippets) {
    for (const char* snippet : snippets) {
        SCOPED_TRACE(snippet);
        const Source source(snippet);
        EXPECT_EQ(search(source.text, 1, "word"), source.vb.ranges.empty() ? 0 : source.vb.pos());
    }
}

TEST(WordBorders, AreThePublishedCharacters) {
    const std::string_view borders = "=:*/+- ',.()$%!#@&\"\r\n";
    for (int code = 0; code < 256; ++code) {
        const char c = static_cast<char>(code);
        const bool isBorder = borders.find(c) != std::string_view::npos;
        EXPECT_EQ(modMain::IstSonderZeichen(c), isBorder) << code;
        EXPECT_EQ(modMain::IstSonderZeichenAusserAusrufUndGleich(c), isBorder && c != '!' && c != '=') << code;
    }
}

TEST(Suche, WholeWordInCodePassesOverCommentsAndStrings) {
    ExpectHit(Suche_GanzesWort_Im_Code, {"{{Word}} x", "x = \"word\" + {{word}}", "' word\n{{word}}",
                                         "rs!word + {{word}}", "sword, words, {{word}}", "x={{word}}"});
    Source source("a word\n{{word}}");
    source.text.Mark(3, 6, NotCompile);
    EXPECT_EQ(Suche_GanzesWort_Im_Code(source.text, 1, "word"), source.vb.pos());
    EXPECT_EQ(Suche_GanzesWort_Im_Code(ModuleText("a word"), 1, "word"), 0) << "nothing stands behind the word";
}

TEST(Suche, CalledWordIsNotFoundDirectlyAfterAnEqualsSign) {
    ExpectHit(Suche_CallWort_Im_Code, {"{{word}}", "x = {{word}}", "x=word", "f x:={{word}}", "rs!word", "f({{word}})",
                                       "a.{{word}}$", "' word\nx=\"word\""});
    EXPECT_EQ(Suche_CallWort_Im_Code(Source("word").text, 0, "word"), 0);
}

}  // namespace
