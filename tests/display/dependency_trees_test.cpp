#include "display/dependency_trees.h"

#include <gtest/gtest.h>

#include "calls/driver.h"
#include "display/baum.h"
#include "display/project_tree.h"
#include "display/tree_checks.h"
#include "display/tree_marks.h"
#include "findings/dead_objects.h"
#include "model/clsEnum.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"
#include "project/project_file.h"
#include "shell/settings.h"
#include "support/baum_dump.h"
#include "support/program_state.h"
#include "support/read_project.h"

namespace {

class DependencyTrees : public ProgramState {
protected:
    DependencyTrees() { CheckedObjects_Reset(); }
    ~DependencyTrees() override { CheckedObjects_Reset(); }

    static void Read(std::initializer_list<ProjectFile> files) {
        ReadProject(files);
        Who_Calls_Who(*gProjekt);
        Tote_Untote_Kennzeichnen(*gProjekt);
    }
    static const CodeObject& Object(std::string_view path) {
        const CodeObject* object = gProjekt->GetObjectFromCodePath(path);
        if (path.starts_with("mmain.help."))
            object = static_cast<const clsProzedur&>(Object("mmain.help")).MyVars.Item(path.substr(11));
        if (!object)
            throw std::out_of_range(std::string(path));
        return *object;
    }
    // Keys of the nodes that are objects, in the order of the tree; modules only where nothing stands below them.
    static std::string Shown(const Baum& tree) {
        std::string keys;
        std::vector<BaumNode*> open(tree.Roots().rbegin(), tree.Roots().rend());
        while (!open.empty()) {
            const BaumNode& node = *open.back();
            open.pop_back();
            if (node.Children() == 0)
                keys += (keys.empty() ? "" : " ") + node.Key();
            open.insert(open.end(), node.ChildNodes().rbegin(), node.ChildNodes().rend());
        }
        return keys;
    }
    // What the trees show for an object: "callers|possible callers|callees|possible callees".
    static std::string Around(std::string_view path) {
        std::string text;
        for (const bool callers : {true, false})
            for (const bool mayBe : {false, true}) {
                Baum tree;
                (callers ? Show_Dependencies_AllCalledBy : Show_Dependencies_AllCalls)(*gProjekt, &Object(path), tree,
                                                                                       mayBe, true);
                text += (text.empty() && callers && !mayBe ? "" : "|") + Shown(tree);
            }
        return text;
    }
    // The enabled buttons, a letter each, in the same order.
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

constexpr const char* kMain = R"(Attribute VB_Name = "mMain"
Public Type Pair
    first As Kind
End Type
Public Enum Kind
    kA
    kB
End Enum
Private mBox As cBox
Private mPair As Pair
Public gCount As Long
Sub Main()
    Dim p As Pair
    Dim late
    p.first = kA
    Help p.first
    Help p.first
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
constexpr const char* kBox = R"(Attribute VB_Name = "cBox"
Public Property Let Rate(v As Double)
    gCount = v
End Property
Public Sub Go()
End Sub
)";
constexpr const char* kForm = R"(VERSION 5.00
Begin VB.Form frmX
   Begin VB.Timer tick
   End
End
Attribute VB_Name = "frmX"
Private Sub tick_Timer()
    tick.Enabled = False
    Main
End Sub
)";

}  // namespace

TEST_F(DependencyTrees, EveryClassOfObjectShowsItsNeighbours) {
    Read({{"mMain.bas", kMain}, {"cBox.cls", kBox}, {"frmX.frm", kForm}});
    struct Case {
        const char* path;
        const char* around;
        const char* buttons;
    };
    for (const Case& c : {
             // What it uses is shown among the calls, but is none.
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
         }) {
        SCOPED_TRACE(c.path);
        EXPECT_EQ(Around(c.path), c.around);
        EXPECT_EQ(Buttons(c.path), c.buttons);
    }
    EXPECT_EQ(Activate_Dependencies(*gProjekt, nullptr), DependencyButtons());
}

TEST_F(DependencyTrees, TypesAndModulesShowWhatTheirPartsHave) {
    Read({{"mMain.bas", kMain}, {"cBox.cls", kBox}, {"frmX.frm", kForm}});
    EXPECT_EQ(Around("mmain.kind [enum]"), "mmain.main mmain.help|||");
    EXPECT_EQ(Around("mmain.pair [type]"), "mmain.main|||");
    EXPECT_EQ(Around("cbox"), "mmain.main|mmain.main|mmain.gcount|");
    EXPECT_EQ(Around("frmx"), "mmain.main||frmx.tick mmain.main|");
    EXPECT_EQ(Buttons("cbox"), "BbC");
    EXPECT_EQ(Buttons("mmain.pair [type]"), "B");
}

