#include "display/project_tree.h"

#include "display/node_objects.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "display/code_paths.h"
#include "model/clsControl.h"
#include "model/clsEnum.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"
#include "project/project_file.h"
#include "shell/operations.h"
#include "shell/settings.h"
#include "support/baum_dump.h"
#include "support/marked.h"
#include "support/program_state.h"
#include "support/read_project.h"

using testing::ElementsAre;

namespace {

class ProjectTree : public ProgramState {
protected:
    ProjectTree() { gOptProcVars = 0; }

    std::string Shown() {
        ProjektStruktur_Anzeigen(*gProjekt, tree);
        return DumpBaum(tree);
    }
    std::string KeysBelow(std::string_view key) {
        std::string keys;
        for (const BaumNode* child : tree.Item(key)->ChildNodes())
            keys.append(keys.empty() ? "" : " | ").append(child->Key());
        return keys;
    }
    Baum tree;
};

constexpr const char* kClass = R"(
    Private Enum Kind
        kA
    End Enum
    Public Type Pair
        second As Long
        first As Long
    End Type
    Private mRate As Double
    Public Property Get Rate() As Double
    End Property
    Public Property Let Rate(v As Double)
    End Property
    Private Function zeta(ByVal a As Long) As Long
        Dim b As Long
    End Function
    Private Function Alpha()
    End Function
    Public Event Moved()
    Friend Sub Go()
    End Sub
)";

}  // namespace

TEST_F(ProjectTree, ModuleIsShownByGroupsOfAccessAndKind) {
    ReadModule(kClass, "clsBox.cls");
    EXPECT_EQ(Shown(), R"(CLASS [OrdnerZu] bold
  clsBox [class]
    Public Type... [type] bold
      Pair [type]
        second [type]
        first [type]
    Private Enum... [enum] bold
      Kind [enum]
        kA [enum]
    Private Variable... [variable] bold
      mRate [variable]
    Public Property... [procedure] bold
      Rate [Get] [property]
      Rate [Let] [property]
    Private Function... [procedure] bold
      Alpha() [procedure]
      zeta() [procedure]
    Public Sub... [procedure] bold
      Go() [procedure]
      Moved() [event]
)");
    EXPECT_EQ(KeysBelow("clsbox"),
              "clsbox.Public_Type[] | clsbox.Private_Enum[] | clsbox.Private_Variable[] | clsbox.Public_Property[] | "
              "clsbox.Private_Function[] | clsbox.Public_Sub[]");
    EXPECT_EQ(KeysBelow("clsbox.public_property[]"), "clsbox.rate [get] | clsbox.rate [let]");
    EXPECT_EQ(KeysBelow("clsbox.pair [type]"), "clsbox.pair.second | clsbox.pair.first");
    EXPECT_EQ(tree.Item("class[]")->ExpandedImage(), "OrdnerAuf");
}

TEST_F(ProjectTree, RootsStandByKindAndLibrariesHaveTheirOwn) {
    ReadProject({{"App.vbp",
                  "Type=Exe\r\nReference=*\\G{00020430-0000-0000-C000-000000000046}#2.0#0#c:\\x\\stdole2.tlb#OLE\r\n"
                  "Object={831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0; MSCOMCTL.OCX\r\n"
                  "Class=cC; cC.cls\r\nModule=mB; mB.bas\r\nModule=mA; mA.bas\r\nForm=fF.frm\r\n"},
                 {"cC.cls", "Attribute VB_Name = \"cC\"\r\n"},
                 {"mB.bas", "Attribute VB_Name = \"mB\"\r\n"},
                 {"mA.bas", "Attribute VB_Name = \"mA\"\r\n"},
                 {"fF.frm",
                  "VERSION 5.00\r\nBegin VB.Form fF\r\nBegin VB.Timer tick\r\nEnd\r\nEnd\r\n"
                  "Attribute VB_Name = \"fF\"\r\n"}});
    EXPECT_EQ(Shown(), R"(COMPONENT [OrdnerZu] bold
  MSCOMCTL [Object]
REFERENCE [OrdnerZu] bold
  stdole2 [Library]
FORM [OrdnerZu] bold
  fF [form]
    Controls... [control] bold
      tick [control]
MODULE [OrdnerZu] bold
  mA [module]
  mB [module]
CLASS [OrdnerZu] bold
  cC [class]
)");
}

