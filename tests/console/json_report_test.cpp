#include "console/json_report.h"

#include <nlohmann/json.hpp>

#include "support/golden.h"
#include "support/project_test.h"

using Json = nlohmann::ordered_json;

namespace {

class JsonReports : public ProgramState {
protected:
    static Json Written(const JsonParts& parts = {}) {
        std::ostringstream out;
        WriteJson(out, *gProjekt, parts);
        return Json::parse(out.str());
    }
};

}  // namespace

// Objects follow their owner, and those dropped for an earlier one of their name stay out; modules, libraries and
// problems are in the order of the project file.
TEST_F(JsonReports, WholeReportIsTheGoldenFile) {
    ReadProject({{"P.vbp",
                  "Name=\"P\"\nClass=K; K.cls\nModule=X; X.bas\nForm=Form1.frm\nModule=A; sub\\..\\A.bas\n"
                  "Module=A; A2.bas\nReference=*\\G{1}#2.0#0#C:\\x.dll#The X\nObject={2}#1.0#0; y.ocx\n"},
                 {"A.bas", R"(
                      ' one

                      Const B = 1, C = B
                      Property Let P(v)
                          x.m = _
                              C
                      End Property
                      Sub S(a As K)
                          P = 1
                      End Sub
                  )"},
                 {"A2.bas", "Attribute VB_Name = \"A\"\nDim second\n"},
                 {"K.cls", "Public m\n"},
                 {"Form1.frm", R"(
                      Begin VB.Form Form1
                         Begin VB.Label lbl
                         End
                      End
                      Private v
                      Public V As Long
                      Private Type T
                          m As Long
                      End Type
                      Type t
                          n As Long
                      End Type
                      Private Enum E
                          a
                      End Enum
                      Enum e
                          a
                          b
                      End Enum
                      Declare Sub D Lib "d" ()
                      Function F(x)
                          Const k = 1
                          Dim l
                      End Function
                      Sub f()
                      End Sub
                      Property Get P(): End Property
                  )"}});
    EXPECT_FALSE(Written().contains("edges"));
    Analyse();
    const Json json = Written({.edges = true});
    std::string lines;  // one for each thing
    for (const auto& [key, value] : json.items()) {
        lines += key + ": " + (value.is_array() ? "" : value.dump()) + "\r\n";
        for (const Json& one : value.is_array() ? value : Json::array())
            lines += "  " + one.dump() + "\r\n";
    }
    ExpectGolden(lines, "json", "P.vbp");
}

// The kind of an odd accessor is a part of the text.
TEST_F(JsonReports, EveryTextOfTheSourceIsUtf8) {
    ReadProject({{"\xDC.bas", "Property Ge\xBC P\xFC(\xE4 As T\xF6)\nEnd Property\nDim \xE9 As \xE8\n"}});
    EXPECT_NE(Written().dump().find("property ge\u00BC"), std::string::npos);
}
