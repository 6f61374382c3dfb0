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

// Expects the search for "word" from the start or end of the text to return the mark, or 0 without a mark.
void ExpectHit(Search search, std::initializer_list<const char*> snippets, bool fromEnd = false) {
    for (const char* snippet : snippets) {
        SCOPED_TRACE(snippet);
        const Source source(snippet);
        EXPECT_EQ(search(source.text, fromEnd ? source.text.CharCount() : 1, "word"),
                  source.vb.ranges.empty() ? 0 : source.vb.pos());
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

TEST(Suche, WholeWordInTextLooksEverywhere) {
    ExpectHit(Suche_GanzesWort_Im_Text, {"x {{word}}", "x = \"a {{word}}\"", "' {{word}} word",
                                         "sword words {{word}}.x", "rs!{{word}}", "x;word", "word"});
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

TEST(Suche, WordBeforeAPointIsReportedOnePositionFurther) {
    ExpectHit(Suche_CallWort_Im_Code_Type, {"x = word: w{{ord}}.a", "word.a: word.b", "' word.a\n", "word"});
    EXPECT_EQ(Suche_CallWort_Im_Code_Type(Source(" word.a").text, 0, "word"), 0);
}

TEST(Suche, BackwardFindsTheLastThatEndsBeforeTheStart) {
    ExpectHit(Suche_GanzesWort_Im_Code_Rev, {"word {{word}} words ' word", "{{word}} = rs!word", "sword \"word\""},
              true);
    ExpectHit(Suche_CallWort_Im_Code_Rev, {"word {{word}} words ' word", "x={{word}}", "word = rs!word"}, true);
    const Source source("a word, {{word}}, w, {{w}}, x");
    EXPECT_EQ(Suche_GanzesWort_Im_Code_Rev(source.text, source.vb.last(1), "word"), source.vb.pos(1));
    EXPECT_EQ(Suche_GanzesWort_Im_Code_Rev(source.text, source.vb.last(1) - 1, "word"), 3);
    EXPECT_EQ(Suche_GanzesWort_Im_Code_Rev(source.text, source.text.CharCount(), "w"), source.vb.pos(2));
    EXPECT_EQ(Suche_GanzesWort_Im_Code_Rev(source.text, source.text.CharCount(), "q"), 0);
}

TEST(Suche, CallComesWithItsDottedName) {
    const Source source(
        "first\nWith {{form1}}.list\n x = .items(1).{{word}}\nEnd With\ny = a.b.{{word}}(2)\n{{word}}s");
    const CallWord first = Suche_CallWort(source.text, "word", 1);
    EXPECT_EQ(first.pos, source.vb.pos(2));
    EXPECT_EQ(first.fullName, "form1.list.items(1).word");
    EXPECT_EQ(first.withName, "form1.list");
    EXPECT_EQ(first.withPos, source.vb.pos(1));
    const CallWord second = Suche_CallWort(source.text, "word", first.pos + 1);
    EXPECT_EQ(second.pos, source.vb.pos(3));
    EXPECT_EQ(second.fullName, "a.b.word");
    EXPECT_EQ(second.withPos, 0);
    EXPECT_EQ(Suche_CallWort(source.text, "word", second.pos + 1).pos, 0);
}

TEST(WithObject, IsThatOfTheLastWithLine) {
    const Source source(
        "x = {{}}1\nWith {{outer}}.a\n  {{.y}}\n  With {{inner}}\n    {{.x}}\n  End With\nEnd With\n"
        "' With comment\ny = \"With text\"\n{{.z}}");
    using Case = std::tuple<std::size_t, const char*, Pos>;
    // A block that has ended counts as well.
    for (const auto& [mark, object, expectedPos] :
         {Case{1, "", 0}, Case{3, "outer.a", source.vb.pos(2)}, Case{5, "inner", source.vb.pos(4)},
          Case{6, "inner", source.vb.pos(4)}}) {
        Pos withPos = -1;
        EXPECT_EQ(Get_WithObject(source.text, source.vb.pos(mark), withPos), object);
        EXPECT_EQ(withPos, expectedPos);
    }
}

}  // namespace