TEST_F(ProjectTree, LocalsAreShownWhenTheOptionSaysSo) {
    gOptProcVars = 1;
    ReadModule(kClass, "clsBox.cls");
    Shown();
    EXPECT_EQ(KeysBelow("clsbox.zeta"), "clsbox.zeta.a | clsbox.zeta.b | clsbox.zeta.zeta");
    EXPECT_EQ(tree.Item("clsbox.zeta.a")->Image(), "argument");
    EXPECT_EQ(tree.Item("clsbox.zeta.b")->Image(), "variable");
    for (const char* key : {"clsbox", "clsbox.zeta", "clsbox.zeta.b", "clsbox.kind.ka", "clsbox.rate.v"}) {
        const CodeObject* object = ObjectOfNode(tree.Item(key)->Key());
        EXPECT_TRUE(object && object->CodePath() == key) << key;
    }
    EXPECT_EQ(ObjectOfNode("clsbox.Public_Sub[]"), ObjectOfNode("clsbox"));  // a group stands for its module
}

TEST_F(ProjectTree, ASecondRunAddsOnlyWhatIsMissing) {
    gOptProcVars = 1;
    clsModul& modul = ReadModule(kClass, "clsBox.cls");
    const std::string first = Shown();
    EXPECT_EQ(Shown(), first);
    tree.Remove(*tree.Item("clsbox.go"));
    tree.Remove(*tree.Item("clsbox.pair.second"));
    EXPECT_NE(DumpBaum(tree), first);
    Shown();
    EXPECT_TRUE(tree.Exist("clsbox.go"));
    EXPECT_EQ(KeysBelow("clsbox.pair [type]"), "clsbox.pair.first | clsbox.pair.second");

    clsModulAnzeige anzeige(tree);
    anzeige.MyModul(modul);
    tree.EnsureVisible(*tree.Item("clsbox.go"));
    tree.Select(tree.Item("clsbox.go"));
    anzeige.Anzeigen_Name();
    EXPECT_EQ(tree.Count(), 2);
    anzeige.Anzeigen_Struktur();
    EXPECT_EQ(DumpBaum(tree), first);
    EXPECT_TRUE(tree.Item("clsbox.Public_Sub[]")->Expanded());
    EXPECT_EQ(tree.Selected(), tree.Item("clsbox.go"));
    tree.Clear();
    anzeige.Anzeigen_Name();
    anzeige.Anzeigen_Struktur();
    EXPECT_EQ(DumpBaum(tree), first);
}

TEST_F(ProjectTree, ProgressStepsForEachModuleAndACancelLeavesWhatStands) {
    struct Watch : Progress {
        void Label(std::string_view label) override {
            told.emplace_back(label);
            gAbort = label == cancelAt;
        }
        void Range(int, int max) override { told.push_back(std::to_string(max)); }
        void Progressiere_mal() override { told.emplace_back("+"); }
        std::vector<std::string> told;
        std::string cancelAt;
    } watch;
    const std::string source = "Sub x()\r\nEnd Sub\r\n";
    ReadProject({{"A.bas", source}, {"B.bas", source}, {"C.cls", source}});
    Progress* before = SetProgress(&watch);
    watch.cancelAt = "none";
    Shown();
    EXPECT_THAT(watch.told, ElementsAre("3", "Components...", "References...", "Forms...", "Modules...", "+", "+",
                                        "Classes...", "+", "User Controls..."));
    EXPECT_NE(gProjekt->TimeForTree, "");
    tree.Clear();
    watch.cancelAt = "Classes...";
    Shown();
    EXPECT_TRUE(tree.Exist("b.x"));
    EXPECT_FALSE(tree.Exist("c"));
    SetProgress(before);
}

TEST_F(ProjectTree, KeysAreTheCodePathsOfAllObjects) {
    DiskFiles files;
    gProjekt = std::make_unique<clsProjekt>(files);
    gProjekt->FullPath = OSTRIVANE_SOURCE_DIR "/samples/ToolHire/ToolHire.vbp";
    Projekt_Laden(*gProjekt);
    Alle_ModulStrukturen_Generieren(*gProjekt);
    PathBuffer path;
    int compared = 0;
    const auto compare = [&](const CodeObject& object) {
        ASSERT_EQ(path.Of(object), object.CodePath());
        ++compared;
    };
    const auto compareAll = [&](const auto& objects) {
        for (const auto* object : objects)
            compare(*object);
    };
    compareAll(gProjekt->FormVars);
    compareAll(gProjekt->myProjectReferences);
    for (const clsModul* modul : gProjekt->AllModules()) {
        compare(*modul);
        compareAll(modul->MyVars);
        compareAll(modul->MyControls);
        for (const clsProzedur* prozedur : modul->MyProcs) {
            compare(*prozedur);
            compareAll(prozedur->MyVars);
        }
        for (const clsType* type : modul->myTypes) {
            compare(*type);
            compareAll(type->MyVars);
        }
        for (const clsEnum* einEnum : modul->myEnums) {
            compare(*einEnum);
            compareAll(einEnum->MyVars);
        }
    }
    EXPECT_GT(compared, 300);
}
