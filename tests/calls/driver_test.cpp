#include "calls/driver.h"

#include <gtest/gtest.h>

#include "calls/edges.h"
#include "findings/dead_objects.h"
#include "model/clsControl.h"
#include "model/clsEnum.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"
#include "shell/operations.h"
#include "source/module_text.h"
#include "support/call_dumps.h"
#include "support/program_state.h"
#include "support/read_project.h"

namespace {

// Presses cancel when the bar has moved on so many times.
class CancelAfter final : public Progress {
public:
    explicit CancelAfter(int steps) : left_(steps), before_(SetProgress(this)) {}
    ~CancelAfter() override { SetProgress(before_); }
    CancelAfter(const CancelAfter&) = delete;
    CancelAfter& operator=(const CancelAfter&) = delete;
    void Progressiere_mal() override {
        if (--left_ == 0)
            gAbort = true;
    }

private:
    int left_;
    Progress* before_;
};

class CallsDriver : public ProgramState {
protected:
    static void ReadFourModules() {
        ReadProject({{"U.ctl", "Dim a As T\r\n"},
                     {"C.cls", "Dim a As T\r\n"},
                     {"F.frm", "Dim a As T\r\n"},
                     {"M.bas", "Public Type T\r\nm As Long\r\nEnd Type\r\nDim a As T\r\n"}});
    }
    static const clsProzedur& Procedure(std::string_view path) {
        return static_cast<const clsProzedur&>(*modMain::GetObjectFromCodePath(path));
    }
};

}  // namespace

TEST_F(CallsDriver, TakesStandardModulesFormsClassesAndUserControlsInThisOrder) {
    ReadFourModules();
    Who_Calls_Who(*gProjekt);
    EXPECT_EQ(DumpEdges(), "m : m.t [type]; f : m.t [type]; c : m.t [type]; u : m.t [type]");
}

TEST_F(CallsDriver, CancelledBetweenTwoModulesKeepsTheEdgesMadeSoFar) {
    ReadFourModules();
    {
        const CancelAfter cancel(2);
        Who_Calls_Who(*gProjekt);
    }
    EXPECT_EQ(DumpEdges(), "m : m.t [type]; f : m.t [type]");
    Remove_All_Calls(*gProjekt);
    Who_Calls_Who(*gProjekt);  // a cancel does not outlive its run
    EXPECT_EQ(gProjekt->calls.Count(), 4U);
}

