#include "display/tree_marks.h"

#include "display/baum.h"
#include "display/local_uses.h"
#include "display/project_tree.h"
#include "support/baum_dump.h"
#include "support/golden.h"
#include "support/project_test.h"

namespace {

class TreeMarks : public ProgramState {
protected:
    void Mark() {
        Analyse();
        Tote_Objekte_Markieren(*gProjekt, tree);
    }
    // "image grey" for the node of each key.
    std::string Look(std::string_view key) const {
        const BaumNode* node = tree.Item(key);
        return node ? std::string(node->Image()) + (node->ForeColor() == NodeColour::Grey ? " grey" : "") : "no node";
    }
    Baum tree;
};

}  // namespace

TEST_F(TreeMarks, DeadHaveTheirImageAndUndeadAreGreyAlone) {
    ReadModule("Private Const kLost = 2\nSub A()\nB\nEnd Sub\nSub B()\nEnd Sub", "M.bas");
    ProjektStruktur_Anzeigen(*gProjekt, tree, false);
    EXPECT_EQ(Look("m.a"), "procedure");
    Mark();
    EXPECT_EQ(Look("m.a"), "ProcedureDeath grey");
    EXPECT_EQ(Look("m.b"), "procedure grey");
    EXPECT_EQ(Look("m.klost"), "ConstDeath grey");
    // Removing the calls resets the look of the nodes.
    Remove_All_Calls(*gProjekt);
    Tote_Objekte_Markieren(*gProjekt, tree);
    EXPECT_EQ(Look("m.a"), "procedure");
    EXPECT_EQ(Look("m.klost"), "const");
}

TEST_F(TreeMarks, LocalsAreMarkedWhereTheyHaveNodes) {
    clsModul& modul = ReadModule(R"(
        Function f(ByVal used As Long, ByVal lost As Long) As Long
            Dim a As Long, b As Long
            a = used
        End Function
        Function constant(x As Long) As Constellation
        End Function
    )",
                                 "M.bas");
    clsProzedur& f = *modul.MyProcs.Item("f");
    ProjektStruktur_Anzeigen(*gProjekt, tree, false);
    Mark();
    LocalUses locals;
    locals.Look(f);
    Tote_Objekte_Markieren(f, locals, tree);
    EXPECT_EQ(Look("m.f.a"), "no node");
    ProjektStruktur_Anzeigen(*gProjekt, tree, true);
    Tote_Objekte_Markieren(f, locals, tree);
    EXPECT_EQ(Look("m.f.used"), "argument");
    EXPECT_EQ(Look("m.f.lost"), "VariableDeath grey");
    EXPECT_EQ(Look("m.f.a"), "variable");
    EXPECT_EQ(Look("m.f.b"), "VariableDeath grey");
    // The type of the function decides, even if it only begins with "const".
    clsProzedur& constant = *modul.MyProcs.Item("constant");
    Tote_Objekte_Markieren(constant, locals, tree);
    EXPECT_EQ(Look("m.constant.x"), "ConstDeath grey");
}

TEST_F(TreeMarks, SampleProjectAsItIsShownAfterItsCallsWereRead) {
    ReadSample();
    ProjektStruktur_Anzeigen(*gProjekt, tree, false);
    Mark();
    ExpectGolden(DumpBaum(tree), "tree", "ToolHire.vbp");
}
