#include "structure/add_objects.h"

#include "support/project_test.h"

namespace {

class Registration : public ProgramState {
protected:
    // Code paths of all objects of a name, in the order of entry.
    static std::string Bearers(const NameSpace& nameSpace, std::string_view name) {
        std::string paths;
        if (const clsSpaceName* entry = nameSpace.Item(name))
            for (const CodeObject* object : entry->Objects())
                paths.append(paths.empty() ? "" : "; ").append(object->CodePath());
        return paths;
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
    EXPECT_EQ(Names(gProjekt->MyVars), "a C y");  // includes members of enumerations, but not of types
    EXPECT_EQ(Names(gProjekt->myTypes) + " " + Names(gProjekt->myEnums), "T E");
    EXPECT_EQ(Names(gProjekt->MyProcs), "S G");  // no properties
    EXPECT_EQ(Names(gProjekt->Public_Sub) + " " + Names(gProjekt->Public_Function), "S G");
    // The name space holds only public objects.
    EXPECT_EQ(Bearers(gPublicNameSpace, "p") + Bearers(gPublicNameSpace, "s2"), "module1.p [get]");
    EXPECT_EQ(Bearers(gPublicNameSpace, "x"), "module1.t.x");
    // Variables of a class are accessible through its instances only.
    ReadModule(kEverything, "Class1.cls");
    EXPECT_EQ(Names(gProjekt->MyVars), "y");
    EXPECT_EQ(Bearers(gPublicNameSpace, "a"), "class1.a");
}

TEST_F(Registration, FirstHolderOfANameWins) {
    const clsModul& modul = ReadModule(
        "Public First As Long\nPrivate first As Byte\nType Rec\n  a As Long\nEnd Type\nPrivate Type rec\n"
        "  b As Long\nEnd Type\nEnum Kind\n  ka\nEnd Enum\nEnum kind\n  kb\nEnd Enum\n"
        "Sub Twice(): End Sub\nPrivate Function twice(): End Function");
    EXPECT_EQ(DumpObjects(modul),
              "public First as long; public type Rec(a as long); public enum Kind(ka as long); public sub Twice()");
    EXPECT_EQ(Names(modul.Private_Variablen) + " " + Names(modul.Private_Function), "first twice");
    // Of later objects only those with a different path can still be found by name.
    EXPECT_EQ(Bearers(modul.PrivNameSpace, "first"), "module1.first");
    EXPECT_EQ(Bearers(modul.PrivNameSpace, "b"), "module1.rec.b");
    EXPECT_TRUE(modul.MyVars.Contains("kb"));
}
