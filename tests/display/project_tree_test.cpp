#include "display/project_tree.h"

#include "display/node_objects.h"
#include "support/baum_dump.h"
#include "support/project_test.h"

namespace {

class ProjectTree : public ProgramState {
protected:
    std::string Shown(bool withLocals = false) {
        ProjektStruktur_Anzeigen(*gProjekt, tree, withLocals);
        return DumpBaum(tree);
    }
    std::string KeysBelow(std::string_view key) {
        return Joined(tree.Item(key)->ChildNodes(), " | ", std::mem_fn(&BaumNode::Key));
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

TEST_F(ProjectTree, LocalsAreShownWhenTheOptionSaysSo) {
    ReadModule(kClass, "clsBox.cls");
    Shown(true);
    EXPECT_EQ(KeysBelow("clsbox.zeta"), "clsbox.zeta.a | clsbox.zeta.b | clsbox.zeta.zeta");
    EXPECT_EQ(tree.Item("clsbox.zeta.a")->Image(), "argument");
    for (const char* key : {"clsbox", "clsbox.zeta", "clsbox.zeta.b", "clsbox.kind.ka", "clsbox.rate [let].v"}) {
        const CodeObject* object = ObjectOfNode(*gProjekt, tree.Item(key)->Id());
        EXPECT_TRUE(object && NodeKeyOf(*object) == key) << key;
    }
    EXPECT_EQ(ObjectOfNode(*gProjekt, {NodeKind::Group, "clsbox.Public_Sub[]"}),
              ObjectOfNode(*gProjekt, "clsbox"));  // a group represents its module
}

TEST_F(ProjectTree, ASecondRunAddsOnlyWhatIsMissing) {
    ReadModule(kClass, "clsBox.cls");
    const std::string first = Shown(true);
    EXPECT_EQ(Shown(true), first);
    tree.Remove(*tree.Item("clsbox.go"));
    tree.Remove(*tree.Item("clsbox.pair.second"));
    EXPECT_NE(DumpBaum(tree), first);
    Shown(true);
    EXPECT_TRUE(tree.Exist("clsbox.go"));
    EXPECT_EQ(KeysBelow("clsbox.pair [type]"), "clsbox.pair.first | clsbox.pair.second");
}

TEST_F(ProjectTree, ProgressStepsForEachModuleAndACancelKeepsTheNodesSoFar) {
    const std::string source = "Sub x()\r\nEnd Sub\r\n";
    ReadProject({{"A.bas", source}, {"B.bas", source}, {"C.cls", source}});
    {
        const RecordingProgress progress;
        Shown();
        EXPECT_EQ(progress.recorded,
                  " 3 Components... References... Forms... Modules... + + Classes... + User Controls... ");
    }
    tree.Clear();
    const RecordingProgress progress("Classes... ");
    Shown();
    EXPECT_TRUE(tree.Exist("b.x"));
    EXPECT_FALSE(tree.Exist("c"));
}
