#include <gtest/gtest.h>

#include "calls/driver.h"
#include "model/clsModul.h"
#include "support/call_dumps.h"
#include "support/marked.h"
#include "support/program_state.h"
#include "support/read_project.h"

namespace {

class DeclarationCalls : public ProgramState {
protected:
    // What the declarations of Main.bas call and use; "|" ends a line.
    static std::string Of(std::string_view declarations) {
        ReadProject({{"Main.bas", Replace(declarations, "|", vbCrLf) + "\r\n"},
                     {"Thing.cls", "Public Value\r\n"},
                     {"Other.cls", "Public Only\r\n"}});
        Who_Calls_Who(*gProjekt);
        return DumpEdgesOf("main");
    }
};

}  // namespace

TEST_F(DeclarationCalls, TypesAreUsed) {
    struct Case {
        const char* declarations;
        const char* edges;
    };
    for (const Case& c : {
             Case{"Dim a As Thing", ": thing"}, Case{"Dim a As Long", ""},
             Case{"Dim a As Thing, b As Other", ": thing; : other"},
             Case{"Dim a, b As Thing, c(2) As Other", ": thing; : other"}, Case{"Private a As New Thing", ": thing"},
             Case{"Dim a As Project1.Thing", ": thing"},
             Case{"Private Type T|m As Thing|End Type|Dim a As T", ": thing; : t [type]"},
             Case{"Declare Function D Lib \"d\" (ByVal a As Thing, b As Long) As Other", ": thing; : other"},
             Case{"Dim a(1 As Thing, b As Other", ": thing; : other"},  // brackets that don't close
         }) {
        SCOPED_TRACE(c.declarations);
        EXPECT_EQ(Of(c.declarations), c.edges);
    }
}

TEST_F(DeclarationCalls, ConstantsInValuesAreCalled) {
    struct Case {
        const char* declarations;
        const char* edges;
    };
    for (const Case& c : {
             Case{"Const B = 1|Const A = B", "> b"},
             Case{"Const B = 1|Const A As Long = B + 1", "> b"},
             Case{"Const B = 1|Const A = 2 * (B - B)", "> b; > b"},
             Case{"Const B = 1|Const A = B, C = B", "> b; > b"},
             Case{"Const A As Long = 1, C As Long = B|Const B = 1", "> b"},
             Case{"Enum E|x = 1|y = x + 1|End Enum", "> e.x"},
             Case{"Const B = 1|Dim a(B) As Thing", ": thing"},  // not in a bound
             Case{"Dim v|Const A = v", ""},
         }) {
        SCOPED_TRACE(c.declarations);
        EXPECT_EQ(Of(c.declarations), c.edges);
    }
}

TEST_F(DeclarationCalls, HangOnTheModuleInsteadOfAProcedure) {
    const Marked vb = Vb("Const B = 1\nConst A = {{B}}\nDim x As {{Thing}}\n");
    ReadProject({{"Main.bas", vb.text}, {"Thing.cls", "Public Value\r\n"}});
    Who_Calls_Who(*gProjekt);
    std::size_t mark = 0;
    for (const clsCall* call : ModuleOf("main").CallsInDeclarations) {
        EXPECT_EQ(call->CallPos, vb.pos(++mark));
        EXPECT_EQ(call->CallModule(), &ModuleOf("main"));
        EXPECT_EQ(call->CallProcedure(), nullptr);
    }
    EXPECT_EQ(mark, 2U);
    EXPECT_EQ(ModuleOf("thing").UsedByAll.Count(), 1);
}

// Once with the section, and once as procedures.
TEST_F(DeclarationCalls, HeadsOfEventsAreWalkedTwice) {
    ReadProject({{"C.cls", "Event Done(a As Thing)\r\n"}, {"Thing.cls", "Public Value\r\n"}});
    Who_Calls_Who(*gProjekt);
    EXPECT_EQ(DumpEdges(), "c : thing; c.done : thing");
}
