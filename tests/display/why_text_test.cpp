#include "display/why_text.h"

#include "display/path_text.h"
#include "display/project_reach.h"
#include "display/workspace.h"
#include "support/project_test.h"

namespace {

using Kind = ReachRow::Kind;

class WhyTexts : public ProgramState {
protected:
    void SetUp() override {
        Speak("english");
        std::string helpers;
        for (int nr = 1; nr <= 9; ++nr)
            helpers += "Sub H" + std::to_string(nr) + "()\n  Shared\nEnd Sub\n";
        Analyse(ReadProject({{"P.vbp", "Type=Exe\nModule=M; M.bas\nClass=C; C.cls\nStartup=\"Sub Main\"\n"},
                             {"M.bas", R"(
                         Sub Main()
                             Kept
                             Dim v
                             v.Doubtful
                         End Sub
                         Sub Kept()
                             Deep
                         End Sub
                         Sub Deep()
                             Shared
                         End Sub
                         Sub Shared()
                         End Sub
                         Sub Dead()
                             Follows
                         End Sub
                         Sub Follows()
                         End Sub
                     )" + helpers},
                             {"C.cls", R"(
                         Public Sub Doubtful()
                             Shared
                         End Sub
                     )"}}));
        reach_.emplace(*gProjekt);
        reasons_.emplace(*reach_);
    }
    [[nodiscard]] WhyRows Page(std::string_view path, const std::set<WhySection>& whole = {}) const {
        return WhyRowsOf(*reasons_, ObjectAt(path), whole);
    }
    // Headings and items without sentences: "How it is reached: M.Main, → M.Kept".
    static std::string Dump(const std::vector<ReachRow>& rows) {
        std::string text;
        for (const ReachRow& row : rows)
            if (row.kind == Kind::Heading)
                text += (text.empty() ? "" : " | ") + row.text + ":";
            else if (row.kind != Kind::Sentence)
                text += " " + row.text + (row.line > 0 ? "@" + std::to_string(row.line) : "");
        return text;
    }

    std::optional<Reach> reach_;
    std::optional<Reasons> reasons_;
};

}  // namespace

TEST_F(WhyTexts, AChainNamesEachStepWithItsPlace) {
    const WhyRows page = Page("m.deep");
    EXPECT_EQ(page.rows[0].kind, Kind::Sentence);
    EXPECT_EQ(Dump(page.rows),
              "How it is reached: M.Main \u2192 M.Kept@2 \u2192 M.Deep@7 | Entry points that reach it (1): M.Main");
    ASSERT_EQ(page.places.size(), 2U);
    EXPECT_EQ(page.places[1].owner, &ObjectAt("m.kept"));
    EXPECT_EQ(page.places[1].target, &ObjectAt("m.deep"));
    const auto row = std::ranges::find(page.rows, 1, &ReachRow::place);
    ASSERT_NE(row, page.rows.end());
    EXPECT_EQ(row->key, "m.deep");
    EXPECT_EQ(row->modulKey, "m");
    EXPECT_FALSE(row->isPossible);
}

TEST_F(WhyTexts, APossibleStepDiffersInMoreThanItsMark) {
    const WhyRows page = Page("c.doubtful");
    const auto row = std::ranges::find(page.rows, true, &ReachRow::isPossible);
    ASSERT_NE(row, page.rows.end());
    EXPECT_EQ(row->text, "\u21E2 C.Doubtful");
    EXPECT_THAT(row->about, HasSubstr(Utf8TextNr(Text::LinkPossible)));
}

TEST_F(WhyTexts, DeadObjectsNameTheirCallersAndWhatGoesWithThem) {
    EXPECT_EQ(Dump(Page("m.follows").rows), "Dead code that uses it (1): M.Dead@15");
    EXPECT_EQ(Dump(Page("m.dead").rows), "What would go with it (1): M.Follows");
}

TEST_F(WhyTexts, LongListsAreCutUntilAskedFor) {
    const auto rowsOf = [&](const std::set<WhySection>& whole) {
        Analyse(ReadProject({{"P.vbp", "Type=Exe\nModule=M; M.bas\n"},
                             {"M.bas",
                              "Sub A()\nB1\nB2\nB3\nB4\nB5\nB6\nB7\nB8\nEnd Sub\nSub B1()\nEnd Sub\nSub B2()\nEnd Sub\n"
                              "Sub B3()\nEnd Sub\nSub B4()\nEnd Sub\nSub B5()\nEnd Sub\nSub B6()\nEnd Sub\n"
                              "Sub B7()\nEnd Sub\nSub B8()\nEnd Sub\n"}}));
        const Reach reach(*gProjekt);
        return WhyRowsOf(Reasons(reach), ObjectAt("m.a"), whole).rows;
    };
    const std::vector<ReachRow> cut = rowsOf({});
    EXPECT_EQ(Dump(cut), "What would go with it (8): M.B1 M.B2 M.B3 M.B4 M.B5 Show all 8");
    EXPECT_EQ(static_cast<WhySection>(cut.back().section), WhySection::GoesWithIt);
    const std::vector<ReachRow> all = rowsOf({WhySection::GoesWithIt});
    EXPECT_EQ(all.back().text, "M.B8");
}

TEST_F(WhyTexts, PathsAreSectionsAndSayWhenThereIsNone) {
    const ReachAnswer answer = PathAnswer(*reach_, ObjectAt("m.main"), ObjectAt("m.shared"));
    EXPECT_EQ(Dump(answer.rows),
              "Way 1 \u00B7 2 steps \u00B7 May be: M.Main \u21E2 C.Doubtful@4 \u2192 M.Shared@2 | "
              "Way 2 \u00B7 3 steps \u00B7 Really: M.Main \u2192 M.Kept@2 \u2192 M.Deep@7 \u2192 M.Shared@10");
    EXPECT_EQ(answer.rows.back().section, 2);
    const ReachAnswer none = PathAnswer(*reach_, ObjectAt("m.shared"), ObjectAt("m.main"));
    EXPECT_TRUE(none.rows.empty());
    EXPECT_EQ(none.title, "Nothing leads from M.Shared to M.Main.");
}

TEST_F(WhyTexts, ImpactKeepsCertainAndPossibleApart) {
    const ReachAnswer answer = ImpactAnswer(*reach_, ObjectAt("c.doubtful"));
    EXPECT_EQ(Dump(answer.rows),
              "Procedures and declarations (1) \u00B7 May be: M.Main@4 | Modules (1) \u00B7 May be: M | "
              "Entry points (1) \u00B7 May be: M.Main");
    EXPECT_TRUE(answer.rows[1].isPossible);
    EXPECT_EQ(ImpactAnswer(*reach_, ObjectAt("m.dead")).title, "Nothing depends on M.Dead.");
}

TEST_F(WhyTexts, TextsFillPlacesOnceOnly) {
    EXPECT_EQ(Filled(Text::PathFromTo, {"%2", "b"}), "From %2 to b");
}

TEST_F(WhyTexts, DeclarationsAreKeptAndRespectedAtOnce) {
    MemoryFiles files;
    ProjectReach reach(files, "set/Ostrivane.ini");
    const auto reasonOf = [&](std::string_view path) { return reach.Of(*gProjekt)->ReasonOf(ObjectAt(path)).kind; };
    EXPECT_EQ(reasonOf("m.dead"), ReasonKind::NoCaller);
    const auto declare = [](Declared& declared) { declared.Set({DeclaredKind::EntryPoint, "M.Dead", "menu"}); };
    EXPECT_EQ(reach.Change(*gProjekt, declare, false), FileError::None);
    EXPECT_EQ(reasonOf("m.dead"), ReasonKind::EntryPoint);
    EXPECT_EQ(reasonOf("m.follows"), ReasonKind::Kept);
    EXPECT_FALSE(reach.IsBesideProject(*gProjekt));
    EXPECT_EQ(reach.Change(
                  *gProjekt, [](Declared&) {}, true),
              FileError::None);
    EXPECT_TRUE(reach.IsBesideProject(*gProjekt));
    ProjectReach other(files, "elsewhere/Ostrivane.ini");
    EXPECT_TRUE(other.Stored(*gProjekt).declared.Of("m.dead"));
    // What somebody else has written in the meantime stays.
    EXPECT_EQ(other.Change(
                  *gProjekt,
                  [](Declared& declared) {
                      declared.Set({DeclaredKind::LeaveAlone, "M.H1", ""});
                  },
                  true),
              FileError::None);
    EXPECT_EQ(reach.Change(
                  *gProjekt, [](Declared& declared) { declared.Remove("m.dead"); }, true),
              FileError::None);
    EXPECT_EQ(reasonOf("m.dead"), ReasonKind::NoCaller);
    EXPECT_TRUE(reach.Stored(*gProjekt).declared.Of("m.h1"));
}
