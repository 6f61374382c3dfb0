#include "display/dependency_trees.h"

#include "display/baum.h"
#include "display/node_objects.h"
#include "display/tree_checks.h"
#include "support/baum_dump.h"
#include "support/project_test.h"

namespace {

constexpr const char* kMain = R"(
    Public Type Pair
        first As Kind
    End Type
    Public Enum Kind
        kA
        kB
    End Enum
    Private mBox As cBox, mPair As Pair
    Public gCount As Long
    Sub Main()
        Dim p As Pair, late
        p.first = kA: Help p.first: Help p.first
        mBox.Rate = gCount
        frmX.Show
        late.Go
    End Sub
    Private Sub Help(ByVal x As Kind)
        Dim own As Long
        own = x
    End Sub
    Sub Lost()
        Help 1
    End Sub
)";
constexpr const char* kBox = "Public Property Let Rate(v)\n  gCount = v\nEnd Property\nPublic Sub Go(): End Sub";
constexpr const char* kForm =
    "Begin VB.Form frmX\nBegin VB.Timer tick\nEnd\nEnd\nPrivate Sub tick_Timer()\n  tick.Enabled = False\n  Main\nEnd "
    "Sub";

class DependencyTrees : public ProgramState {
protected:
    DependencyTrees() { Analyse(ReadProject({{"mMain.bas", kMain}, {"cBox.cls", kBox}, {"frmX.frm", kForm}})); }
    static const CodeObject& Object(std::string_view path) {
        return path.starts_with("mmain.help.") ? *ProcedureAt("mmain.help").MyVars.Item(path.substr(11))
                                               : ObjectAt(path);
    }
    static std::string Shown(const Baum& tree) {
        return KeysWhere(tree, [](const BaumNode& node) { return !node.Child(); });
    }
    // Content of the trees for an object: "callers|possible callers|callees|possible callees".
    static std::string Around(std::string_view path) {
        std::string text;
        for (const bool callers : {true, false})
            for (const bool mayBe : {false, true}) {
                Baum tree;
                (callers ? Show_Dependencies_AllCalledBy : Show_Dependencies_AllCalls)(*gProjekt, {}, &Object(path),
                                                                                       tree, mayBe);
                text += (text.empty() && callers && !mayBe ? "" : "|") + Shown(tree);
            }
        return text;
    }
    // The enabled buttons, one letter each, in the same order.
    static std::string Buttons(std::string_view path) {
        const DependencyButtons buttons = Activate_Dependencies(*gProjekt, &Object(path));
        std::string text;
        text += buttons.CalledByReally ? "B" : "";
        text += buttons.CalledByMaybe ? "b" : "";
        text += buttons.CallsReally ? "C" : "";
        text += buttons.CallsMaybe ? "c" : "";
        return text;
    }
};

}  // namespace

TEST_F(DependencyTrees, EveryClassOfObjectShowsItsNeighbours) {
    using Case = std::tuple<const char*, const char*, const char*>;
    for (const auto& [path, around, buttons] : {
             // Uses are shown among the calls, but do not enable the button of the calls.
             Case{"mmain.help", "mmain.lost mmain.main||mmain.kind [enum]|", "B"},
             Case{"mmain.main",
                  "frmx.tick_timer||mmain.pair.first mmain.kind.ka mmain.help mmain.mbox mmain.gcount "
                  "cbox.rate [let] frmx|cbox.go",
                  "BCc"},
             Case{"cbox.go", "|mmain.main||", "b"},
             Case{"cbox.rate [let]", "mmain.main||mmain.gcount|", "BC"},
             Case{"mmain.gcount", "mmain.main cbox.rate [let]|||", "B"},
             Case{"mmain.help.x", "mmain.lost mmain.main||mmain.kind [enum]|", "B"},
             Case{"frmx.tick", "frmx.tick_timer|||", "B"},
             // Types and modules show the neighbours of their parts.
             Case{"mmain.kind [enum]", "mmain.main mmain.help|||", "B"},
             Case{"mmain.pair [type]", "mmain.main|||", "B"},
             Case{"cbox", "mmain.main|mmain.main|mmain.gcount|", "BbC"},
             Case{"frmx", "mmain.main||frmx.tick mmain.main|", "BC"},
         }) {
        SCOPED_TRACE(path);
        EXPECT_EQ(Around(path), around);
        EXPECT_EQ(Buttons(path), buttons);
    }
    EXPECT_EQ(Activate_Dependencies(*gProjekt, nullptr), DependencyButtons());
}