TEST_F(CallsDriver, RunAgainAfterRemovingGivesTheSameEdgesWithHigherNumbers) {
    ReadProject({{"F.frm",
                  "Begin VB.Form F\r\nBegin VB.Label lbl\r\nEnd\r\nEnd\r\n"
                  "Private Type T\r\nm As Long\r\nEnd Type\r\nPrivate Enum E\r\nk\r\nEnd Enum\r\n"
                  "Const c = k\r\nDim v As T, w As E\r\nSub Run(l)\r\nv.m = c + l\r\nlbl.Show\r\nx.Run\r\n"
                  "F.Run\r\nEnd Sub\r\nSub Unused()\r\nEnd Sub\r\n"},
                 {"M.bas", "Sub Start(a As F)\r\na.lbl = 1\r\nF.Run\r\nEnd Sub\r\n"}});
    const auto numbers = [] {
        std::vector<std::int32_t> all;
        gProjekt->calls.ForEach([&](const clsCall& call) { all.push_back(call.CallNr); });
        return all;
    };
    const auto analyse = [] {
        Who_Calls_Who(*gProjekt);
        Tote_Untote_Kennzeichnen(*gProjekt);
        for (const clsModul* modul : gProjekt->AllModules())
            for (clsProzedur* prozedur : modul->MyProcs)
                Check_ProcVars_Calls(*gProjekt, *prozedur);
    };
    analyse();
    const std::string first = DumpEdges();
    const auto firstNumbers = numbers();
    EXPECT_NE(first.find("f.run > f.run.l"), std::string::npos) << first;
    EXPECT_NE(Procedure("f.unused").IsDeath, 0);
    for (std::size_t i = 1; i < firstNumbers.size(); ++i)
        EXPECT_GT(firstNumbers[i], firstNumbers[i - 1]);

    Remove_All_Calls(*gProjekt);
    EXPECT_EQ(DumpEdges(), "");
    for (const clsModul* modul : gProjekt->AllModules()) {
        EXPECT_EQ(modul->CallsInDeclarations.Count() + modul->UsedByAll.Count() + modul->CalledByAll.Count(), 0);
        for (const auto& object : modul->Owned()) {
            EXPECT_EQ(object->CalledByAll.Count(), 0) << object->CodePath();
            EXPECT_EQ(object->IsDeath, 0) << object->CodePath();
        }
        for (const clsProzedur* prozedur : modul->MyProcs) {
            EXPECT_EQ(prozedur->CallsAll.Count() + prozedur->UsesAll.Count(), 0);
            EXPECT_FALSE(prozedur->LocalCallsChecked);
        }
        for (const clsType* type : modul->myTypes)
            EXPECT_EQ(type->UsedByAll.Count() + type->MyVars.Item("m")->CalledByAll.Count(), 0);
        for (const clsEnum* einEnum : modul->myEnums)
            EXPECT_EQ(einEnum->UsedByAll.Count() + einEnum->MyVars.Item("k")->CalledByAll.Count(), 0);
    }

    analyse();
    EXPECT_EQ(DumpEdges(), first);
    ASSERT_EQ(numbers().size(), firstNumbers.size());
    EXPECT_GT(numbers().front(), firstNumbers.back());
}

TEST_F(CallsDriver, RunTwiceDoublesAllEdges) {
    ReadFourModules();
    Who_Calls_Who(*gProjekt);
    const std::string once = DumpEdges();
    Who_Calls_Who(*gProjekt);
    EXPECT_EQ(DumpEdges(), once + "; " + once);
}

TEST_F(CallsDriver, EdgesCanBeAskedForByCertainty) {
    ReadProject({{"M.bas", "Sub Run(a As C)\r\nHelp\r\nx.m = 1\r\nEnd Sub\r\nSub Help()\r\nEnd Sub\r\n"},
                 {"C.cls", "Public m\r\n"}});
    Who_Calls_Who(*gProjekt);
    const clsProzedur& run = Procedure("m.run");
    const clsProzedur& help = Procedure("m.help");
    for (const CallType type : {CallType::Really, CallType::MayBe, CallType::Use}) {
        EXPECT_TRUE(Is_Calls(run, type));
        EXPECT_FALSE(Is_Calls(help, type));
        EXPECT_FALSE(Is_CalledBy(run, type));
    }
    EXPECT_TRUE(Is_CalledBy(help, CallType::Really));
    EXPECT_FALSE(Is_CalledBy(help, CallType::MayBe));
    EXPECT_TRUE(Is_CalledBy(*modMain::GetObjectFromCodePath("c.m"), CallType::MayBe));
    EXPECT_FALSE(Is_CalledBy(*modMain::GetObjectFromCodePath("c.m"), CallType::Really));
    EXPECT_TRUE(Is_UsedBy(ModuleOf("c"), CallType::Use));
    EXPECT_FALSE(Is_UsedBy(ModuleOf("m"), CallType::Use));
}

TEST_F(CallsDriver, TouchingItsOwnLocalsIsNoCall) {
    ReadModule("Sub Run()\n Dim i\n i = 1\nEnd Sub");
    Who_Calls_Who(*gProjekt);
    clsProzedur& run = *ModuleOf("module1").MyProcs.Item("run");
    Check_ProcVars_Calls(*gProjekt, run);
    EXPECT_GT(run.CallsAll.Count(), 0);
    EXPECT_FALSE(Is_Calls(run, CallType::Really));
}
