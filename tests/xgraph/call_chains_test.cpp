#include "xgraph/call_chains.h"

#include <cmath>

#include "graph_support.h"
#include "xgraph/placement.h"

namespace {

class Chains : public Graphs {
protected:
    /// Runs a chain for a symbol and dumps what it created: "m.b 0,1200; m.c 495,1200".
    std::string Created(std::string_view path, GraphChain chain, const ChainOptions& options = {}) {
        const std::size_t before = graph.GraphObjects().size();
        const ctlGraphObj& start = At(path);
        const int count = CountGraphChain(graph, start, chain, options);
        outcome = RunGraphChain(graph, start, chain, options);
        EXPECT_TRUE(gAbort || outcome.created == count);
        std::string dump;
        for (std::size_t nr = before; nr < graph.GraphObjects().size(); ++nr) {
            const ctlGraphObj& symbol = *graph.GraphObjects()[nr];
            char place[60];
            std::snprintf(place, sizeof place, " %g,%g", symbol.Left, symbol.Top);
            dump.append(dump.empty() ? "" : "; ").append(symbol.CodePath).append(place);
        }
        return dump;
    }
    ChainOutcome outcome;
};

TEST_F(Chains, CalleesStandBelowAndCallersAbove) {
    Analyse(ReadProject({{"M.bas",
                          "Sub A()\nB: C: B: A\nEnd Sub\nSub B()\nD\nEnd Sub\nSub C()\nD: A\nEnd Sub\n"
                          "Sub D()\nE\nEnd Sub\nSub E()\nEnd Sub\n"}}));
    Put({"m.a"});
    EXPECT_EQ(Created("m.a", GraphChain::Calls), "m.b 0,1200; m.c 435,1200");
    graph.Clear();
    Put({"m.a"});
    EXPECT_EQ(Created("m.a", GraphChain::CallsAll), "m.b 0,1200; m.c 435,1200; m.d 0,2400; m.e 0,3600");
    graph.Clear();
    Put({"m.d"});
    EXPECT_EQ(Created("m.d", GraphChain::CalledByAll), "m.b 0,-1200; m.c 435,-1200; m.a 0,-2400");
    EXPECT_EQ(Created("m.d", GraphChain::CalledByAll), "");
    graph.Clear();
    Put({"m"});
    EXPECT_EQ(Created("m", GraphChain::Calls), "") << "no procedure";
}

TEST_F(Chains, TheFilterChoosesWhatCalleesAreShown) {
    Analyse(ReadProject({{"M.bas", R"(
        Public total As Long
        Type Pair
            First As Long
        End Type
        Enum Colour
            Red
        End Enum
        Dim two As Pair
        Sub Go(ByVal times As Long)
            Dim unused, local
            local = times
            total = Red
            two.First = Size
            Help
        End Sub
        Sub Help()
            Dim other
            other = total
        End Sub
        Property Get Size() As Long
        End Property
    )"}}));
    const auto shown = [&](ChainObjectType type, GraphChain chain = GraphChain::CallsAll) {
        graph.Clear();
        Put({"m.go"});
        Created("m.go", chain, {type});
        return Symbols();
    };
    EXPECT_EQ(shown(ChainObjectType::Procedure), "m.go m.help");
    EXPECT_EQ(shown(ChainObjectType::Variable), "m.go m.total m.two m.go.times m.go.local");
    EXPECT_EQ(shown(ChainObjectType::Type), "m.go m.pair.first");
    EXPECT_EQ(shown(ChainObjectType::Enum), "m.go m.colour.red");
    EXPECT_EQ(shown(ChainObjectType::Module), "m.go");
    EXPECT_EQ(shown(ChainObjectType::All, GraphChain::Calls),
              "m.go m.total m.colour.red m.two m.pair.first m.size [get] m.help m.go.times m.go.local");
}

TEST_F(Chains, ACancelOrALimitLeavesWhatWasMade) {
    Analyse(
        ReadProject({{"M.bas", "Sub A()\nB\nC\nD\nEnd Sub\nSub B()\nEnd Sub\nSub C()\nEnd Sub\nSub D()\nEnd Sub\n"}}));
    Put({"m.a"});
    EXPECT_EQ(Created("m.a", GraphChain::CallsAll, {ChainObjectType::All, 1}), "m.b 0,1200");
    EXPECT_FALSE(outcome.isWhole);
    const RecordingProgress progress("2 + ");
    EXPECT_FALSE(RunOperation([&] { Created("m.a", GraphChain::CallsAll); }));
    EXPECT_EQ(progress.recorded, "2 + ");
    EXPECT_EQ(Symbols(), "m.a m.b m.c");
}

TEST_F(Chains, SeveralProceduresAreOneRun) {
    Analyse(ReadProject(
        {{"M.bas",
          "Sub A()\nC\nEnd Sub\nSub B()\nDim local\nlocal = 1\nD\nEnd Sub\nSub C()\nB\nEnd Sub\nSub D()\nEnd "
          "Sub\n"}}));
    Put({"m.a", "m.b"});
    const std::vector<const ctlGraphObj*> starts{&At("m.a"), &At("m.b")};
    clsProzedur* const procedures[] = {static_cast<clsProzedur*>(starts[0]->object),
                                       static_cast<clsProzedur*>(starts[1]->object)};
    const ChainOptions all{ChainObjectType::All};
    EXPECT_EQ(CountGraphChain(graph, procedures, GraphChain::CallsAll, all), 3);
    EXPECT_EQ(RunGraphChain(graph, starts, GraphChain::CallsAll, {ChainObjectType::All, 1}).created, 1);
    EXPECT_FALSE(RunGraphChain(graph, starts, GraphChain::CallsAll, {ChainObjectType::All, 0}).isWhole);
    EXPECT_EQ(RunGraphChain(graph, starts, GraphChain::CallsAll, all).created, 2);
    EXPECT_EQ(Symbols(), "m.a m.b m.c m.d m.b.local") << "the locals of each start";
}

TEST_F(Chains, RowsEndAtTheEdgeThatTheCanvasHadAtFirst) {
    const std::string wide(60, 'w');
    Analyse(ReadProject({{"M.bas", "Sub A()\nB: " + wide + ": C\nEnd Sub\nSub B()\nEnd Sub\nSub " + wide +
                                       "()\nEnd Sub\nSub C()\nEnd Sub\n"}}));
    graph.SetProject(gProjekt.get());
    graph.GraphObjCreate(&ObjectAt("m.a"), 59000, 0, false);
    EXPECT_EQ(Created("m.a", GraphChain::Calls), "m.b 59000,1200; m." + wide + " 59435,1200; m.c 51000,2400");
    EXPECT_EQ(graph.Canvas().Right(), 68435) << "it grew, but for the next command";
}

class Places : public Chains {
protected:
    // Symbols of 300 by 600 twips.
    void PutAt(std::initializer_list<GraphPoint> places) {
        std::string code;
        for (std::size_t nr = 0; nr < places.size(); ++nr)
            code.append("Sub P").append(std::to_string(nr)).append("()\nEnd Sub\n");
        ReadProject({{"M.bas", code}});
        graph.SetProject(gProjekt.get());
        for (const GraphPoint place : places)
            graph.GraphObjCreate(&ObjectAt("m.p" + std::to_string(graph.GraphObjects().size())), place.x, place.y,
                                 false);
    }
    static constexpr GraphRect kRef{0, 0, 300, 600};
};

TEST_F(Places, TheSearchGoesOnBehindSymbolsAndTurnsAtTheEdge) {
    PutAt({{0, 0}, {600, 500}, {59500, 0}, {59200, 1200}, {59000, 3000}, {59700, 3000}});
    Placement placement(graph);
    EXPECT_EQ(placement.Graph_GetNextPlace_To_X({5000, 0}, kRef), (GraphPoint{5000, 0}));
    EXPECT_EQ(placement.Graph_GetNextPlace_To_X({0, 0}, kRef), (GraphPoint{1095, 0})) << "its lower corner was taken";
    EXPECT_EQ(placement.Graph_GetNextPlace_To_X({59400, 0}, kRef), (GraphPoint{59700, 1200}));
    EXPECT_EQ(placement.GraphPlaceDirX, -1);
    EXPECT_EQ(placement.Graph_GetNextPlace_To_X({59600, 0}, kRef), (GraphPoint{59005, 0})) << "to the left now";
    EXPECT_EQ(placement.Graph_GetNextPlace_To_X({100, 0}, kRef), (GraphPoint{0, 1200}));
    EXPECT_EQ(placement.GraphPlaceDirX, 1);
    placement.GraphPlaceDirY = -1;
    EXPECT_EQ(placement.Graph_GetNextPlace_To_X({59400, 0}, kRef), (GraphPoint{59700, -1200}));
    EXPECT_EQ(placement.Graph_GetNextPlace_To_X({70000, 0}, {0, 0, 70000, 600}), (GraphPoint{70000, 0}))
        << "too wide for any row";
}

TEST_F(Places, TheIndexAnswersLikeAWalkOverAllSymbols) {
    PutAt({{0, 0}, {250, 300}, {1900, 1900}, {-700, -2500}, {100000, 3}, {1990, 1500}, {260, 310}});
    const SymbolIndex index(graph);
    int hits = 0;
    for (double x = -1000; x < 2500; x += 50)
        for (double y = -3000; y < 2600; y += 50) {
            const ctlGraphObj* last = nullptr;
            for (const auto& symbol : graph.GraphObjects())
                if (symbol->Frame().Holds(GraphPoint{x, y}))
                    last = symbol.get();
            ASSERT_EQ(index.Graph_PlaceOccupate({x, y}), last) << x << " " << y;
            hits += last != nullptr;
        }
    EXPECT_GT(hits, 300);
}

TEST_F(Places, NearAPoint) {
    PutAt({{1000, 1000}});
    EXPECT_EQ(WholeFreePlace(graph, {0, 0, 10000, 10000}, {300, 600}), (GraphPoint{4850, 4700}));
    EXPECT_EQ(WholeFreePlace(graph, {0, 0, 2300, 2600}, {300, 600}), (GraphPoint{1495, 1000}));
}

}  // namespace
