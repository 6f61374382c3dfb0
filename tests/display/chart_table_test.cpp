#include "display/chart_table.h"

#include "display/baum.h"
#include "display/project_tree.h"
#include "support/golden.h"
#include "support/project_test.h"

namespace {

class Charts : public ProgramState {
protected:
    Charts() { Speak("english"); }
    static ChartTable Of(ChartType type) {
        const std::vector<clsModul*> modules = gProjekt->ModulesInReportOrder();
        return Anzeigen_Chart(*gProjekt, type, {modules.begin(), modules.end()});
    }
    static ChartTable Small() {
        ReadProject({{"App.vbp", "Module=A; A.bas\nModule=B; B.bas\nClass=C; C.cls\n"},
                     {"A.bas", "Sub One()\n' why\n\nEnd Sub\n"},
                     {"B.bas", "Sub Two()\nEnd Sub\nSub Three()\nEnd Sub\n"},
                     {"C.cls", "Attribute VB_Name = \"C\"\nPublic a\n"}});
        return Of(ChartType::CodeLines);
    }
};

TEST_F(Charts, BiggestModuleComesFirstAndEqualOnesKeepTheirOrder) {
    const ChartTable table = Small();
    using Row = ChartTable::Row;
    EXPECT_THAT(table.rows, ElementsAre(Row{"b", "B", {4, 0, 0}}, Row{"a", "A", {2, 1, 1}}, Row{"c", "C", {2, 0, 0}}));
    EXPECT_EQ(table.RowOf("a"), 1);
    EXPECT_EQ(table.RowOf("gone"), -1);
    EXPECT_EQ(ChartTip(table, 1), "A (Code = 2, Comment = 1, Blank = 1)");
    EXPECT_THAT(LabelsOf(table, 1), ElementsAre("Code (2)", "Comment (1)", "Blank (1)"));
    EXPECT_EQ(ChartAsCsv(table), "Module,Code,Comment,Blank\r\nB,4,0,0\r\nA,2,1,1\r\nC,2,0,0\r\n");
    EXPECT_EQ(ChartAsText(table).substr(0, 40), "        Code    Comment      Blank\nB    ");
}

TEST_F(Charts, WhatComesFromCallsHasNoRowsBeforeTheyAreRead) {
    ReadSample();
    for (const ChartType type : {ChartType::DependenciesExtern, ChartType::DeadCode})
        EXPECT_THAT(Of(type).rows, IsEmpty());
    Analyse();
    const ChartTable dead = Of(ChartType::DeadCode);
    ASSERT_EQ(dead.rows.size(), 14U);
    EXPECT_EQ(dead.rows.front().name, "modMain");
    const ChartTable edges = Of(ChartType::DependenciesExtern);
    EXPECT_EQ(LabelsOf(edges, 0), edges.series);
}

TEST_F(Charts, OnlyCheckedModulesTakePart) {
    Small();
    Baum tree;
    ProjektStruktur_Anzeigen(*gProjekt, tree, false);
    EXPECT_THAT(CheckedModules(*gProjekt, tree), IsEmpty());
    tree.SetChecked(*tree.Item("c"), true);
    tree.SetChecked(*tree.Item("a"), true);
    EXPECT_THAT(CheckedModules(*gProjekt, tree),
                ElementsAre(gProjekt->Modules.Item("a"), gProjekt->Klassenmodule.Item("c")));
}

}  // namespace
