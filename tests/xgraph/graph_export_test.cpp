#include "xgraph/graph_export.h"

#include "graph_support.h"
#include "support/golden.h"

namespace {

// Certain and possible calls, a use, a call of itself, a dead procedure, a module that stands for what is in it.
class GraphExports : public Graphs {
protected:
    void MakeDiagram() {
        Analyse(ReadProject({{"M.bas",
                              "Type Pair\nFirst As Long\nEnd Type\nSub Go(it As Object)\nStay\nStay\nit.Say\nEnd Sub\n"
                              "Sub Stay()\nDim two As Pair\nStay\nEnd Sub\nSub Alone()\nEnd Sub\n"},
                             {"C.cls", "Sub Say()\nEnd Sub\n"}}));
        Put({"m.stay", "m.go", "c.say", "m.alone", "m.pair [type]", "c"});
    }
};

TEST_F(GraphExports, AllFormatsSayTheSame) {
    MakeDiagram();
    ExpectGolden(GraphTextAs(GraphFormat::Dot, graph), "xgraph", "small.dot");
    ExpectGolden(GraphTextAs(GraphFormat::GraphMl, graph), "xgraph", "small.graphml");
    ExpectGolden(GraphTextAs(GraphFormat::Json, graph), "xgraph", "small.json");
}

TEST_F(GraphExports, WhatIsSelectedOrActiveChangesNothing) {
    MakeDiagram();
    const std::string before = GraphJsonText(ContentOf(graph));
    graph.GraphSelectAll();
    graph.SetActive(2);
    EXPECT_EQ(GraphJsonText(ContentOf(graph)), before);
}

TEST_F(GraphExports, WithoutSymbolsTheyAreEmpty) {
    EXPECT_EQ(GraphTextAs(GraphFormat::Json, graph), "{\n \"nodes\": [],\n \"pairs\": []\n}\n");
    EXPECT_EQ(GraphTextAs(GraphFormat::Dot, graph).find("label"), std::string::npos);
    EXPECT_EQ(GraphTextAs(GraphFormat::Ovg, graph), "Version=1\r\n");
}

TEST_F(GraphExports, CharactersWithAMeaningAreEscaped) {
    const GraphContent content{{{.codePath = "a\"<&>\\\x01\xC3\xA4",
                                 .name = "A",
                                 .caption = "",
                                 .kind = "module",
                                 .module = "a",
                                 .isDead = false,
                                 .frame = {0.5, -1, 2, 3}}},
                               {}};
    EXPECT_THAT(GraphJsonText(content), HasSubstr("\"a\\\"<&>\\\\\\u0001\xC3\xA4\""));
    EXPECT_THAT(GraphJsonText(content), HasSubstr("\"left\":0.5,\"top\":-1,"));
    EXPECT_THAT(GraphMlText(content), HasSubstr(">a&quot;&lt;&amp;&gt;\\ \xC3\xA4<"));
    EXPECT_THAT(DotText(content), HasSubstr("\"a\\\"<&amp;>\\\\ \xC3\xA4\""));
}

TEST(GraphFormats, GoBySuffixInAnyLetterCase) {
    EXPECT_EQ(GraphFormatOf("a/b.OVG"), GraphFormat::Ovg);
    EXPECT_EQ(GraphFormatOf("b.gv"), GraphFormat::Dot);
    EXPECT_EQ(GraphFormatOf("b.dot.graphml"), GraphFormat::GraphMl);
    EXPECT_EQ(GraphFormatOf("b.json.txt"), std::nullopt);
    EXPECT_EQ(GraphFormatOf("json"), std::nullopt);
}

}  // namespace
