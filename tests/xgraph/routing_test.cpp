#include "xgraph/routing.h"

#include "graph_support.h"
#include "shell/settings.h"

namespace {

class Routing : public Graphs {
protected:
    void SetUp() override {
        Analyse(ReadProject(
            {{"M.bas", "Public x As Long\nSub Go()\n    Help\n    Stay\n    x = 1\nEnd Sub\nSub Help()\nEnd Sub\n"},
             {"N.bas", "Sub Stay()\n    Go\nEnd Sub\n"}}));
        Put({"m.go", "m.help", "n.stay", "m.x"});
    }
    std::vector<GraphPair> Pairs() { return GraphPairs(GraphVerbindungen(graph)); }
};

TEST_F(Routing, AWedgeIsWideAtTheCaller) {
    graph.MoveTo(1, {0, 0});
    graph.MoveTo(2, {4000.4, 0});
    const ConnectorRoute route = GraphVerbindung(At("m.go"), At("m.help"));
    EXPECT_EQ(route.shape, ConnectorShape::Wedge);
    EXPECT_THAT(route.points, ElementsAre(GraphPoint{150, 350}, GraphPoint{150, 250}, GraphPoint{4300, 300}));
    const ConnectorRoute back = GraphVerbindung(At("m.help"), At("m.go"));
    EXPECT_THAT(back.points, ElementsAre(GraphPoint{4300, 250}, GraphPoint{4300, 350}, GraphPoint{150, 300}));
}

TEST_F(Routing, OneCentreGivesOnePointAndVariablesALine) {
    EXPECT_THAT(GraphVerbindung(At("m.go"), At("m.go")).points, testing::Each(GraphPoint{150, 300}));
    const ConnectorRoute route = GraphVerbindung(At("m.go"), At("m.x"));
    EXPECT_EQ(route.shape, ConnectorShape::Line);
    EXPECT_THAT(route.points, ElementsAre(GraphPoint{150, 300}, GraphPoint{120, 3300}, GraphPoint{}));
}

TEST_F(Routing, LookTellsCertaintyAndModules) {
    for (const GraphPair& pair : Pairs())
        EXPECT_EQ(LookOf(pair), ConnectorLook());
    GraphPair pair{&At("m.go"), &At("m.help"), {}};
    pair.Highlight = true;
    pair.certain = 1;
    EXPECT_EQ(LookOf(pair), (ConnectorLook{ConnectorFill::Inside, ConnectorLine::Inside, false}));
    pair.topType = CallType::MayBe;
    EXPECT_EQ(LookOf(pair), (ConnectorLook{ConnectorFill::Possible, ConnectorLine::Inside, false}))
        << "painted last, but not all that there is";
    pair.to = &At("n.stay");
    pair.certain = 0;
    EXPECT_EQ(LookOf(pair), (ConnectorLook{ConnectorFill::Possible, ConnectorLine::Outside, true}));
    pair.topType = CallType::Use;
    EXPECT_EQ(LookOf(pair).fill, ConnectorFill::Outside) << "a use looks like a certain call";
    pair.Highlight = false;
    EXPECT_TRUE(LookOf(pair).isDashed) << "idle ones as well";
    const Settings settings;
    EXPECT_EQ(ColourOf(ConnectorLine::Outside, settings), settings.ColCallOut);
    EXPECT_EQ(ColourOf(ConnectorFill::Outside), 0x9696FA);
}

TEST_F(Routing, TheConnectorPaintedLastIsHit) {
    const std::vector<GraphPair> pairs = Pairs();
    const auto at = [&](GraphPoint point, double tolerance) {
        const std::size_t nr = PairAt(pairs, point, tolerance);
        return nr == kNoPair ? std::string() : pairs[nr].from->CodePath + ">" + pairs[nr].to->CodePath;
    };
    EXPECT_EQ(at({165, 500}, 0), "n.stay>m.go");
    EXPECT_EQ(at({190, 500}, 0), "m.go>n.stay") << "the other one is narrow here";
    EXPECT_EQ(at({135, 1800}, 5), "m.go>m.x") << "a line";
    EXPECT_EQ(at({5000, 500}, 60), "");
    EXPECT_EQ(at({-20, 3000}, 50), "");
}

}  // namespace
