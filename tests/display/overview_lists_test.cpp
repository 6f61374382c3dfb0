#include "display/overview_lists.h"

#include "display/node_objects.h"
#include "findings/project_overview.h"
#include "support/golden.h"
#include "support/project_test.h"

namespace {

class OverviewLists : public ProgramState {
protected:
    OverviewLists() { ReadSample(); }
};

TEST_F(OverviewLists, EachListIsAsLongAsItsNumberSays) {
    Analyse();
    const ProjectOverview overview = OverviewOf(*gProjekt);
    for (const auto& [list, number] : {std::pair{OverviewList::AllModules, overview.AllModules()},
                                       {OverviewList::StandardModules, overview.standardModules},
                                       {OverviewList::Forms, overview.forms},
                                       {OverviewList::ClassModules, overview.classModules},
                                       {OverviewList::UserControls, overview.userControls},
                                       {OverviewList::FilesMissing, overview.filesMissing},
                                       {OverviewList::Procedures, overview.procedures},
                                       {OverviewList::Dead, overview.deaths->dead},
                                       {OverviewList::Undead, overview.deaths->undead},
                                       {OverviewList::Libraries, overview.libraries},
                                       {OverviewList::LibrariesMissing, overview.librariesMissing}}) {
        SCOPED_TRACE(static_cast<int>(list));
        const std::vector<ListedObject> rows = ListOf(*gProjekt, list);
        EXPECT_EQ(rows.size(), static_cast<std::size_t>(number));
        for (const ListedObject& row : rows)
            EXPECT_TRUE(ObjectOfNode(*gProjekt, row.key)) << row.key;
    }
}

TEST_F(OverviewLists, LinesOfAllModulesAddUpAndFall) {
    for (const auto& [list, number] : {std::pair{OverviewList::CodeLines, gProjekt->AnzCodeZeilen},
                                       {OverviewList::CommentLines, gProjekt->AnzCommentZeilen},
                                       {OverviewList::BlankLines, gProjekt->AnzBlankZeilen}}) {
        const std::vector<ListedObject> rows = ListOf(*gProjekt, list);
        EXPECT_TRUE(std::ranges::is_sorted(rows, std::greater<>(), &ListedObject::lines));
        int sum = 0;
        for (const ListedObject& row : rows)
            sum += row.lines;
        EXPECT_EQ(sum, number);
    }
}

TEST_F(OverviewLists, ObjectsNameTheirOwnerAndCountTheirLines) {
    Analyse(
        ReadModule("Private Type T\n  x As Long\n  y As Long\nEnd Type\nSub S()\n  Dim v As T\n  v.y = 1\nEnd Sub"));
    const std::vector<ListedObject> dead = ListOf(*gProjekt, OverviewList::Dead);
    ASSERT_EQ(dead.size(), 2U);
    EXPECT_EQ(dead[0], (ListedObject{"module1.s", "S", "sub", "Module1", 4}));
    EXPECT_EQ(dead[1], (ListedObject{"module1.t.x", "T.x", "type member", "Module1", 1}));
}

TEST_F(OverviewLists, MissingFilesAreNamed) {
    ReadProject({{"App.vbp", "Class=Gone; far\\Gone.cls\r\nModule=M; M.bas\r\n"}, {"M.bas", "Dim a\r\n"}});
    const std::vector<ListedObject> missing = ListOf(*gProjekt, OverviewList::FilesMissing);
    ASSERT_EQ(missing.size(), 1U);
    EXPECT_EQ(missing[0], (ListedObject{"", "Gone.cls", "class", "p/far/Gone.cls", 0}));
}

}  // namespace
