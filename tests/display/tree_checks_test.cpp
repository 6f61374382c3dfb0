#include "display/tree_checks.h"

#include "display/baum.h"
#include "display/project_tree.h"
#include "support/baum_dump.h"
#include "support/project_test.h"

namespace {

class TreeChecks : public ProgramState {
protected:
    TreeChecks() {
        const std::string source = "Sub one()\r\nEnd Sub\r\nSub two()\r\nEnd Sub\r\n";
        ReadProject({{"App.vbp",
                      "Type=Exe\nReference=*\\G{1}#2.0#0#c:\\x\\stdole2.tlb#OLE\n"
                      "Class=C; C.cls\nModule=A; A.bas\nModule=B; B.bas\n"},
                     {"A.bas", source},
                     {"B.bas", source},
                     {"C.cls", source}});
        ProjektStruktur_Anzeigen(*gProjekt, tree, true);
    }
    void Click(std::string_view key) {
        BaumNode& node = *tree.Item(key, key.ends_with("[]") ? NodeKind::Root : NodeKind::Object);
        tree.SetChecked(node, !node.Checked());
        NodeCheck(*gProjekt, tree, node);
    }
    // Keys of the checked nodes in the order of the tree, then a "|" and the checked objects.
    std::string Checked() const {
        std::string keys = KeysWhere(tree, [](const BaumNode& node) { return node.Checked(); });
        keys += keys.empty() ? "|" : " |";
        const CheckedObjects checked = CheckedIn(*gProjekt, tree);
        for (const CodeObject* object : checked.Objects())
            keys += " " + object->CodePath();
        return keys;
    }
    Baum tree;
};

}  // namespace

TEST_F(TreeChecks, AKindChecksItsModules) {
    Click("module[]");
    EXPECT_EQ(Checked(), "module[] a b | a b");
    Click("a.one");
    Click("module[]");
    EXPECT_EQ(Checked(), "|") << "nothing stays on inside";
    Check_All_Modules(tree, true);
    EXPECT_EQ(Checked(), "reference[] stdole2 module[] a b class[] c | stdole2 a b c");
    Check_ModulTyp(tree, 3, false);
    EXPECT_EQ(Checked(), "reference[] stdole2 module[] a b class[] | stdole2 a b");
    Click("c.one");
    Check_All_Modules(tree, false);
    EXPECT_EQ(Checked(), "|");
}

TEST_F(TreeChecks, ParentsFollowTheirChildren) {
    Click("a");
    EXPECT_EQ(Checked(), "a | a");
    Click("b");
    EXPECT_EQ(Checked(), "module[] a b | a b");
    Click("a");
    EXPECT_EQ(Checked(), "b | b");
    Click("c.one");
    EXPECT_EQ(Checked(), "b c.one | b c.one");
    Click("c.two");
    EXPECT_EQ(Checked(), "b c c.Public_Sub[] c.one c.two | b c c.one c.two") << "the grandparent follows the parent";
    Click("c.two");
    EXPECT_EQ(Checked(), "b c.one | b c.one");
}
