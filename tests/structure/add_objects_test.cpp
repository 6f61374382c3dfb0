#include "structure/add_objects.h"

#include <gmock/gmock.h>

#include "structure/reading.h"
#include "support/program_state.h"

using testing::ElementsAre;

namespace {

class Registration : public ProgramState {
protected:
    template <class T>
    static std::string Names(const clsCollection<T>& objects) {
        std::string names;
        for (const T* object : objects)
            names.append(names.empty() ? "" : " ").append(object->myNameOrg());
        return names;
    }
    // Code paths of all that bears a name, in the order of entry.
    static std::vector<std::string> Bearers(const NameSpace& nameSpace, std::string_view name) {
        std::vector<std::string> paths;
        if (const clsSpaceName* entry = nameSpace.Item(name))
            for (const CodeObject* object : entry->Objects())
                paths.push_back(object->CodePath());
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

TEST_F(Registration, ModuleFilesByKindAndAccess) {
    const clsModul& modul = ReadModule(kEverything);
    EXPECT_EQ(Names(modul.MyVars), "a b C y z");  // members of enumerations, but not of types
    EXPECT_EQ(Names(modul.Public_Variablen), "a C");
    EXPECT_EQ(Names(modul.Private_Variablen), "b");
    EXPECT_EQ(Names(modul.myTypes), "T U");
    EXPECT_EQ(Names(modul.Public_Type), "T");
    EXPECT_EQ(Names(modul.Private_Type), "U");
    EXPECT_EQ(Names(modul.myEnums), "E F");
    EXPECT_EQ(Names(modul.Public_Enum), "E");
    EXPECT_EQ(Names(modul.Private_Enum), "F");
    EXPECT_EQ(Names(modul.MyProcs), "S s2 G g2 P P");
    EXPECT_EQ(Names(modul.Public_Sub), "S");
    EXPECT_EQ(Names(modul.Private_Sub), "s2");
    EXPECT_EQ(Names(modul.Public_Function), "G");
    EXPECT_EQ(Names(modul.Private_Function), "g2");
    EXPECT_EQ(Names(modul.Public_Property), "P");
    EXPECT_EQ(Names(modul.Private_Property), "P");
}

TEST_F(Registration, ProjectKnowsWhatIsPublic) {
    ReadModule(kEverything);
    EXPECT_EQ(Names(gProjekt->MyVars), "a C y");
    EXPECT_EQ(Names(gProjekt->myTypes), "T");
    EXPECT_EQ(Names(gProjekt->myEnums), "E");
    EXPECT_EQ(Names(gProjekt->MyProcs), "S G");  // no properties
    EXPECT_EQ(Names(gProjekt->Public_Sub), "S");
    EXPECT_EQ(Names(gProjekt->Public_Function), "G");
    // The variables of a class are reached through its instances.
    ReadModule(kEverything, "Class1.cls");
    EXPECT_EQ(Names(gProjekt->MyVars), "y");
    EXPECT_EQ(Names(gProjekt->MyProcs), "S G");
    EXPECT_THAT(Bearers(gPublicNameSpace, "a"), ElementsAre("class1.a"));
}

TEST_F(Registration, PublicNameSpaceHoldsNothingPrivate) {
    const clsModul& modul = ReadModule(kEverything);
    for (const char* name : {"a", "c", "t", "e", "y", "s", "g", "module1"})
        EXPECT_EQ(Bearers(gPublicNameSpace, name).size(), 1U) << name;
    for (const char* name : {"b", "u", "f", "z", "s2", "g2"}) {
        EXPECT_EQ(Bearers(gPublicNameSpace, name).size(), 0U) << name;
        EXPECT_EQ(Bearers(modul.PrivNameSpace, name).size(), 1U) << name;
    }
    EXPECT_THAT(Bearers(gPublicNameSpace, "p"), ElementsAre("module1.p [get]"));
    EXPECT_THAT(Bearers(modul.PrivNameSpace, "p"), ElementsAre("module1.p [get]", "module1.p [let]"));
    EXPECT_THAT(Bearers(gPublicNameSpace, "x"), ElementsAre("module1.t.x"));
    EXPECT_THAT(Bearers(modul.PrivNameSpace, "x"), ElementsAre("module1.t.x", "module1.u.x"));
    EXPECT_FALSE(modul.PrivNameSpace.Contains("arg"));
    EXPECT_FALSE(modul.PrivNameSpace.Contains("loc"));
}

TEST_F(Registration, FirstHolderOfANameWins) {
    const clsModul& modul = ReadModule(R"(
        Public First As Long
        Private first As Byte
        Type Rec
            a As Long
        End Type
        Private Type rec
            b As Long
        End Type
        Enum Kind
            ka
        End Enum
        Enum kind
            kb
        End Enum
        Sub Twice(): End Sub
        Private Function twice(): End Function
    )");
    EXPECT_EQ(DumpObjects(modul),
              "public First as long; public type Rec(a as long); public enum Kind(ka as long); public sub Twice()");
    EXPECT_EQ(Names(modul.Private_Variablen), "first");
    EXPECT_EQ(Names(modul.Private_Function), "twice");
    // Of the others only what has a path of its own can still be found by name.
    EXPECT_THAT(Bearers(modul.PrivNameSpace, "first"), ElementsAre("module1.first"));
    EXPECT_THAT(Bearers(modul.PrivNameSpace, "b"), ElementsAre("module1.rec.b"));
    EXPECT_TRUE(modul.MyVars.Contains("kb"));
}
