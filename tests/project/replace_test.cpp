#include "project/replace.h"

#include "support/project_test.h"

using Replacing = ProgramState;

TEST_F(Replacing, CancelledCallsLeaveNoMarks) {
    Analyse(ReadProject({{"A.bas", "Sub Unused()\nEnd Sub\n"}, {"B.bas", "Sub Unused()\nEnd Sub\n"}}));
    const std::vector<ModuleChange> again{{0, ModuleSource{ModuleKind::Module, "p\\A.bas"}}};
    {
        const RecordingProgress cancel("A + ");
        Replace(*gProjekt, again);
    }
    for (int i = 0; i < 2; ++i) {
        EXPECT_FALSE(gProjekt->callsKnown || gProjekt->marksKnown);
        EXPECT_EQ(ObjectAt("a.unused").IsDeath + ObjectAt("b.unused").IsDeath, 0);
        Replace(*gProjekt, again);
    }
}

TEST_F(Replacing, ChangesThatAreNotTakenLeaveTheirModulesAsTheyAre) {
    ReadProject({{"A.bas", "Public a\n"}, {"B.bas", "Public b\n"}, {"C.bas", "Public c\n"}});
    for (const char* path : {"p\\A.bas", "p\\B.bas", "p\\C.bas"})
        ProjectFiles().WriteWhole(path, "Public changed\r\n");
    const auto source = [](const char* path) { return ModuleSource{ModuleKind::Module, path}; };
    std::vector<std::size_t> asked;
    Replace(*gProjekt, {{0, source("p\\A.bas")}, {1, source("p\\B.bas")}, {2, {}}},
            [&asked](std::size_t change, const clsModul&) {
                asked.push_back(change);
                return change == 0 ? Taken::Yes : Taken::NoMore;
            });
    EXPECT_THAT(asked, ElementsAre(0, 1));
    EXPECT_EQ(NamesIn(ModuleOf("a").MyVars) + NamesIn(ModuleOf("b").MyVars) + NamesIn(ModuleOf("c").MyVars),
              "changedbc");
}
