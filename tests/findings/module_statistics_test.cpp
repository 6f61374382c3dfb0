#include "findings/module_statistics.h"

#include "support/project_test.h"

namespace {

class ModuleStatisticsOf : public ProgramState {};

TEST_F(ModuleStatisticsOf, OnlyEdgesFromAndToOtherModulesCount) {
    Analyse(ReadProject(
        {{"App.vbp", "Module=A; A.bas\nModule=B; B.bas\n"},
         {"A.bas",
          "Public Const cMax = 3\nPublic total\nPublic Type T\n  x As Long\nEnd Type\nPublic Enum E\n  eOne\nEnd Enum\n"
          "Private Const cOwn = cMax\n"
          "Sub Inner()\n  total = 1\n  Inner\nEnd Sub\n"},
         {"B.bas",
          "Private Const cB = cMax\nPrivate t As T\n"
          "Sub Outer()\n  Inner\n  total = eOne\n  t.x = 2\n  Outer\nEnd Sub\n"}}));
    // cMax twice, as declarations sections always count; total, Inner, x once; eOne as variable and as member.
    EXPECT_EQ(DependenciesExtern_CalledBy_Count(*gProjekt->Modules.Item("a")), 2 + 1 + 1 + 1 + 2);
    EXPECT_EQ(DependenciesExtern_Calls_Count(*gProjekt->Modules.Item("a")), 0);
    EXPECT_EQ(DependenciesExtern_CalledBy_Count(*gProjekt->Modules.Item("b")), 0);
    EXPECT_EQ(DependenciesExtern_Calls_Count(*gProjekt->Modules.Item("b")), 4);
}

TEST_F(ModuleStatisticsOf, ProceduresAreDeadUndeadOrLiving) {
    ReadProject(
        {{"App.vbp", "Module=A; A.bas\nForm=F.frm\n"},
         {"F.frm", "VERSION 5.00\nBegin VB.Form F\nEnd\nPrivate Sub Form_Load()\n  Used\nEnd Sub\n"},
         {"A.bas", "Sub Used()\nEnd Sub\nSub Gone()\n  OnlyFromGone\n\nEnd Sub\nSub OnlyFromGone()\nEnd Sub\n"}});
    const clsModul& modul = *gProjekt->Modules.Item("a");
    EXPECT_FALSE(StatisticsOf(*gProjekt, modul).life);
    Analyse();
    const ProcedureLife life = StatisticsOf(*gProjekt, modul).life.value();
    EXPECT_EQ(life.dead, 1);
    EXPECT_EQ(life.undead, 1);
    EXPECT_EQ(life.living, 1);
    EXPECT_EQ(life.deadLines, 4);
}

}  // namespace
