#include "xgraph/connectors.h"

#include "graph_support.h"
#include "support/call_dumps.h"
#include "support/library_project.h"
#include "xgraph/steps.h"

namespace {

class Connectors : public Graphs {
protected:
    static std::string Dump(const std::vector<Connector>& connectors) {
        return Joined(connectors, "; ", [](const Connector& connector) {
            const CallType type = connector.call->Type();
            const char* const mark = type == CallType::Really ? " > " : type == CallType::MayBe ? " ? " : " : ";
            return (connector.Highlight ? "!" : "") + connector.from->CodePath + mark + connector.to->CodePath;
        });
    }
    std::string Grey() {
        graph.SetActive(0);
        return Dump(GraphVerbindungen(graph));
    }
    std::string IncomingOf(std::string_view path) {
        std::vector<Connector> connectors;
        GraphVerbindungen_ToObject(graph, At(path), true, connectors);
        return Dump(connectors);
    }
};

TEST_F(Connectors, EachEdgeBetweenSymbolsIsOneAndTheActiveOnesComeLast) {
    Analyse(ReadProject({{"M.bas", "Sub A()\nB: B: A: C\nEnd Sub\nSub B()\nA\nEnd Sub\nSub C()\nEnd Sub\n"}}));
    Put({"m.b", "m.a"});
    EXPECT_EQ(Grey(), "m.b > m.a; m.a > m.b; m.a > m.b; m.a > m.a");
    graph.SetActive(1);
    EXPECT_EQ(Dump(GraphVerbindungen(graph)),
              "m.b > m.a; m.a > m.b; m.a > m.b; m.a > m.a; !m.b > m.a; !m.a > m.b; !m.a > m.b");
}

TEST_F(Connectors, WhatContainsTheTargetStandsForIt) {
    Analyse(ReadProject({{"M.bas",
                          "Public Total As Long\nType Pair\nFirst As Long\nEnd Type\nEnum Colour\nRed\nEnd Enum\n"
                          "Sub Help()\nEnd Sub\n"},
                         {"N.bas", "Dim two As Pair\nSub Go()\nHelp\nTotal = Red\ntwo.First = 1\nEnd Sub\n"}}));
    Put({"n.go", "m"});
    EXPECT_EQ(Grey(), "n.go > m; n.go > m; n.go > m; n.go > m");
    Put({"m.pair [type]", "n.go", "m.colour [enum]", "m.total", "m.pair.first"});
    EXPECT_EQ(Grey(), "n.go > m.total; n.go > m.colour [enum]; n.go > m.pair.first; n.go > m.pair [type]");
    EXPECT_EQ(IncomingOf("m.pair [type]"), "!n.go > m.pair [type]");
    EXPECT_EQ(IncomingOf("m.colour [enum]"), "!n.go > m.colour [enum]");
    EXPECT_EQ(IncomingOf("m.total"), "!n.go > m.total");
}

TEST_F(Connectors, AModuleDoesWhatItsProceduresDo) {
    Analyse(
        ReadProject({{"M.bas", "Const Size = Most\nDim two As Pair\nSub A()\nB\nHelp\nEnd Sub\nSub B()\nEnd Sub\n"},
                     {"N.bas", "Public Const Most = 3\nType Pair\nFirst As Long\nEnd Type\nSub Help()\nEnd Sub\n"}}));
    Put({"m", "m.a", "m.b", "n.most", "n"});
    EXPECT_EQ(Grey(), "m > n.most; m > n; m > m.b; m > m; m > n; m.a > m.b; m.a > m; m.a > n")
        << "declarations first, without the type of what they use";
    EXPECT_EQ(IncomingOf("n"), "!m.a > n; !m > n; !m : n") << "procedures, variables, types";
    EXPECT_EQ(IncomingOf("m"), "!m.a > m");
    EXPECT_EQ(IncomingOf("n.most"), "") << "a variable knows no declarations";
}

TEST_F(Connectors, AFormThatIsNamedIsDrawnTwice) {
    Analyse(ReadProject({{"F.frm",
                          "VERSION 5.00\nBegin VB.Form F\n  Begin VB.CommandButton cmd\n  End\nEnd\n"
                          "Attribute VB_Name = \"F\"\nPublic Sub Ready()\nEnd Sub\n"},
                         {"M.bas", "Sub Go()\n    F.Ready\n    F.cmd.Move 1\nEnd Sub\n"}}));
    Put({"m.go", "f", "f.cmd"});
    EXPECT_EQ(DumpEdgesOf("m.go"), "> f; > f.ready; > f; > f.cmd");
    EXPECT_EQ(Grey(), "m.go > f; m.go > f; m.go > f; m.go > f; m.go > f; m.go > f.cmd; m.go > f");
}

TEST_F(Connectors, LibrariesStandForWhatTheyContain) {
    ReadProjectWithLib(
        "VERSION 5.00\nBegin VB.Form F\nEnd\nAttribute VB_Name = \"F\"\nDim b As Box\nSub Go()\n    b.Secret\n"
        "    x = Round\nEnd Sub\n");
    Put({"f.go", "lib", "lib.box"});
    EXPECT_EQ(Grey(), "f.go > lib.box; f.go > lib; f.go > lib");
    EXPECT_EQ(IncomingOf("lib"), "");
    EXPECT_EQ(IncomingOf("lib.box"), "!f.go > lib.box");
}

TEST_F(Connectors, PairsCountEachCallOnceAndStandWhereTheirLastOneIs) {
    Analyse(ReadProject(
        {{"M.bas", "Sub Go(thing As Object)\nthing.Name\nHelp\nthing.Run\nHelp\nEnd Sub\nSub Help()\nEnd Sub\n"},
         {"C.cls", "VERSION 1.0 CLASS\nAttribute VB_Name = \"C\"\nSub Run()\nEnd Sub\nSub Name()\nEnd Sub\n"}}));
    Put({"m.go", "c", "m.help", "m"});
    graph.SetActive(1);
    const std::vector<GraphPair> pairs = GraphPairs(GraphVerbindungen(graph));
    std::string dump;
    for (const GraphPair& pair : pairs) {
        dump += pair.from->CodePath + ">" + pair.to->CodePath + " " + std::to_string(pair.certain) + "," +
                std::to_string(pair.possible) + "," + std::to_string(pair.uses) + (pair.IsPossible() ? "?" : "") +
                (pair.Highlight ? "!" : "") + ":";
        for (const CallLine& line : CallLinesOf(pair))
            dump += " " + std::to_string(line.line);
        dump += "; ";
    }
    EXPECT_EQ(dump,
              "m>c 0,2,0?: 2 4; m>m.help 2,0,0: 3 5; m>m 2,0,0: 3 5; m.go>c 0,2,0?!: 2 4; m.go>m.help 2,0,0!: 3 5; "
              "m.go>m 2,0,0!: 3 5; ");
    EXPECT_EQ(ConnectedTowards(pairs, At("m.go"), GraphDirection::Down), &At("c"));
    EXPECT_EQ(ConnectedTowards(pairs, At("m"), GraphDirection::Down), nullptr);
}

}  // namespace
