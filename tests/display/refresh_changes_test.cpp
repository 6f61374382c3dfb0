#include "display/refresh_changes.h"

#include "display/baum_walk.h"
#include "display/project_tree.h"
#include "display/text_change.h"
#include "display/tree_marks.h"
#include "support/baum_dump.h"
#include "support/workspace_test.h"

namespace {

class RefreshedWorkspace : public WorkspaceTest {
protected:
    RefreshedWorkspace() { Speak("english"); }
    // "what name; ...", in the order of the list.
    static std::string Listed(const RefreshChanges& changes) {
        return Joined(changes.rows, "; ", [](const ListedObject& row) { return row.change + " " + row.name; });
    }
    // The tree as it would be filled for the project.
    [[nodiscard]] std::string Fresh() const {
        Baum tree;
        ProjektStruktur_Anzeigen(*gProjekt, tree, true);
        Tote_Objekte_Markieren(*gProjekt, tree);
        return DumpBaum(tree);
    }
};

}  // namespace

TEST_F(RefreshedWorkspace, ListsWhatChangedAndWhatIsDeadNow) {
    OpenAndRead({{"Main.bas", "Public Const C = 1\nSub Main()\n  Used\n  Moved\nEnd Sub\nPublic Sub Old()\nEnd Sub"},
                 {"Other.bas", "Public Sub Used()\nEnd Sub\nPublic Sub Moved()\nEnd Sub"}});
    Save("Main.bas", "Public Const C = 2\nPublic Sub Fresh()\nEnd Sub\nSub Main()\n  Moved\nEnd Sub");
    const RefreshChanges changes = workspace_.Refresh().changes;
    EXPECT_EQ(Listed(changes), "changed C; changed Main; new, newly dead Fresh; gone Old; newly dead Used");
    EXPECT_EQ(changes.changed + 10 * changes.added + 100 * changes.gone, 111);
    EXPECT_EQ(changes.others, 1);
    EXPECT_EQ(changes.newlyDead, 2);
    EXPECT_EQ(changes.rows[3].key, "main") << "what is left of it";
    EXPECT_EQ(changes.rows[4].key, "other.used");
    Save("Main.bas", "\n\nPublic Const C = 2\nSub Main()\n  Moved\nEnd Sub\n\n\nPublic Sub Fresh()\nEnd Sub");
    EXPECT_EQ(Listed(workspace_.Refresh().changes), "") << "other places are no change";
    files_.WriteWhole("App.vbp", "Type=Exe\r\nModule=x; Main.bas\r\nModule=y; Y.bas\r\n");
    Save("Y.bas", "Public Sub Moved()\nEnd Sub");
    EXPECT_EQ(Listed(workspace_.Refresh().changes),
              "another file name Y.bas; new Y; new Moved; gone Other; gone Used; gone Moved");
    files_.WriteWhole("App.vbp", "Type=Exe\r\nModule=x; Main.bas\r\nModule=y; Y.bas\r\nModule=z; parts\\Z.bas\r\n");
    files_.WriteWhole("parts\\Z.bas", "Attribute VB_Name = \"Z\"\r\n");
    const RefreshChanges added = workspace_.Refresh().changes;
    EXPECT_EQ(Listed(added), "added to the project Z.bas; new Z");
    EXPECT_EQ(added.rows.back().place, "parts/Z.bas");
}

TEST_F(RefreshedWorkspace, FillsTheTreeAgainWhereItIsAnother) {
    OpenAndRead(
        {{"Main.bas", "Sub Main()\n  Used 1\nEnd Sub"}, {"Other.bas", "Public Sub Used(a)\nEnd Sub\nPublic z"}});
    workspace_.Tree().SetExpanded(*workspace_.Tree().Item("other"), true);
    workspace_.Tree().SetExpanded(*workspace_.Tree().Item("main"), true);
    workspace_.Activate("main.main");
    const BaumNode* const untouched = workspace_.Tree().Item("other.used");
    Save("Main.bas", "Private Enum E\n  one\nEnd Enum\nSub MAIN()\n  z = 1\nEnd Sub");
    ASSERT_EQ(workspace_.Refresh().files, 1);
    EXPECT_EQ(DumpBaum(workspace_.Tree()), Fresh());
    EXPECT_EQ(workspace_.Tree().Item("other.used"), untouched);
    EXPECT_TRUE(workspace_.Tree().Item("main")->Expanded());
    EXPECT_TRUE(workspace_.Tree().Item("other")->Expanded());
    EXPECT_EQ(workspace_.Tree().Selected(), workspace_.Tree().Item("main.main"));
    // One module takes the name of another, which has no place in the tree then.
    files_.WriteWhole("Main.bas", "Attribute VB_Name = \"Other\"\r\nPublic Sub Here()\r\nEnd Sub\r\n");
    ASSERT_EQ(workspace_.Refresh().files, 1);
    EXPECT_EQ(DumpBaum(workspace_.Tree()), Fresh());
}

TEST_F(RefreshedWorkspace, ComesBackToNeighboursAndTheirCode) {
    OpenAndRead({{"Main.bas", "Sub Main()\n  One\nEnd Sub"},
                 {"Other.bas", "Public Sub One()\n  Two\nEnd Sub\nPublic Sub Two()\nEnd Sub"}});
    workspace_.Activate("other.two");
    workspace_.UnfoldNeighbour(*workspace_.CalledBy().Item("other.one"), true);
    workspace_.CalledBy().SetExpanded(*workspace_.CalledBy().Item("other.one"), true);
    workspace_.CalledBy().Select(workspace_.CalledBy().Item("other.one"));
    ASSERT_TRUE(workspace_.SelectCallsOfObject(*workspace_.CalledBy().Item("other.one"), true));
    const std::string before = DumpBaum(workspace_.CalledBy());
    const Workspace::ShownPlace place = workspace_.WhereShown();
    Save("Main.bas", "' changed\nSub Main()\n  One\nEnd Sub");
    ASSERT_EQ(workspace_.Refresh().files, 1);
    ASSERT_TRUE(workspace_.ShowAgain());
    const auto change = workspace_.ComeBackTo(place);
    ASSERT_TRUE(change);
    EXPECT_EQ(change->places.size(), 1U);
    EXPECT_EQ(DumpBaum(workspace_.CalledBy()), before);
    EXPECT_TRUE(workspace_.CalledBy().Item("other.one")->Expanded());
    EXPECT_EQ(workspace_.Code().ShownPath(), "other.one");
    EXPECT_EQ(workspace_.Current().CurObject->CodePath(), "other.two");
}

TEST(TextChanges, PlacesMoveWithTheTextAroundThem) {
    const TextChange inserted("one two three", "one 12345 two three");
    EXPECT_EQ(inserted.Moved(0), 0U);
    EXPECT_EQ(inserted.Moved(4), 4U);
    EXPECT_EQ(inserted.Moved(8), 14U);
    EXPECT_EQ(TextChange("one two three", "one three").Moved(5), 5U);
    EXPECT_EQ(TextChange("abc", "").Moved(2), 0U);
    EXPECT_EQ(TextChange("", "abc").Moved(0), 0U);
    EXPECT_EQ(LineAtPlace("a\r\nb\r\nc", LineBegin("a\r\nb\r\nc", 2)), 2);
    EXPECT_EQ(LineBegin("a\nb", 7), 2U);
}
