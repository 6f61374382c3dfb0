#include "support/call_dumps.h"
#include "support/project_test.h"

namespace {

class MayBeCalls : public ProgramState {
protected:
    // The possible calls of the statement in a sub of `file`, with x and y of unknown type; "|" ends a line.
    static std::string Of(const char* file, const char* declarations, const char* statement,
                          const ProjectFile& other = {"Z.bas", "Dim nothingElse\r\n"}) {
        const std::string text = std::string(declarations) + "|Sub Run()|" + statement + "|End Sub|";
        ReadProject({{file, Replace(text, "|", vbCrLf)}, {other.first, Replace(other.second + "|", "|", vbCrLf)}});
        Who_Calls_Who(*gProjekt);
        return DumpEdgesOf(std::string(1, file[0] == 'A' ? 'a' : 'b') + ".run");
    }
};

}  // namespace

TEST_F(MayBeCalls, ReachPublicMembersOfObjects) {
    using Case = std::tuple<const char*, const char*, const char*, const char*>;
    for (const auto& [file, text, statement, edges] :
         {Case{"C.cls", "Public m", "y = x.m", "? c.m"}, Case{"C.cls", "Public m", "x.m", "? c.m"},
          Case{"C.frm", "Public m", "y = x.m", "? c.m"}, Case{"C.ctl", "Public m", "y = x.m", "? c.m"},
          Case{"C.bas", "Public m", "y = x.m", ""}, Case{"C.cls", "Private m", "y = x.m", ""},
          Case{"C.cls", "Public Const m = 1", "y = x.m", ""}, Case{"C.cls", "Public Enum E|m|End Enum", "y = x.m", ""},
          Case{"C.bas", "Public Type T|m As Long|End Type", "y = x.m", "? c.t.m"},
          Case{"C.bas", "Private Type T|m As Long|End Type", "y = x.m", ""},
          Case{"C.frm", "Begin VB.Form C|Begin VB.Label m|End|End", "x.m = 1", "? c.m"}}) {
        SCOPED_TRACE(std::string(file) + " " + text + " " + statement);
        EXPECT_EQ(Of("A.bas", "", statement, {file, text}), edges);
    }
}

TEST_F(MayBeCalls, ReachProceduresThatMatchTheMode) {
    using Case = std::tuple<const char*, const char*, const char*>;
    for (const auto& [procedure, statement, edges] :
         {Case{"Sub m()|End Sub", "x.m", "? c.m"}, Case{"Sub m()|End Sub", "y = x.m", ""},
          Case{"Function m()|End Function", "x.m 1", "? c.m"}, Case{"Function m()|End Function", "y = x.m", "? c.m"},
          Case{"Property Get m()|End Property", "y = x.m", "? c.m [get]"},
          Case{"Property Get m()|End Property", "x.m", ""},
          Case{"Property Let m(v)|End Property", "x.m = 1", "? c.m [let]"},
          Case{"Property Let m(v)|End Property", "Set x.m = y", ""},
          Case{"Property Set m(v)|End Property", "Set x.m = y", "? c.m [set]"},
          Case{"Private Sub m()|End Sub", "x.m", ""}}) {
        SCOPED_TRACE(std::string(procedure) + " " + statement);
        EXPECT_EQ(Of("A.bas", "", statement, {"C.cls", procedure}), edges);
        EXPECT_EQ(Of("A.bas", "", statement, {"C.bas", procedure}), "");  // never in a standard module
    }
}

TEST_F(MayBeCalls, ReachPrivateMembersOfTheCallersOwnModule) {
    using Case = std::tuple<const char*, const char*, const char*, const char*>;
    for (const auto& [text, statement, fromClass, fromModule] :
         {Case{"Private m", "y = x.m", "? m", ""}, Case{"Public m", "y = x.m", "? m", ""},  // like any public one
          Case{"Private Const m = 1", "y = x.m", "? m", ""}, Case{"Private Const m = 1", "x.m = 1", "", ""},
          Case{"Public Const m = 1", "y = x.m", "", ""},
          Case{"Private Type T|m As Long|End Type", "y = x.m", "? t.m", "? t.m"},
          Case{"Private Sub m()|End Sub", "x.m", "? m", ""}}) {
        SCOPED_TRACE(std::string(text) + " " + statement);
        EXPECT_EQ(Of("B.cls", text, statement), fromClass);
        EXPECT_EQ(Of("B.frm", text, statement), fromClass);
        EXPECT_EQ(Of("A.bas", text, statement), fromModule);
    }
}

TEST_F(MayBeCalls, PrivateOnesComeFirstThenThePublicOnesAsTheyWereRead) {
    ReadProject({{"D.cls", "Public m\n"},
                 {"B.cls", "Private m\nSub Run()\ny = x.m\nx.m = 1\nEnd Sub\n"},
                 {"E.frm", "Public m\n"},
                 {"C.cls", "Property Get m()\nEnd Property\n"}});
    Who_Calls_Who(*gProjekt);
    EXPECT_EQ(DumpEdgesOf("b.run"), "? m; ? d.m; ? e.m; ? c.m [get]; ? m; ? d.m; ? e.m");
}
