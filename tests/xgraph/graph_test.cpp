#include "xgraph/graph.h"

#include <cmath>

#include "graph_support.h"
#include "project/project_file.h"
#include "project/replace.h"
#include "support/library_project.h"
#include "xgraph/steps.h"

namespace {

constexpr const char* kThree = "Sub Go()\nEnd Sub\nSub Stay()\nEnd Sub\nSub Turn()\nEnd Sub\n";

class ThreeSymbols : public Graphs {
protected:
    ThreeSymbols() {
        ReadProject({{"M.bas", kThree}});
        Put({"m.go", "m.stay", "m.turn"});
    }
};

TEST_F(Graphs, ASymbolHasCaptionsPictureAndSize) {
    ReadProject({{"Mod.bas", kThree}});
    Put({"mod", "mod.stay"});
    const ctlGraphObj& modul = At("mod");
    EXPECT_EQ(modul.MyModul + "|" + modul.MyName, "Mod|Mod");
    const ctlGraphObj& stay = At("mod.stay");
    EXPECT_EQ(stay.MyModul + "|" + stay.MyName, "Mod|Stay");
    EXPECT_EQ(stay.Frame(), (GraphRect{0, 1000, 600, 600}));
    EXPECT_EQ(stay.layout.image, (GraphRect{180, 0, 240, 240}));
    EXPECT_EQ(stay.layout.modul, (GraphRect{75, 240, 450, 180}));
    EXPECT_EQ(stay.layout.name, (GraphRect{0, 420, 600, 180}));
    EXPECT_EQ(stay.image, "procedure");
    Analyse();
    graph.GraphSymbolsRefresh();
    EXPECT_EQ(stay.image, "ProcedureDeath");
}

TEST_F(Graphs, CaptionsOfWhatALibraryContains) {
    ReadProjectWithLib("VERSION 5.00\nBegin VB.Form F\nEnd\nAttribute VB_Name = \"F\"\n");
    Put({"lib", "lib.box", "lib.box.secret", "lib.shape [enum]"});
    std::string captions;
    for (const auto& symbol : graph.GraphObjects())
        captions += symbol->MyModul + "|" + symbol->MyName + " ";
    EXPECT_EQ(captions, "|Lib Lib|Box Box|Secret Lib|Shape ");
}

TEST_F(Graphs, AnObjectHasOneSymbolAndIndexesOnlyRise) {
    ReadProject({{"M.bas", kThree}});
    Put({"m.go", "m.stay"});
    EXPECT_EQ(graph.GraphObjCreate(&ObjectAt("m.go"), 5, 5, false), nullptr);
    EXPECT_EQ(graph.GraphObjCreate(nullptr, 5, 5, false), nullptr);
    EXPECT_EQ(graph.Drop(nullptr, {}), nullptr);
    EXPECT_EQ(graph.Drop(&ObjectAt("m.go"), {5, 5}), &At("m.go"));
    EXPECT_EQ(At("m.go").Left, 0) << "it stays where it was";
    EXPECT_EQ(graph.Active(), &At("m.go"));
    graph.Select(2, true);
    EXPECT_EQ(graph.GraphDeleteSelected(), 1);
    EXPECT_EQ(graph.GraphObj(ObjectAt("m.stay")), nullptr);
    EXPECT_EQ(graph.Drop(&ObjectAt("m.stay"), {})->Index, 3);
    EXPECT_GT(At("m.stay").zOrder, At("m.go").zOrder);
}

TEST_F(ThreeSymbols, ClicksSelectAndCtrlAddsOrRemoves) {
    graph.GraphObj_MouseDown(1, 0);
    graph.GraphObj_MouseDown(2, 0);
    EXPECT_EQ(Symbols(), "m.go m.stay* m.turn");
    graph.GraphObj_MouseDown(1, kCtrl);
    EXPECT_EQ(Symbols(), "m.go* m.stay* m.turn");
    EXPECT_THAT(graph.GraphSelected(), ElementsAre(&At("m.stay"), &At("m.go"))) << "in the order of the clicks";
    graph.GraphObj_MouseDown(2, 0);
    EXPECT_EQ(Symbols(), "m.go* m.stay* m.turn") << "so that both can be dragged";
    EXPECT_EQ(graph.Active(), &At("m.stay"));
    graph.GraphObj_MouseDown(2, kCtrl);
    EXPECT_EQ(Symbols(), "m.go* m.stay m.turn");
    graph.GraphObj_MouseDown(3, kCtrl | 1);
    EXPECT_EQ(Symbols(), "m.go m.stay m.turn*") << "only Ctrl alone is Ctrl";
    graph.GraphSelectAll();
    EXPECT_EQ(graph.GraphSelected().size(), 3U);
}

TEST_F(ThreeSymbols, AFrameSelectsWhatIsWhollyInside) {
    graph.SelectInside(RectBetween({600, 1600}, {0, 0}));
    EXPECT_EQ(Symbols(), "m.go* m.stay* m.turn");
    graph.SelectInside(RectBetween({0, 1}, {9000, 1600}));
    EXPECT_EQ(Symbols(), "m.go m.stay* m.turn");
    graph.SelectInside({});
    EXPECT_EQ(Symbols(), "m.go m.stay m.turn");
}

TEST_F(ThreeSymbols, SelectedSymbolsMoveTogetherAndTheCanvasGrows) {
    graph.GraphObj_MouseDown(1, 0);
    graph.GraphObj_MouseDown(3, kCtrl);
    EXPECT_FALSE(graph.MoveSelected(0, 0));
    EXPECT_TRUE(graph.MoveSelected(-30, 59000.5));
    EXPECT_EQ(At("m.turn").Frame(), (GraphRect{-30, 61000.5, 600, 600}));
    EXPECT_EQ(At("m.stay").Top, 1000);
    EXPECT_EQ(graph.Canvas(), (GraphRect{-30, 0, 60030, 61600.5}));
    graph.MoveInto({100, 1200, 9000, 7000});
    EXPECT_EQ(At("m.go").Frame(), (GraphRect{100, 7600, 300, 600}));
    EXPECT_EQ(At("m.stay").Top, 1200);
}

TEST_F(Graphs, SymbolsStayWhereTheirObjectsComeAgain) {
    ReadProject({{"M.bas", kThree}, {"N.bas", "Sub Here()\nEnd Sub\n"}});
    Put({"m", "m.go", "n.here", "m.stay", "m.turn"});
    graph.GraphSelectAll();
    graph.SetActive(2);
    const std::vector<SymbolPlace> before = graph.Places();
    // The second is another kind of object now, the third has gone, and the first is spelled differently.
    ProjectFiles().WriteWhole("p\\M.bas",
                              "Attribute VB_Name = \"M\"\r\nPublic Stay\r\nPrivate Sub GO()\r\nEnd Sub\r\n");
    Replace(*gProjekt, {{0, ModuleSource{ModuleKind::Module, "p\\M.bas"}}});
    EXPECT_EQ(Symbols(), "m* m.go* n.here*");
    EXPECT_EQ(graph.GraphSelected().size(), 3U);
    ASSERT_TRUE(graph.Active());
    EXPECT_EQ(graph.Active()->MyName, "GO");
    for (const char* path : {"m", "m.go", "n.here"})
        EXPECT_EQ(graph.GraphObj(ObjectAt(path)), &At(path));
    EXPECT_THAT(graph.Places(), ElementsAre(before[0], before[1], before[2]));
    clsProjekt other(ProjectFiles());
    other.FullPath = gProjekt->FullPath;
    Projekt_Laden(other);
    graph.ReplaceProject(other);
    EXPECT_EQ(Symbols(), "m* m.go* n.here*");
    EXPECT_EQ(graph.Active()->object, other.GetObjectFromCodePath("m.go"));
    graph.SetProject(nullptr);
    EXPECT_EQ(Symbols(), "");
    { XGraph(sizes).SetProject(gProjekt.get()); }
    Replace(*gProjekt, {{0, {}}});  // the listeners of both graphs have nothing to do any more
}

TEST_F(Graphs, PlacesBringBackADiagram) {
    ReadProject({{"M.bas", kThree}});
    Put({"m.go", "m.stay"});
    graph.GraphSelectAll();
    const std::vector<SymbolPlace> before = graph.Places();
    EXPECT_THAT(before, ElementsAre(SymbolPlace{"m.go", 0, 0}, SymbolPlace{"m.stay", 0, 1000}));
    graph.SetPlaces({{"m.turn", 1.5, 2}, {"m.gone", 3, 3}, {"m.stay", 7, 8}, {"m.turn", 9, 9}});
    EXPECT_EQ(Symbols(), "m.turn m.stay*");
    EXPECT_EQ(At("m.turn").Left, 1.5) << "the first place counts";
    EXPECT_EQ(At("m.stay").Index, 2) << "it was there all the time";
    graph.SetPlaces(before);
    EXPECT_EQ(graph.Places(), before);
}

TEST_F(Graphs, PlacesFarOffBecomeTheNearestOnes) {
    ReadProject({{"M.bas", kThree}});
    graph.SetProject(gProjekt.get());
    graph.SetPlaces({{"m.go", HUGE_VAL, -1e30}, {"m.stay", 100000, -500}, {"m.turn", NAN, NAN}});
    EXPECT_EQ(graph.Canvas(), (GraphRect{0, -500, 100600, 60500}));
    EXPECT_EQ(At("m.go").Frame(), (GraphRect{100300, -500, 300, 600}));
    EXPECT_EQ(At("m.turn").Left, 0);
    EXPECT_EQ(At("m.turn").Top, -500);
}

TEST_F(ThreeSymbols, KeysWalkFromSymbolToSymbol) {
    const ctlGraphObj& go = At("m.go");
    graph.MoveTo(3, {900, 10});
    EXPECT_EQ(SymbolTowards(graph, go, GraphDirection::Down), &At("m.stay"));
    EXPECT_EQ(SymbolTowards(graph, go, GraphDirection::Right), &At("m.turn")) << "the other one is far aside";
    EXPECT_EQ(SymbolTowards(graph, go, GraphDirection::Left), nullptr);
    EXPECT_EQ(NextSymbol(graph, &At("m.turn"), true), &go);
    EXPECT_EQ(NextSymbol(graph, &go, false), &At("m.turn"));
    EXPECT_EQ(NextSymbol(graph, nullptr, true), &go);
    EXPECT_EQ(NextSymbol(graph, nullptr, false), &At("m.turn"));
}

TEST_F(Graphs, SizesWithoutAScreen) {
    const FixedSymbolSizes fixed;
    EXPECT_EQ(fixed.LabelPixels("", SymbolLabel::Name), (GraphSize{0, 11}));
    EXPECT_EQ(fixed.LabelPixels("iii", SymbolLabel::Modul), (GraphSize{6, 11}));
    EXPECT_EQ(fixed.LabelPixels("iii", SymbolLabel::Name), (GraphSize{8, 11}));
    EXPECT_EQ(fixed.LabelPixels("\xE4~", SymbolLabel::Modul), (GraphSize{11, 11}));
}

}  // namespace
