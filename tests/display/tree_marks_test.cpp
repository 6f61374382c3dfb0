#include "display/tree_marks.h"

#include <gtest/gtest.h>

#include "calls/driver.h"
#include "display/baum.h"
#include "display/project_tree.h"
#include "findings/dead_objects.h"
#include "findings/golden.h"
#include "model/clsProzedur.h"
#include "shell/settings.h"
#include "support/baum_dump.h"
#include "support/program_state.h"
#include "support/read_project.h"

namespace {

class TreeMarks : public ProgramState {
protected:
    void Analyse() {
        Who_Calls_Who(*gProjekt);
        Tote_Untote_Kennzeichnen(*gProjekt);
        Tote_Objekte_Markieren(*gProjekt, tree);
    }
    // "image grey" of the node under each key.
    std::string Look(std::string_view key) const {
        const BaumNode* node = tree.Item(key);
        return node ? std::string(node->Image()) + (node->ForeColor() == kTextGrey ? " grey" : "") : "no node";
    }
    Baum tree;
};

}  // namespace

TEST_F(TreeMarks, DeadHaveTheirImageAndUndeadAreGreyAlone) {
    ReadModule(R"(
        Private Const kUsed = 1
        Private Const kLost = 2
        Public Type Pair
            first As Long
            second As Long
        End Type
        Public Enum Kind
            kA
        End Enum
        Private mPair As Pair
        Sub A()
            B
            mPair.first = kUsed
        End Sub
        Sub B()
        End Sub
    )",
               "M.bas");
    ProjektStruktur_Anzeigen(*gProjekt, tree);
    EXPECT_EQ(Look("m.a"), "procedure");
    Analyse();
    EXPECT_EQ(Look("m.a"), "ProcedureDeath grey");
    EXPECT_EQ(Look("m.b"), "procedure grey");
    EXPECT_EQ(Look("m.kused"), "const");
    EXPECT_EQ(Look("m.klost"), "ConstDeath grey");
    EXPECT_EQ(Look("m.mpair"), "variable");
    EXPECT_EQ(Look("m.pair [type]"), "type");
    EXPECT_EQ(Look("m.pair.second"), "TypeDeath grey");
    EXPECT_EQ(Look("m.kind [enum]"), "EnumDeath grey");
    EXPECT_EQ(Look("m.kind.ka"), "EnumDeath grey");
    // A mark that is gone takes its look along.
    Remove_All_Calls(*gProjekt);
    Tote_Objekte_Markieren(ModuleOf("m"), tree);
    EXPECT_EQ(Look("m.a"), "procedure");
    EXPECT_EQ(Look("m.kind.ka"), "enum");
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
    gOptProcVars = 0;
    clsProzedur& f = *modul.MyProcs.Item("f");
    ProjektStruktur_Anzeigen(*gProjekt, tree);
    Analyse();
    Check_ProcVars_Calls(*gProjekt, f);
    Tote_Objekte_Markieren(f, tree);
    EXPECT_EQ(Look("m.f.a"), "no node");
    gOptProcVars = 1;
    ProjektStruktur_Anzeigen(*gProjekt, tree);
    Tote_Objekte_Markieren(f, tree);
    EXPECT_EQ(Look("m.f.used"), "argument");
    EXPECT_EQ(Look("m.f.lost"), "VariableDeath grey");
    EXPECT_EQ(Look("m.f.a"), "variable");
    EXPECT_EQ(Look("m.f.b"), "VariableDeath grey");
    // The type of the function decides, also when it only begins so.
    clsProzedur& constant = *modul.MyProcs.Item("constant");
    Tote_Objekte_Markieren(constant, tree);
    EXPECT_EQ(Look("m.constant.x"), "ConstDeath grey");
}

TEST_F(TreeMarks, SampleProjectAsItIsShownAfterItsCallsWereRead) {
    gOptProcVars = 0;
    DiskFiles files;
    ReadSample(files);
    Alle_ModulStrukturen_Generieren(*gProjekt);
    ProjektStruktur_Anzeigen(*gProjekt, tree);
    Analyse();
    ExpectGolden(DumpBaum(tree), "tree", "ToolHire.vbp");
}
