#include "console/json_report.h"

#include <nlohmann/json.hpp>
#include <sstream>

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
    static Json Of(std::string_view snippet, std::string_view file = "Module1.bas") {
        ReadModule(snippet, file);
        return Written();
    }
    // "kind path" of each object.
    static std::vector<std::string> Objects(const Json& json) {
        std::vector<std::string> objects;
        for (const Json& object : json["objects"])
            objects.push_back(object["kind"].get<std::string>() + " " + object["codePath"].get<std::string>());
        return objects;
    }
};

}  // namespace

TEST_F(JsonReports, MembersFollowTheirOwner) {
    EXPECT_THAT(Objects(Of(R"(
        Begin VB.Form Form1
           Begin VB.Label lbl
           End
        End
        Private v
        Private Type T
            m As Long
        End Type
        Private Enum E
            a
        End Enum
        Const C = 1
        Declare Sub D Lib "d" ()
        Function F(x)
            Const k = 1
            Dim l
        End Function
        Property Get P(): End Property
        Property Let P(v): End Property
    )",
                           "Form1.frm")),
                ElementsAre("control form1.lbl", "variable form1.me", "variable form1.v", "type form1.t [type]",
                            "type member form1.t.m", "enum form1.e [enum]", "enum member form1.e.a", "constant form1.c",
                            "procedure form1.d", "procedure form1.f", "argument form1.f.x", "local form1.f.k",
                            "local form1.f.l", "argument form1.f.f", "procedure form1.p [get]", "argument form1.p.p",
                            "procedure form1.p [let]", "argument form1.p.v"));
}

TEST_F(JsonReports, DroppedNamesakesStayOut) {
    EXPECT_THAT(
        Objects(Of("Dim a\nPublic A As Long\nType T\nm As Long\nEnd Type\nType t\nn As Long\nEnd Type\n"
                   "Enum E\nx\nEnd Enum\nEnum e\nx\ny\nEnd Enum\nSub S()\nEnd Sub\nFunction s()\nEnd Function")),
        ElementsAre("variable module1.a", "type module1.t [type]", "type member module1.t.m", "enum module1.e [enum]",
                    "enum member module1.e.x", "enum member module1.e.y", "procedure module1.s"));
}

TEST_F(JsonReports, ModulesLibrariesAndProblemsAreInTheOrderOfTheProjectFile) {
    ReadProject({{"P.vbp",
                  "Name=\"P\"\nClass=C; C.cls\nModule=X; X.bas\nModule=A; sub\\..\\A.bas\nModule=A; A2.bas\n"
                  "Reference=*\\G{1}#2.0#0#C:\\x.dll#The X\nObject={2}#1.0#0; y.ocx\n"},
                 {"A.bas", "' one\n\nDim a\n"},
                 {"A2.bas", "Attribute VB_Name = \"A\"\nDim second\n"},
                 {"C.cls", "Dim c\n"}});
    const Json json = Written();
    ASSERT_EQ(json["modules"].size(), 2U);
    EXPECT_EQ(json["modules"][0]["codePath"], "c");
    EXPECT_EQ(
        json["modules"][1].dump(),
        R"({"codePath":"a","name":"A","kind":"module","path":"p\\sub\\..\\A.bas","code":1,"comment":1,"blank":1,"procedures":0,"variables":1})");
    EXPECT_THAT(Objects(json), ElementsAre("variable c.me", "variable c.c", "variable a.a"));
    EXPECT_EQ(json["objects"][2].dump(),
              R"({"codePath":"a.a","name":"a","kind":"variable","access":"private","type":"variant","module":"a",)"
              R"("start":14,"end":15,"dead":0,"const":false})");
    EXPECT_EQ(json["libraries"][0].dump(),
              R"({"kind":"reference","name":"x","description":"The X","typeLibID":"{1}","version":"2.0",)"
              R"("entry":"Reference=*\\G{1}#2.0#0#C:\\x.dll#The X"})");
    EXPECT_EQ(json["libraries"][1]["kind"], "component");
    ASSERT_EQ(json["problems"].size(), 1U);
    EXPECT_EQ(json["problems"][0]["tag"], "clsModul: Read_MyCodeName");
    EXPECT_EQ(json["problems"][0]["text"], "File not found: p\\X.bas");
}

TEST_F(JsonReports, EdgesLeadFromTheirPlaceToTheirTarget) {
    const Marked vb = Vb(R"(
        Const B = 1, C = {{B}}
        Property Let P(v)
            x.{{m}} = _
                {{C}}
        End Property
        Sub S(a As {{K}})
            {{P}} = 1
        End Sub
    )");
    ReadProject({{"M.bas", vb.text}, {"K.cls", "Public m\n"}});
    EXPECT_FALSE(Written().contains("edges"));
    Analyse();
    const Json json = Written({.edges = true});
    using Case = std::tuple<int, const char*, const char*, const char*>;
    std::size_t nr = 0;
    for (const auto& [line, kind, from, to] :
         {Case{1, "really", "m", "m.b"}, Case{3, "maybe", "m.p [let]", "k.m"}, Case{4, "really", "m.p [let]", "m.c"},
          Case{6, "use", "m.s", "k"}, Case{7, "really", "m.s", "m.p [let]"}}) {
        ++nr;
        const Json edge{{"nr", nr}, {"kind", kind}, {"from", from}, {"pos", vb.pos(nr)}, {"line", line}, {"to", to}};
        EXPECT_EQ(json["edges"][nr - 1].dump(), edge.dump());
    }
    EXPECT_EQ(json["edges"].size(), nr);
    std::vector<std::string> dead;
    for (const Json& object : json["objects"])
        if (object["dead"] != 0)
            dead.push_back(object["codePath"].get<std::string>() + " " + object["dead"].dump());
    EXPECT_THAT(dead, ElementsAre("m.p [let] 2", "m.s 1"));
}
