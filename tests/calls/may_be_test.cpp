#include <gtest/gtest.h>

#include "calls/driver.h"
#include "support/call_dumps.h"
#include "support/program_state.h"
#include "support/read_project.h"

namespace {

// "|" ends a line.
std::string Text(std::string_view text) {
    return Replace(text, "|", vbCrLf) + "\r\n";
}

class MayBeCalls : public ProgramState {
protected:
    // What the statement, in which nothing is known of x and y, may call from a sub in `file`.
    static std::string Of(const char* file, const char* declarations, const char* statement,
                          const ProjectFile& other = {"Z.bas", "Dim nothingElse\r\n"}) {
        ReadProject({{file, Text(std::string(declarations) + "|Sub Run()|" + statement + "|End Sub")},
                     {other.first, Text(other.second)}});
        Who_Calls_Who(*gProjekt);
        return DumpEdgesOf(std::string(1, file[0] == 'A' ? 'a' : 'b') + ".run");
    }
};

}  // namespace

TEST_F(MayBeCalls, ReachPublicMembersOfObjects) {
    struct Case {
        const char* file;
        const char* text;
        const char* statement;
        const char* edges;
    };
    for (const Case& c : {
             Case{"C.cls", "Public m", "y = x.m", "? c.m"},
             Case{"C.cls", "Public m", "x.m = 1", "? c.m"},
             Case{"C.cls", "Public m", "x.m", "? c.m"},
             Case{"C.frm", "Public m", "y = x.m", "? c.m"},
             Case{"C.ctl", "Public m", "y = x.m", "? c.m"},
             Case{"C.bas", "Public m", "y = x.m", ""},
             Case{"C.cls", "Private m", "y = x.m", ""},
             Case{"C.cls", "Public Const m = 1", "y = x.m", ""},
             Case{"C.cls", "Public Enum E|m|End Enum", "y = x.m", ""},
             Case{"C.bas", "Public Type T|m As Long|End Type", "y = x.m", "? c.t.m"},
             Case{"C.bas", "Private Type T|m As Long|End Type", "y = x.m", ""},
             Case{"C.frm", "Begin VB.Form C|Begin VB.Label m|End|End", "x.m = 1", "? c.m"},
         }) {
        SCOPED_TRACE(std::string(c.file) + " " + c.text + " " + c.statement);
        EXPECT_EQ(Of("A.bas", "", c.statement, {c.file, c.text}), c.edges);
    }
}

TEST_F(MayBeCalls, ReachProceduresThatMatchTheMode) {
    struct Case {
        const char* procedure;
        const char* statement;
        const char* edges;
    };
    for (const Case& c : {
             Case{"Sub m()|End Sub", "x.m", "? c.m"},
             Case{"Sub m()|End Sub", "y = x.m", ""},
             Case{"Function m()|End Function", "x.m 1", "? c.m"},
             Case{"Function m()|End Function", "y = x.m", "? c.m"},
             Case{"Property Get m()|End Property", "y = x.m", "? c.m [get]"},
             Case{"Property Get m()|End Property", "x.m", ""},
             Case{"Property Let m(v)|End Property", "x.m = 1", "? c.m [let]"},
             Case{"Property Let m(v)|End Property", "Set x.m = y", ""},
             Case{"Property Set m(v)|End Property", "Set x.m = y", "? c.m [set]"},
             Case{"Private Sub m()|End Sub", "x.m", ""},
         }) {
        SCOPED_TRACE(std::string(c.procedure) + " " + c.statement);
        EXPECT_EQ(Of("A.bas", "", c.statement, {"C.cls", c.procedure}), c.edges);
        EXPECT_EQ(Of("A.bas", "", c.statement, {"C.bas", c.procedure}), "");  // never of a standard module
    }
}

TEST_F(MayBeCalls, ReachPrivateMembersOfTheCallersOwnModule) {
    struct Case {
        const char* text;
        const char* statement;
        const char* fromClass;
        const char* fromModule;
    };
    for (const Case& c : {
             Case{"Private m", "y = x.m", "? m", ""},
             Case{"Public m", "y = x.m", "? m", ""},  // as any public one
             Case{"Private Const m = 1", "y = x.m", "? m", ""},
             Case{"Private Const m = 1", "x.m = 1", "", ""},
             Case{"Public Const m = 1", "y = x.m", "", ""},
             Case{"Private Type T|m As Long|End Type", "y = x.m", "? t.m", "? t.m"},
             Case{"Private Sub m()|End Sub", "x.m", "? m", ""},
             Case{"Private Sub m()|End Sub", "y = x.m", "", ""},
         }) {
        SCOPED_TRACE(std::string(c.text) + " " + c.statement);
        EXPECT_EQ(Of("B.cls", c.text, c.statement), c.fromClass);
        EXPECT_EQ(Of("B.frm", c.text, c.statement), c.fromClass);
        EXPECT_EQ(Of("A.bas", c.text, c.statement), c.fromModule);
    }
}

TEST_F(MayBeCalls, PrivateOnesComeFirstThenThePublicOnesAsTheyWereRead) {
    ReadProject({{"D.cls", "Public m\r\n"},
                 {"B.cls", "Private m\r\nSub Run()\r\ny = x.m\r\nx.m = 1\r\nEnd Sub\r\n"},
                 {"E.frm", "Public m\r\n"},
                 {"C.cls", "Property Get m()\r\nEnd Property\r\n"}});
    Who_Calls_Who(*gProjekt);
    EXPECT_EQ(DumpEdgesOf("b.run"), "? m; ? d.m; ? e.m; ? c.m [get]; ? m; ? d.m; ? e.m");
}
