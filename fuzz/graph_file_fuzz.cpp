// The input is the content of a diagram file, opened into a graph of a small project.

#include <cmath>
#include <string>

#include "fuzz_driver.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "xgraph/graph_file.h"

namespace {

// A module M with three subs, made without reading a text.
class SmallProject {
public:
    SmallProject() {
        auto modul = std::make_unique<clsModul>(projekt.TheNames());
        modul->SetName(projekt.TheNames().Intern("M"));
        for (const char* name : {"A", "B", "C"}) {
            auto& prozedur = modul->New<clsProzedur>();
            prozedur.SetName(projekt.TheNames().Intern(name));
            modul->PrivNameSpace.AddObject(prozedur);
            modul->MyProcs.Add(prozedur.LocalKey(), &prozedur);
        }
        std::vector<std::unique_ptr<clsModul>> modules;
        modules.push_back(std::move(modul));
        projekt.SetModules(std::move(modules));
    }

private:
    MemoryFiles files_;

public:
    clsProjekt projekt{files_};
};

void RequireSymbolsOnCanvas(const XGraph& graph) {
    const double farthest = 2 * XGraph::FarthestTwips(graph.GraphObjects().size());
    Require(graph.Canvas().width <= farthest + kCanvasTwips, "a wild place does not blow up the canvas");
    for (const auto& symbol : graph.GraphObjects()) {
        Require(std::isfinite(symbol->Left) && std::isfinite(symbol->Top), "a symbol has a place");
        Require(graph.Canvas().Holds(symbol->Frame()), "a symbol is on the canvas");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const FixedSymbolSizes sizes;
    static SmallProject project;
    static XGraph graph(sizes);
    if (graph.Projekt() == nullptr)
        graph.SetProject(&project.projekt);
    const std::vector<SymbolPlace> before = graph.Places();
    MemoryFiles files{{"a.ovg", std::string(reinterpret_cast<const char*>(data), size)}};
    const GraphOpened opened = GraphOpen(graph, files, "a.ovg");
    if (opened.whyNot != Text::None) {
        Require(graph.Places() == before, "a file that is no diagram changes nothing");
        return 0;
    }
    Require(opened.missing >= 0, "there are no more symbols than places");
    RequireSymbolsOnCanvas(graph);

    const std::vector<SymbolPlace> places = graph.Places();
    Require(GraphSave(graph, files, "b.ovg"), "a file in memory can be written");
    const GraphFile again = ReadGraphFile(files, "b.ovg");
    Require(again.IsGraph() && again.places.size() == places.size(), "what is written is a diagram");
    for (std::size_t nr = 0; nr < places.size(); ++nr) {
        Require(again.places[nr].CodePath == places[nr].CodePath, "a path comes back as it is");
        Require(std::fabs(again.places[nr].Left - places[nr].Left) < 1e-6 &&
                    std::fabs(again.places[nr].Top - places[nr].Top) < 1e-6,
                "a place comes back as it is");
    }
    return 0;
}
