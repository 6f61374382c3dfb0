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
    ReadProject({{"F.frm",
                  "Begin VB.Form F\nBegin VB.Label lbl\nEnd\nEnd\n"
                  "Private Type T\nm As Long\nEnd Type\nPrivate Enum E\nk\nEnd Enum\n"
                  "Const c = k\nDim v As T, w As E\nSub Run(l)\nv.m = c + l\nlbl.Show\nx.Run\n"
                  "F.Run\nEnd Sub\nSub Unused()\nEnd Sub\n"},
                 {"M.bas", "Sub Start(a As F)\na.lbl = 1\nF.Run\nEnd Sub\n"}});
    Analyse();
    const std::string first = DumpEdges();
    EXPECT_TRUE(gProjekt->callsKnown && gProjekt->marksKnown);

    Remove_All_Calls(*gProjekt);
    EXPECT_EQ(DumpEdges(), "");
    EXPECT_FALSE(gProjekt->callsKnown || gProjekt->marksKnown);
    const auto expectNone = [](const CodeObject& object) {
        EXPECT_EQ(object.CalledByAll().Count() + object.UsedByAll().Count() + object.IsDeath, 0) << object.CodePath();
    };
    for (const clsModul* modul : gProjekt->AllModules()) {
        expectNone(*modul);
        EXPECT_EQ(modul->CallsInDeclarations().Count(), 0);
        for (const CodeObject* object : modul->Owned())
            expectNone(*object);
        for (const clsProzedur* prozedur : modul->MyProcs)
            EXPECT_EQ(prozedur->CallsAll().Count() + prozedur->UsesAll().Count(), 0);
    }
    for (const char* member : {"f.t.m", "f.e.k"})
        expectNone(ObjectAt(member));
    Analyse();
    EXPECT_EQ(DumpEdges(), first);
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
