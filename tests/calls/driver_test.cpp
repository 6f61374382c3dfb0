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

TEST_F(CallsDriver, TakesModulesByKindAndDoublesTheEdgesWhenRunTwice) {
    ReadFourModules();
    Who_Calls_Who(*gProjekt);
    const std::string once = "m : m.t [type]; f : m.t [type]; c : m.t [type]; u : m.t [type]";
    EXPECT_EQ(DumpEdges(), once);
    Who_Calls_Who(*gProjekt);
    EXPECT_EQ(DumpEdges(), once + "; " + once);
}

TEST_F(CallsDriver, CancelledBetweenTwoModulesKeepsTheEdgesMadeSoFar) {
    ReadFourModules();
    {
        const RecordingProgress cancel("F + ");
        Who_Calls_Who(*gProjekt);
    }
    EXPECT_EQ(DumpEdges(), "m : m.t [type]; f : m.t [type]");
    Remove_All_Calls(*gProjekt);
    Who_Calls_Who(*gProjekt);  // a cancellation does not affect the next run
    EXPECT_EQ(gProjekt->calls.Count(), 4U);
}

TEST_F(CallsDriver, RunAgainAfterRemovingGivesTheSameEdgesWithHigherNumbers) {
    ReadProject({{"F.frm",
                  "Begin VB.Form F\nBegin VB.Label lbl\nEnd\nEnd\n"
                  "Private Type T\nm As Long\nEnd Type\nPrivate Enum E\nk\nEnd Enum\n"
                  "Const c = k\nDim v As T, w As E\nSub Run(l)\nv.m = c + l\nlbl.Show\nx.Run\n"
                  "F.Run\nEnd Sub\nSub Unused()\nEnd Sub\n"},
                 {"M.bas", "Sub Start(a As F)\na.lbl = 1\nF.Run\nEnd Sub\n"}});
    const auto analyse = [] {
        Analyse();
        Check_ProcVars_Calls(*gProjekt, ProcedureAt("f.run"));
        std::vector<std::int32_t> numbers;
        gProjekt->calls.ForEach([&](const clsCall& call) { numbers.push_back(call.CallNr); });
        return numbers;
    };
    const auto numbers = analyse();
    const std::string first = DumpEdges();
    EXPECT_THAT(first, testing::HasSubstr("f.run > f.run.l"));

    Remove_All_Calls(*gProjekt);
    EXPECT_EQ(DumpEdges(), "");
    const auto expectNone = [](const CodeObject& object) {
        EXPECT_EQ(object.CalledByAll().Count() + object.IsDeath, 0) << object.CodePath();
    };
    for (const clsModul* modul : gProjekt->AllModules()) {
        EXPECT_EQ(modul->CallsInDeclarations().Count() + modul->UsedByAll().Count() + modul->CalledByAll().Count(), 0);
        for (const auto& object : modul->Owned())
            expectNone(*object);
        for (const clsProzedur* prozedur : modul->MyProcs)
            EXPECT_EQ(prozedur->CallsAll().Count() + prozedur->UsesAll().Count() + prozedur->LocalCallsChecked, 0);
        for (const clsType* type : modul->myTypes)
            EXPECT_EQ(type->UsedByAll().Count(), 0);
        for (const clsEnum* einEnum : modul->myEnums)
            EXPECT_EQ(einEnum->UsedByAll().Count(), 0);
    }
    for (const char* member : {"f.t.m", "f.e.k"})
        expectNone(ObjectAt(member));

    const auto again = analyse();
    EXPECT_EQ(DumpEdges(), first);
    EXPECT_GT(again.front(), numbers.back());
}

TEST_F(CallsDriver, TouchingItsOwnLocalsIsNoCall) {
    ReadModule("Sub Run()\n Dim i\n i = 1\nEnd Sub");
    Who_Calls_Who(*gProjekt);
    clsProzedur& run = ProcedureAt("module1.run");
    Check_ProcVars_Calls(*gProjekt, run);
    EXPECT_GT(run.CallsAll().Count(), 0);
    EXPECT_FALSE(Is_Calls(run, CallType::Really));
}
