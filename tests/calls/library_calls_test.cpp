#include "support/call_dumps.h"
#include "support/library_in_memory.h"
#include "support/project_test.h"

namespace {

class LibraryCalls : public ProgramState {
protected:
    static std::string EdgesOf(std::string_view caller) {
        Who_Calls_Who(*gProjekt);
        return DumpEdgesOf(caller);
    }
};

LibraryContents Things() {
    LibraryContents contents;
    contents.classes = {ClassOf("Thing", {"Run", "GetPart"}, "part"), ClassOf("Part", {"Turn"})};
    contents.enums = {GroupOf("Size", {"Small", "Large"})};
    return contents;
}

TEST_F(LibraryCalls, MembersOfVariablesAndTheirResultsAreCalled) {
    ReadProject({{"M.bas", R"(
        Sub Run_()
            Dim t As New Things.Thing
            Dim s As Size
            t.Run
            t.GetPart.Turn
            t.Gone
            s = Large
        End Sub
    )"}});
    AddLibrary(LibraryKind::Reference, "Things", Things());
    EXPECT_EQ(EdgesOf("m.run_"),
              ": things; : things.thing; : things.size [enum]; > things.thing.run; > things.thing.getpart [get]; "
              "> things.part.turn; > things.size.large");
    clsTypeLib& library = *gProjekt->OwnedLibraries()[0];
    CodeObject* const large = library.Get_Object_From_CodePath("things.size.large");
    ASSERT_TRUE(large);
    EXPECT_EQ(large->CalledByAll().Count(), 1);
    EXPECT_EQ(library.UsedByAll().Count(), 1);
    EXPECT_EQ(gProjekt->GetObjectFromCodePath("things.part.turn"),
              library.Get_Object_From_CodePath("things.part.turn"));
}

TEST_F(LibraryCalls, NamesOfTheProjectWinAndThenTheFirstLibrary) {
    ReadProject({{"M.bas", "Public Enum Size\n  Small\nEnd Enum\nSub Go_()\n  x = Small\n  y = Large\nEnd Sub\n"}});
    AddLibrary(LibraryKind::Reference, "Things", Things());
    AddLibrary(LibraryKind::Reference, "Others", Things());
    EXPECT_EQ(EdgesOf("m.go_"), "> size.small; > things.size.large");
}

TEST_F(LibraryCalls, ProceduresOfALibraryAreNoBareNames) {
    ReadProject({{"M.bas", "Sub Go_()\n  Run\n  x = GetPart\n  y.Run\nEnd Sub\n"}});
    LibraryContents contents = Things();
    contents.classes[0].kind = ModuleKind::Module;
    AddLibrary(LibraryKind::Reference, "Things", contents);
    EXPECT_EQ(EdgesOf("m.go_"), "");
}

TEST_F(LibraryCalls, AControlLeadsToTheClassOfTheLastComponent) {
    ReadProject({{"F.frm",
                  "VERSION 5.00\nBegin VB.Form F\n  Begin Things.Thing tvw\n  End\nEnd\n"
                  "Attribute VB_Name = \"F\"\nOption Explicit\nSub Go_()\n  tvw.Run\nEnd Sub\n"}});
    AddLibrary(LibraryKind::Component, "Older", Things());
    AddLibrary(LibraryKind::Component, "Things", Things());
    AddLibrary(LibraryKind::Reference, "Reference", Things());
    EXPECT_EQ(EdgesOf("f.go_"), "> tvw; > things.thing.run");
}

}  // namespace