TEST_F(DependencyTrees, LayoutIsThatOfTheProjectTree) {
    Baum callers;
    Show_Dependencies_AllCalledBy(*gProjekt, {}, &Object("mmain.help"), callers, false);
    EXPECT_EQ(DumpBaum(callers), R"(MODULE [OrdnerZu] bold
  mMain [module]
    Public Sub... [procedure] bold
      Lost() [ProcedureDeath] grey
      Main() [procedure]
)");
    EXPECT_TRUE(callers.Item("mmain")->Expanded()) << "modules are opened for a procedure";
    EXPECT_EQ(callers.Item("mmain.public_sub[]", NodeKind::Group)->ForeColor(), NodeColour::PublicGroup);
    Show_Dependencies_AllCalledBy(*gProjekt, {}, &Object("mmain"), callers, false);
    EXPECT_FALSE(callers.Item("frmx")->Expanded()) << "and folded for a module";
    EXPECT_TRUE(callers.Item("form", NodeKind::Root)->Expanded());
    EXPECT_EQ(callers.Item("frmx.private_sub[]", NodeKind::Group)->ForeColor(), NodeColour::PrivateGroup);
}

TEST_F(DependencyTrees, TheGroupLeavesOutWhatIsChecked) {
    Baum callers;
    Baum calls;
    const auto group = [&](std::initializer_list<const char*> paths) {
        CheckedObjects checked;
        for (const char* path : paths)
            checked.Add(ObjectAt(path));
        Show_Dependencies_Group(*gProjekt, checked, callers, calls, false, false);
        return Shown(callers) + "|" + Shown(calls);
    };
    EXPECT_EQ(group({"cbox"}), "mmain.main|mmain.gcount");
    EXPECT_EQ(group({"cbox", "mmain"}), "frmx.tick_timer|frmx");
    EXPECT_EQ(group({"mmain.help", "mmain.main"}),
              "mmain.lost frmx.tick_timer|mmain.kind.ka mmain.pair.first mmain.mbox mmain.gcount cbox.rate [let] frmx");
    EXPECT_EQ(group({}), "|");
}

TEST_F(DependencyTrees, CallersOfCallersUnfoldUntilTheyRepeat) {
    Analyse(ReadProject({{"M.bas",
                          "Sub A()\n  B\nEnd Sub\nSub B()\n  C\nEnd Sub\nSub C()\n  A\n  B\n  late.B\nEnd Sub\n"
                          "Sub Start()\n  A\nEnd Sub"}}));
    Baum tree;
    const CodeObject* current = &ObjectAt("m.c");
    const auto texts = [&](std::string_view key, bool callers) {
        BaumNode& node = *tree.Item(key);
        EXPECT_TRUE(node.Unfolds());
        Unfold(*gProjekt, {}, current, tree, node, {callers, false});
        std::string text;
        for (const BaumNode* below : node.ChildNodes()) {
            EXPECT_EQ(ObjectPathOf(below->Id()), OwnKeyOf(below->Key()));
            text.append(below->Text()).append(below->Unfolds() ? "+ " : " ");
        }
        return text;
    };
    Show_Dependencies_AllCalledBy(*gProjekt, {}, &ObjectAt("m.c"), tree, false);
    EXPECT_EQ(texts("m.b", true), "M.A()+ M.C() () ") << "the current object stands above, too";
    EXPECT_EQ(texts("m.b\nm.a", true), "M.C() () M.Start() ");
    EXPECT_EQ(ObjectOfNode(*gProjekt, tree.Item("m.b\nm.a\nm.start")->Id()), &ObjectAt("m.start"));
    current = &ObjectAt("m.start");
    Show_Dependencies_AllCalls(*gProjekt, {}, current, tree, false);
    EXPECT_EQ(texts("m.a", false), "M.B()+ ");
    EXPECT_EQ(texts("m.a\nm.b", false), "M.C()+ ");
    EXPECT_EQ(texts("m.a\nm.b\nm.c", false), "M.A() () M.B() () ");
}

// Roots of a dependency tree are named like their kinds.
TEST_F(DependencyTrees, ModulesNamedLikeKindsHaveNodesOfTheirOwn) {
    const std::string calls = "Sub Go()\n  Target\nEnd Sub\n";
    Analyse(ReadProject(
        {{"Reference.bas", calls}, {"module.bas", calls}, {"Form.cls", calls}, {"M.bas", "Sub Target(): End Sub"}}));
    Baum callers;
    Show_Dependencies_AllCalledBy(*gProjekt, {}, &ObjectAt("m.target"), callers, false);
    for (const char* name : {"reference", "module", "form"}) {
        SCOPED_TRACE(name);
        const BaumNode* modul = callers.Item(name);
        ASSERT_TRUE(modul && modul->Parent());
        EXPECT_EQ(modul->Parent()->Kind(), NodeKind::Root);
        EXPECT_EQ(ObjectOfNode(*gProjekt, modul->Id()), &ModuleOf(name));
        EXPECT_EQ(ObjectOfNode(*gProjekt, modul->Parent()->Id()), nullptr);
    }
    EXPECT_NE(callers.Item("module", NodeKind::Root), callers.Item("module"));
}
