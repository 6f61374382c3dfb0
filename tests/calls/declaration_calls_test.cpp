#include "support/call_dumps.h"
#include "support/project_test.h"

namespace {

class DeclarationCalls : public ProgramState {
protected:
    struct Case {
        const char* declarations;  // declarations of Main.bas; "|" ends a line
        const char* edges;
    };
    static void Expect(std::initializer_list<Case> cases) {
        for (const Case& c : cases) {
            SCOPED_TRACE(c.declarations);
            ReadProject({{"Main.bas", Replace(c.declarations, "|", vbCrLf) + "\n"},
                         {"Thing.cls", "Public Value\n"},
                         {"Other.cls", "Public Only\n"}});
            Who_Calls_Who(*gProjekt);
            EXPECT_EQ(DumpEdgesOf("main"), c.edges);
        }
    }
};

}  // namespace

TEST_F(DeclarationCalls, TypesAreUsed) {
    Expect({{"Dim a As Long", ""},
            {"Dim a, b As New Thing, c(2) As Other", ": thing; : other"},
            {"Dim a As Project1.Thing", ": thing"},
            {"Private Type T|m As Thing|End Type|Dim a As T", ": thing; : t [type]"},
            {"Declare Function D Lib \"d\" (ByVal a As Thing, b As Long) As Other", ": thing; : other"},
            {"Dim a(1 As Thing, b As Other", ": thing; : other"}});  // unclosed brackets
}

TEST_F(DeclarationCalls, ConstantsInValuesAreCalled) {
    Expect({{"Const B = 1|Const A = 2 * (B - B)", "> b; > b"},
            {"Const A As Long = 1, C As Long = B|Const B = 1", "> b"},
            {"Enum E|x = 1|y = x + 1|End Enum", "> e.x"},
            {"Const B = 1|Dim a(B) As Thing", ": thing"},  // not in array bounds
            {"Dim v|Const A = v", ""}});
}

// Once as part of the declarations section, and once as procedures.
TEST_F(DeclarationCalls, HeadsOfEventsAreWalkedTwice) {
    ReadProject({{"C.cls", "Event Done(a As Thing)\n"}, {"Thing.cls", "Public Value\n"}});
    Who_Calls_Who(*gProjekt);
    EXPECT_EQ(DumpEdges(), "c : thing; c.done : thing");
}
