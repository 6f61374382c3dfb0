#include "display/baum.h"

#include "support/baum_dump.h"
#include "support/project_test.h"

namespace {

// Records all notifications, one word each: "insert:parent/0", "reset(", ")reset".
class Recorder : public BaumListener {
public:
    void BeginReset() override { recorded.push_back("reset("); }
    void EndReset() override { recorded.push_back(")reset"); }
    void BeginInsert(const BaumNode* parent, int row) override { recorded.push_back("insert:" + Place(parent, row)); }
    void BeginRemove(const BaumNode* parent, int row) override { recorded.push_back("remove:" + Place(parent, row)); }
    void Changed(const BaumNode& node) override { recorded.push_back("changed:" + node.Key()); }
    void ManyChanged() override { recorded.push_back("many"); }
    void ExpandedChanged(const BaumNode& node) override { recorded.push_back("expanded:" + node.Key()); }
    void AllCollapsed() override { recorded.push_back("collapsed"); }
    void SelectedChanged(const BaumNode* node) override {
        recorded.push_back("selected:" + (node ? node->Key() : "none"));
    }
    void EnsureVisible(const BaumNode& node) override { recorded.push_back("visible:" + node.Key()); }

    std::vector<std::string> recorded;

private:
    static std::string Place(const BaumNode* parent, int row) {
        return (parent ? parent->Key() : "") + "/" + std::to_string(row);
    }
};

class BaumTest : public ProgramState {
protected:
    BaumNode* AddSorted(std::string key) {
        BaumNode* node = tree.Add(nullptr, key, key, "");
        tree.SetSorted(*node, true);
        return node;
    }
    static std::string TextsBelow(const BaumNode& node) {
        std::string texts;
        for (const BaumNode* child = node.Child(); child; child = child->Next())
            texts += child->Text() + std::to_string(child->Row()) + " ";
        return texts;
    }
    Baum tree;
};

}  // namespace

TEST_F(BaumTest, KeysAreFoundWithoutRegardToCaseAndTakenOnce) {
    BaumNode* root = tree.Add(nullptr, "form[]", "FORM", "OrdnerZu");
    BaumNode* node = tree.Add(root, "frm\xC4rger.x", "x", "");  // lower and upper case of A umlaut
    EXPECT_EQ(tree.Item("FRM\xE4RGER.X"), node);
    EXPECT_EQ(tree.Add(root, "FRM\xE4rger.X", "other", ""), nullptr);
    EXPECT_EQ(tree.Item("frm"), nullptr);
    EXPECT_EQ(tree.Count(), 2);
}

TEST_F(BaumTest, ChildrenOfASortedNodeAreSortedByTextThenByEntry) {
    BaumNode* inside = AddSorted("inside");
    {
        const Baum::Filling filling(tree);
        for (const char* text : {"b", "B", "abcdefghZ", "abcdefgha", "a"})
            tree.Add(inside, std::string("1") + text + "|" + std::to_string(tree.Count()), text, "");
    }
    EXPECT_EQ(TextsBelow(*inside), "a0 abcdefgha1 abcdefghZ2 b3 B4 ");
    Recorder recorder;
    tree.SetListener(&recorder);
    tree.Add(inside, "late", "B", "");
    tree.Add(inside, "first", "A", "");
    EXPECT_EQ(TextsBelow(*inside), "a0 A1 abcdefgha2 abcdefghZ3 b4 B5 B6 ");
    EXPECT_THAT(recorder.recorded, ElementsAre("insert:inside/5", "insert:inside/1"));

    BaumNode* late = tree.Add(nullptr, "late sorting", "", "");
    tree.Add(late, "z", "z", "");
    tree.Add(late, "y", "y", "");
    tree.SetSorted(*late, true);
    EXPECT_EQ(TextsBelow(*late), "y0 z1 ");
}

TEST_F(BaumTest, RemovedBranchesAreForgottenAndTheirSelectionWithThem) {
    BaumNode* root = tree.Add(nullptr, "r", "r", "");
    BaumNode* a = tree.Add(root, "a", "a", "");
    tree.Add(root, "b", "b", "");
    BaumNode* below = tree.Add(a, "a.1", "a.1", "");
    tree.SetExpanded(*a, true);
    tree.Select(below);
    Recorder recorder;
    tree.SetListener(&recorder);
    tree.Remove(*a);
    EXPECT_THAT(recorder.recorded, ElementsAre("selected:none", "remove:r/0"));
    EXPECT_FALSE(tree.Exist("a.1"));
    EXPECT_EQ(root->Child()->Row(), 0);
    EXPECT_EQ(tree.Count(), 2);
    // A new node with the key of a removed one starts collapsed.
    EXPECT_FALSE(tree.Add(root, "a", "new", "")->Expanded());
    EXPECT_EQ(DumpBaum(tree), "r []\n  b []\n  new []\n");
}

TEST_F(BaumTest, TheTableStaysWholeUnderRemovals) {
    BaumNode* root = tree.Add(nullptr, "r", "r", "");
    const auto key = [](int i) { return "k" + std::to_string(i); };
    for (int i = 0; i < 3000; ++i)
        tree.Add(root, key(i), "", "");
    for (int i = 0; i < 3000; i += 3)
        tree.Remove(*tree.Item(key(i)));
    for (int i = 0; i < 3000; ++i)
        ASSERT_EQ(tree.Exist(key(i)), i % 3 != 0) << i;
    tree.Clear();
    EXPECT_FALSE(tree.Exist(key(1)));
    EXPECT_NE(tree.Add(nullptr, key(1), "", ""), nullptr);
}

TEST_F(BaumTest, AFillingIsOneResetOrOneChangeOfLooks) {
    BaumNode* root = AddSorted("r");
    Recorder recorder;
    tree.SetListener(&recorder);
    {
        const Baum::Filling filling(tree);
        EXPECT_EQ(tree.Add(nullptr, "r", "", ""), nullptr);
    }
    EXPECT_THAT(recorder.recorded, ElementsAre()) << "nothing came, nothing to tell";
    {
        const Baum::Filling filling(tree);
        tree.SetBold(*root, true);
        tree.SetForeColor(*root, NodeColour::Grey);
    }
    EXPECT_THAT(std::exchange(recorder.recorded, {}), ElementsAre("many"));
    {
        const Baum::Filling filling(tree);
        const Baum::Filling inner(tree);
        BaumNode* z = tree.Add(root, "z", "z", "");
        tree.Remove(*tree.Add(root, "y", "y", ""));
        tree.Select(z);
        tree.EnsureVisible(*z);
    }
    EXPECT_THAT(recorder.recorded, ElementsAre("reset(", ")reset", "visible:z"));
    EXPECT_TRUE(root->Expanded());
}

TEST_F(BaumTest, SingleStepsNotifyOnlyAboutChanges) {
    BaumNode* root = tree.Add(nullptr, "r", "r", "image");
    BaumNode* child = tree.Add(root, "c", "c", "");
    Recorder recorder;
    tree.SetListener(&recorder);
    tree.SetImage(*root, "image");
    tree.SetText(*root, "R");
    tree.EnsureVisible(*child);
    tree.Select(child);
    tree.Select(child);
    tree.SetChecked(*child, true);
    tree.CollapseAll();
    EXPECT_FALSE(root->Expanded());
    tree.Clear();
    EXPECT_THAT(recorder.recorded, ElementsAre("changed:r", "expanded:r", "visible:c", "selected:c", "changed:c",
                                               "collapsed", "reset(", ")reset"));
    EXPECT_EQ(tree.Selected(), nullptr);
}
