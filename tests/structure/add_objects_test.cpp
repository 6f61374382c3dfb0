#include "structure/add_objects.h"

#include "support/project_test.h"

namespace {

class Registration : public ProgramState {
protected:
    // Code paths of all objects of a name, in the order of entry.
    static std::string PathsOf(const NameSpace& nameSpace, std::string_view name) {
        const clsSpaceName* entry = nameSpace.Item(name);
        return entry ? Joined(entry->Objects(), "; ", std::mem_fn(&CodeObject::CodePath)) : "";
    }
};

const char* const kEverything = R"(
    Public a
    Private b
    Const C = 1
    Public Type T
        x As Long
    End Type
    Private Type U
        x As Byte
    End Type
    Public Enum E
        y
    End Enum
    Private Enum F
        z
    End Enum
    Public Sub S(arg): Dim loc: End Sub
    Private Sub s2(): End Sub
    Function G(): End Function
    Private Function g2(): End Function
    Property Get P(): End Property
    Private Property Let P(v): End Property
)";

}  // namespace

TEST_F(Registration, ProjectKnowsWhatIsPublic) {
    ReadModule(kEverything);
    const NameSpace& everywhere = gProjekt->PublicNameSpace();
    std::string all;
    for (const clsSpaceName* entry : everywhere)
        all.append(entry->MyName()).append(" ");
    EXPECT_EQ(all, "module1 a c x t y e s g p ");
    EXPECT_EQ(PathsOf(everywhere, "p"), "module1.p [get]");
    EXPECT_EQ(PathsOf(everywhere, "x"), "module1.t.x");
    EXPECT_EQ(PathsOf(ModuleOf("module1").PrivNameSpace, "p"), "module1.p [get]; module1.p [let]");
}

TEST_F(Registration, FirstHolderOfANameWins) {
    const clsModul& modul = ReadModule(
        "Public First As Long\nPrivate first As Byte\nType Rec\n  a As Long\nEnd Type\nPrivate Type rec\n"
        "  b As Long\nEnd Type\nEnum Kind\n  ka\nEnd Enum\nEnum kind\n  kb\nEnd Enum\n"
        "Sub Twice(): End Sub\nPrivate Function twice(): End Function");
    EXPECT_EQ(DumpObjects(modul),
              "public First as long; public type Rec(a as long); public enum Kind(ka as long); public sub Twice()");
    EXPECT_EQ(NamesIn(modul.Private_Variablen) + " " + NamesIn(modul.Private_Function), "first twice");
    // Of later objects only those with a different path can still be found by name.
    EXPECT_EQ(PathsOf(modul.PrivNameSpace, "first"), "module1.first");
    EXPECT_EQ(PathsOf(modul.PrivNameSpace, "b"), "module1.rec.b");
    EXPECT_TRUE(modul.MyVars.Contains("kb"));
}
