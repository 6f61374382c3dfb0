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

// The search for "word" from the text's start, or from its end, must give the mark, or 0 where there is none.
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

TEST(Suche, CalledWordIsNotFoundRightBehindAnEqualsSign) {
    ExpectHit(Suche_CallWort_Im_Code, {"{{word}}", "x = {{word}}", "x=word", "f x:={{word}}", "rs!word", "f({{word}})",
                                       "a.{{word}}$", "' word\nx=\"word\""});
    EXPECT_EQ(Suche_CallWort_Im_Code(Source("word").text, 0, "word"), 0);
}

TEST(Suche, WordBeforeAPointIsToldOnePositionFurther) {
    const Source source("x = word: {{word}}.a");
    EXPECT_EQ(Suche_CallWort_Im_Code_Type(source.text, 1, "word"), source.vb.pos() + 1);
    ExpectHit(Suche_CallWort_Im_Code_Type, {"word.a: word.b", "' word.a\n", "word"});
    EXPECT_EQ(Suche_CallWort_Im_Code_Type(source.text, 0, "word"), 0);
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
    const Source source(R"(
        first
        With {{form1}}.list
            x = .items(1).{{word}}
        End With
        y = a.b.{{word}}(2)
        {{word}}s
    )");
    const auto call = [&](Pos start) { return Suche_CallWort(source.text, "word", start); };
    EXPECT_EQ(call(1).pos, source.vb.pos(2));
    EXPECT_EQ(call(1).fullName, "form1.list.items(1).word");
    EXPECT_EQ(call(1).withName, "form1.list");
    EXPECT_EQ(call(1).withPos, source.vb.pos(1));
    const CallWord second = call(source.vb.pos(2) + 1);
    EXPECT_EQ(second.pos, source.vb.pos(3));
    EXPECT_EQ(second.fullName, "a.b.word");
    EXPECT_EQ(second.withPos, 0);
    EXPECT_EQ(call(source.vb.pos(3) + 1).pos, 0);
}

TEST(WithObject, IsThatOfTheLastWithLine) {
    const Source source(R"(
        x = {{}}1
        With {{outer}}.a
            {{.y}}
            With {{inner}}
                {{.x}}
            End With
        End With
        ' With comment
        y = "With text"
        {{.z}}
    )");
    Pos withPos = -1;
    EXPECT_EQ(Get_WithObject(source.text, source.vb.pos(1), withPos), "");
    EXPECT_EQ(withPos, 0);
    EXPECT_EQ(Get_WithObject(source.text, source.vb.pos(3), withPos), "outer.a");
    EXPECT_EQ(withPos, source.vb.pos(2));
    // A block that is closed again counts as well.
    for (const std::size_t mark : {5U, 6U}) {
        EXPECT_EQ(Get_WithObject(source.text, source.vb.pos(mark), withPos), "inner");
        EXPECT_EQ(withPos, source.vb.pos(4));
    }
}

}  // namespace
