#include "display/properties.h"

#include <gtest/gtest.h>

#include "display/selection.h"
#include "model/clsControl.h"
#include "model/clsProjekt.h"
#include "support/program_state.h"
#include "support/read_project.h"

namespace {

class Properties : public ProgramState {
protected:
    // "Name=S 77=public 78=sub", numbers for texts of the language file.
    static std::string Dump(const std::optional<PropertyRows>& rows) {
        if (!rows)
            return "as it was";
        const auto cell = [](const PropertyCell& c) { return c.textNr ? std::to_string(c.textNr) : c.bytes; };
        std::string dump;
        for (const PropertyRow& row : *rows)
            dump += (dump.empty() ? "" : "; ") + cell(row.label) + "=" + cell(row.value);
        return dump;
    }
    static std::string Of(std::string_view codePath) { return Dump(Anzeigen_Eigenschaften(*ObjectOfNode(codePath))); }
};

}  // namespace

TEST_F(Properties, EachClassHasItsRows) {
    ReadModule(R"(
        Private v As Long
        Public Type T
            m As String
        End Type
        Private Enum E
            One
        End Enum
        Sub S(a As Integer)
            Dim x As New Collection
        End Sub
        Private Function F()
        End Function
        Property Get P() As Date
        End Property
        Property Let P(d)
        End Property
    )",
               "Main.bas");
    struct Case {
        const char* path;
        const char* rows;
    };
    for (const Case& c :
         {Case{"main", "Name=Main; 78=module; 56=16"}, Case{"main.s", "Name=S; 77=public; 78=sub; 79=module Main"},
          Case{"main.f", "Name=F; 77=private; 78=function; 79=module Main; 80=variant"},
          Case{"main.p [get]", "Name=P; 77=public; 78=property get; 79=module Main; 80=date"},
          Case{"main.p [let]", "Name=P; 77=public; 78=property let; 79=module Main"},
          Case{"main.v", "Name=v; 77=private; 80=long; 79=module Main"},
          Case{"main.s.a", "Name=a; 77=argument; 80=integer; 79=sub S()"},
          Case{"main.s.x", "Name=x; 77=81; 80=collection; 79=sub S()"},
          Case{"main.t [type]", "Name=T; 77=public; 79=module Main"},
          Case{"main.t.m", "Name=m; 77=type member; 80=string; 79=Type T"},
          Case{"main.e [enum]", "Name=E; 77=private; 79=module Main"},
          Case{"main.e.one", "Name=One; 77=enum member; 80=long; 79=Enum E"}})
        EXPECT_EQ(Of(c.path), c.rows) << c.path;
    EXPECT_EQ(Dump(Anzeigen_Eigenschaften(*gProjekt)), "Name=Project1");
}

TEST_F(Properties, ControlLeavesTheGridAsItWas) {
    ReadModule("VERSION 5.00\nBegin VB.Form F\n  Begin VB.TextBox txt\n  End\nEnd\n", "F.frm");
    EXPECT_EQ(Of("f.txt"), "as it was");
}