TEST_F(DependencyTrees, LayoutIsThatOfTheProjectTree) {
    gColPrivates = 0x112233;
    gColPublics = 0x445566;
    Read({{"mMain.bas", kMain}, {"cBox.cls", kBox}, {"frmX.frm", kForm}});
    Baum callers;
    Show_Dependencies_AllCalledBy(*gProjekt, &Object("mmain.help"), callers, false, true);
    EXPECT_EQ(DumpBaum(callers), R"(MODULE [OrdnerZu] bold
  mMain [module]
    Public Sub... [procedure] bold
      Lost() [ProcedureDeath] grey
      Main() [procedure]
)");
    EXPECT_EQ(callers.Roots().front()->Key(), "module");
    EXPECT_TRUE(callers.Item("mmain")->Expanded()) << "modules are opened for a procedure";
    EXPECT_EQ(callers.Item("mmain.public_sub[]")->ForeColor(), 0x445566);
    Show_Dependencies_AllCalledBy(*gProjekt, &Object("mmain"), callers, false, true);
    EXPECT_FALSE(callers.Item("frmx")->Expanded()) << "and folded for a module";
    EXPECT_TRUE(callers.Item("form")->Expanded());
    EXPECT_EQ(callers.Item("frmx.private_sub[]")->ForeColor(), 0x112233);

    Baum tree;
    for (const char* path : {"mmain.help.own", "mmain.kind.kb", "cbox.rate [let]", "frmx.tick"})
        ASSERT_NE(Anzeigen_InBaum(Object(path), tree), nullptr) << path;
    ASSERT_NE(Anzeigen_InBaum(*gProjekt->FormVars.ItemNr(1), tree), nullptr);
    EXPECT_EQ(DumpBaum(tree), R"(MODULE [OrdnerZu] bold
  mMain [module]
    Private Sub... [procedure] bold
      Help() [procedure]
        own [variable]
    Public Enum... [enum] bold
      Kind [enum]
        kB [EnumDeath] grey
CLASS [OrdnerZu] bold
  cBox [class]
    Public Property... [property] bold
      Rate [Let] [property]
FORM [OrdnerZu] bold
  frmX [form]
    Controls... [control] bold
      tick [control]
)");
    // Every node of an object leads to one of the project tree.
    Baum projectTree;
    ProjektStruktur_Anzeigen(*gProjekt, projectTree);
    for (const char* key : {"mmain", "mmain.Private_Sub[]", "cbox.rate [let]", "frmx.Controls[]"})
        EXPECT_TRUE(tree.Exist(key) && projectTree.Exist(key)) << key;
}

TEST_F(DependencyTrees, TheGroupLeavesOutWhatIsChecked) {
    Read({{"mMain.bas", kMain}, {"cBox.cls", kBox}, {"frmX.frm", kForm}});
    Baum callers;
    Baum calls;
    const auto group = [&](std::initializer_list<const char*> paths) {
        CheckedObjects_Reset();
        for (const char* path : paths)
            gCheckedObjects.Add(path, const_cast<CodeObject*>(&Object(path)));
        Show_Dependencies_Group(*gProjekt, callers, calls, false, false);
        return Shown(callers) + "|" + Shown(calls);
    };
    EXPECT_EQ(group({"cbox"}), "mmain.main|mmain.gcount");
    EXPECT_EQ(group({"cbox", "mmain"}), "frmx.tick_timer|frmx");
    EXPECT_EQ(group({"mmain.help", "mmain.main"}),
              "mmain.lost frmx.tick_timer|mmain.kind.ka mmain.pair.first mmain.mbox mmain.gcount cbox.rate [let] frmx");
    EXPECT_EQ(group({}), "|");
}

TEST_F(DependencyTrees, DroppedKeysBringTheirModulesOnce) {
    Read({{"mMain.bas", kMain}, {"cBox.cls", kBox}});
    Baum tree;
    const BaumNode* node = Drop_Module(*gProjekt, tree, "mmain.help");
    EXPECT_EQ(Drop_Module(*gProjekt, tree, "mmain.Public_Sub[]"), node);
    EXPECT_EQ(Drop_Module(*gProjekt, tree, "module[]"), nullptr);
    Drop_Module(*gProjekt, tree, "cbox");
    EXPECT_EQ(DumpBaum(tree), "MODULE [OrdnerZu] bold\n  mMain [module]\nCLASS [OrdnerZu] bold\n  cBox [class]\n");
    EXPECT_TRUE(tree.Item("module")->Expanded());
}

TEST_F(DependencyTrees, LibrariesShowWhoUsesThem) {
    Read({{"App.vbp", "Type=Exe\r\nReference=*\\G{1}#2.0#0#c:\\x\\stdole2.tlb#OLE\r\nModule=M; M.bas\r\n"},
          {"M.bas", "Sub a()\r\nEnd Sub\r\n"}});
    Baum tree;
    ASSERT_NE(Anzeigen_InBaum(Object("stdole2"), tree), nullptr);
    EXPECT_EQ(DumpBaum(tree), "REFERENCE [OrdnerZu] bold\n  stdole2 [Library]\n");
    Show_Dependencies_AllCalledBy(*gProjekt, &Object("stdole2"), tree, true, true);
    EXPECT_EQ(DumpBaum(tree), "");
}
