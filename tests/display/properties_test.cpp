#include "display/properties.h"

#include "display/selection.h"
#include "support/project_test.h"

namespace {

class Properties : public ProgramState {
protected:
    // "Name=S 77=public 78=sub"; a number is that of a text in the language file.
    static std::string Dump(const std::optional<PropertyRows>& rows) {
        if (!rows)
            return "as it was";
        const auto cell = [](const PropertyCell& c) {
            return c.text == Text::None ? c.bytes : std::to_string(static_cast<int>(c.text));
        };
        return Joined(*rows, "; ", [&](const PropertyRow& row) { return cell(row.label) + "=" + cell(row.value); });
    }
    static std::string Of(std::string_view codePath) {
        return Dump(Anzeigen_Eigenschaften(*ObjectOfNode(*gProjekt, codePath)));
    }
};

}  // namespace

TEST_F(Properties, EachClassHasItsRows) {
    ReadModule(
        "Private v As Long\nPublic Type T\n  m As String\nEnd Type\nPrivate Enum E\n  One\nEnd Enum\n"
        "Sub S(a As Integer)\n  Dim x As New Collection\nEnd Sub\nPrivate Function F(): End Function\n"
        "Property Get P() As Date: End Property\nProperty Let P(d): End Property",
        "Main.bas");
    using Case = std::pair<const char*, const char*>;
    for (const auto& [path, rows] :
         {Case{"main", "Name=Main; 78=module; 56=13"}, Case{"main.s", "Name=S; 77=public; 78=sub; 79=module Main"},
          Case{"main.f", "Name=F; 77=private; 78=function; 79=module Main; 80=variant"},
          Case{"main.p [get]", "Name=P; 77=public; 78=property get; 79=module Main; 80=date"},
          Case{"main.p [let]", "Name=P; 77=public; 78=property let; 79=module Main"},
          Case{"main.v", "Name=v; 77=private; 80=long; 79=module Main"},
          Case{"main.s.a", "Name=a; 77=argument; 80=integer; 79=sub S()"},
          Case{"main.s.x", "Name=x; 77=81; 80=collection; 79=sub S()"},
          Case{"main.t [type]", "Name=T; 77=public; 79=module Main"},
          Case{"main.t.m", "Name=m; 77=type member; 80=string; 79=Type T"},
          Case{"main.e.one", "Name=One; 77=enum member; 80=long; 79=Enum E"}})
        EXPECT_EQ(Of(path), rows) << path;
    EXPECT_EQ(Dump(Anzeigen_Eigenschaften(*gProjekt)), "Name=Project1");
    ReadModule("VERSION 5.00\nBegin VB.Form F\n  Begin VB.TextBox txt\n  End\nEnd\n", "F.frm");
    EXPECT_EQ(Of("f.txt"), "Name=txt; 80=vb.textbox; 79=form F");
}
