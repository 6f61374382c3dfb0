#include "xgraph/layout.h"

#include <random>

#include "graph_support.h"
#include "xgraph/module_frames.h"

namespace {

class Layouts : public Graphs {
protected:
    Layouts() {
        Analyse(ReadProject(
            {{"M.bas", "Sub A()\nA: B: Far\nEnd Sub\nSub B()\nEnd Sub\n"}, {"N.bas", "Sub Far()\nEnd Sub\n"}}));
        Put({"m.a", "m.b", "n.far"});
    }
    static bool Has(const std::string& text, std::string_view part) { return text.find(part) != std::string::npos; }
};

TEST_F(Layouts, TheInputNamesSizesAndConnectors) {
    const std::string all = LayoutInput(graph, SymbolsToArrange(graph), {LayoutSide::Left, false});
    EXPECT_TRUE(Has(all, "rankdir=\"LR\"")) << all;
    EXPECT_TRUE(Has(all, "1[width=0.1667,height=0.4167]")) << all;
    EXPECT_TRUE(Has(all, "0->1\n") && Has(all, "0->2\n")) << all;
    EXPECT_FALSE(Has(all, "0->0") || Has(all, "cluster")) << all;
    const std::string modules = LayoutInput(graph, SymbolsToArrange(graph), {LayoutSide::Top, true});
    EXPECT_TRUE(Has(modules, "cluster0{0;1;}") && Has(modules, "cluster1{2;}")) << modules;
    EXPECT_FALSE(Has(modules, "0->2")) << "only inside of modules";
    graph.Select(At("m.b").Index, true);
    EXPECT_EQ(SymbolsToArrange(graph).size(), 3U) << "one alone is no selection to arrange";
    graph.Select(At("n.far").Index, true);
    EXPECT_EQ(SymbolsToArrange(graph), (std::vector{&At("m.b"), &At("n.far")}));
}

TEST_F(Layouts, ADenseDiagramIsThinnedButNobodyLosesAllConnectors) {
    std::string code;
    constexpr int kProcs = 40;
    for (int nr = 0; nr < kProcs; ++nr) {
        code += "Sub P" + std::to_string(nr) + "()\n";
        for (int other = 0; other < kProcs; ++other)
            code += "P" + std::to_string(other) + ": ";
        code += "\nEnd Sub\n";
    }
    Analyse(ReadProject({{"M.bas", code}}));
    graph.SetProject(gProjekt.get());
    for (int nr = 0; nr < kProcs; ++nr)
        graph.GraphObjCreate(&ObjectAt("m.p" + std::to_string(nr)), 0, 0, false);
    const std::string text = LayoutInput(graph, SymbolsToArrange(graph), {});
    EXPECT_EQ(std::count(text.begin(), text.end(), '>'), 300);
    for (int nr = 0; nr < kProcs; ++nr)
        EXPECT_TRUE(Has(text, '\n' + std::to_string(nr) + "->") || Has(text, "->" + std::to_string(nr) + '\n')) << nr;
}

constexpr std::string_view kOutput =
    "graph 1 3 2\nnode 0 1.5 1.75 0.5 0.25 \"\" solid box black lightgrey\nnode 1 0.5 0.25 0.5 0.25 \"\" solid box "
    "black "
    "lightgrey\nedge 0 1 4 1 2 3 4 solid black\nstop\n";

TEST_F(Layouts, TheOutputIsReadOrRefusedAsAWhole) {
    const auto centres = ReadLayout(kOutput, 2);
    ASSERT_TRUE(centres);
    EXPECT_EQ(*centres, (std::vector<GraphPoint>{{2160, -2520}, {720, -360}}));
    EXPECT_FALSE(ReadLayout(kOutput, 3)) << "one is missing";
    EXPECT_FALSE(ReadLayout(kOutput, 1)) << "one too many";
    EXPECT_FALSE(ReadLayout("node 0 nan 0\n", 1) || ReadLayout("node 0 1e300 0\n", 1) || ReadLayout("node 0 1\n", 1));
    EXPECT_FALSE(ReadLayout("node -1 0 0\nnode 0 0 0\n", 1) || ReadLayout("node 0x 0 0\n", 1));
    EXPECT_TRUE(ReadLayout("", 0));
    std::mt19937 random(7);
    for (int run = 0; run < 3000; ++run) {
        std::string torn(kOutput.substr(0, random() % kOutput.size()));
        for (unsigned changes = random() % 4; changes > 0 && !torn.empty(); --changes)
            torn[random() % torn.size()] = static_cast<char>(random());
        for (const GraphPoint centre : ReadLayout(torn, 2).value_or(std::vector<GraphPoint>()))
            ASSERT_TRUE(std::abs(centre.x) <= XGraph::FarthestTwips(2)) << torn;
    }
}

TEST_F(Layouts, TheBlockKeepsItsCornerAndStaysClearOfOthers) {
    const std::vector<const ctlGraphObj*> two{&At("m.a"), &At("m.b")};
    const std::vector<GraphPoint> side{{5000, 700}, {9000, 700}};
    ArrangeSymbols(graph, two, side);
    EXPECT_EQ(At("m.a").Frame().left, 0);
    EXPECT_EQ(At("m.a").Top, 0);
    EXPECT_EQ(At("m.b").Left, 4000);
    EXPECT_EQ(At("m.b").Top, 0);
    EXPECT_EQ(At("n.far").Top, 2000);
    const std::vector<GraphPoint> tall{{0, 0}, {0, 2100}};
    ArrangeSymbols(graph, two, tall);
    EXPECT_EQ(At("m.b").Top - At("m.a").Top, 2100);
    EXPECT_GE(At("m.a").Left, At("n.far").Frame().Right()) << "beside the one that is in the way";
    EXPECT_EQ(At("n.far").Left, 0);
}

TEST_F(Layouts, FramesAreAroundTheSymbolsOfEachModule) {
    const std::vector<ModuleFrame> frames = ModuleFrames(graph);
    ASSERT_EQ(frames.size(), 2U);
    EXPECT_EQ(frames[0].modul, "M");
    EXPECT_TRUE(frames[0].rect.Holds(At("m.a").Frame()) && frames[0].rect.Holds(At("m.b").Frame()));
    EXPECT_FALSE(frames[0].rect.Holds(At("n.far").Frame()));
}

}  // namespace
