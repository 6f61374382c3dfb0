#include "calls/driver.h"

#include "calls/edges.h"
#include "support/call_dumps.h"
#include "support/project_test.h"

namespace {

class CallsDriver : public ProgramState {
protected:
    static void ReadFourModules() {
        ReadProject({{"U.ctl", "Dim a As T\n"},
                     {"C.cls", "Dim a As T\n"},
                     {"F.frm", "Dim a As T\n"},
                     {"M.bas", "Public Type T\nm As Long\nEnd Type\nDim a As T\n"}});
    }
};

}  // namespace

TEST_F(CallsDriver, TakesModulesByKindAndGivesTheSameEdgesWhenRunTwice) {
    ReadFourModules();
    Who_Calls_Who(*gProjekt);
    const std::string once = "m : m.t [type]; f : m.t [type]; c : m.t [type]; u : m.t [type]";
    EXPECT_EQ(DumpEdges(), once);
    Who_Calls_Who(*gProjekt);
    EXPECT_EQ(DumpEdges(), once);
    EXPECT_EQ(ObjectAt("m.t [type]").UsedByAll().Count(), 4);
    EXPECT_EQ(gProjekt->Counts().call, 4);
}

TEST_F(CallsDriver, CancelledBetweenTwoModulesKeepsTheEdgesMadeSoFar) {
    ReadFourModules();
    {
        const RecordingProgress cancel("F + ");
        Who_Calls_Who(*gProjekt);
    }
    EXPECT_EQ(DumpEdges(), "m : m.t [type]; f : m.t [type]");
    EXPECT_FALSE(gProjekt->callsKnown);
    Remove_All_Calls(*gProjekt);
    Who_Calls_Who(*gProjekt);  // a cancellation does not affect the next run
    EXPECT_EQ(gProjekt->calls.Count(), 4U);
    EXPECT_TRUE(gProjekt->callsKnown);
}

TEST_F(CallsDriver, RemovingLeavesNoEdgeAndNoMark) {
    Analyse(ReadProject({{"F.frm",
                          "Private Type T\nm As Long\nEnd Type\nPrivate Enum E\nk\nEnd Enum\nConst c = k\n"
                          "Sub Run(l As T)\nl.m = c\nRun\nEnd Sub\nSub Unused()\nEnd Sub\n"}}));
    EXPECT_TRUE(gProjekt->callsKnown && gProjekt->marksKnown);
    Remove_All_Calls(*gProjekt);
    EXPECT_EQ(DumpEdges(), "");
    EXPECT_FALSE(gProjekt->callsKnown || gProjekt->marksKnown);
    for (const char* path : {"f", "f.t [type]", "f.t.m", "f.e [enum]", "f.e.k", "f.c", "f.run", "f.unused"}) {
        const CodeObject& object = ObjectAt(path);
        EXPECT_EQ(object.CalledByAll().Count() + object.UsedByAll().Count() + object.IsDeath, 0) << path;
    }
    EXPECT_EQ(ModuleOf("f").CallsInDeclarations().Count() + ProcedureAt("f.run").CallsAll().Count(), 0);
}

TEST_F(CallsDriver, LocalsHaveUsesInsteadOfEdges) {
    ReadModule("Sub Run(a)\n Dim i\n i = a\n Help i\nEnd Sub\nSub Help(x)\nEnd Sub");
    Who_Calls_Who(*gProjekt);
    const clsProzedur& run = ProcedureAt("module1.run");
    for (int look = 0; look < 2; ++look) {  // looking at a procedure changes nothing
        EXPECT_EQ(DumpEdges(), "module1.run > module1.help");
        EXPECT_EQ(Check_ProcVars_Calls(run).size(), 3U);
        EXPECT_EQ(gProjekt->Counts().call, 1);
        EXPECT_EQ(run.CallsAll().Count(), 1);
        EXPECT_EQ(run.MyVars.Item("i")->CalledByAll().Count(), 0);
    }
}
