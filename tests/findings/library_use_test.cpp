#include "findings/library_use.h"

#include "libraries/library_problems.h"
#include "libraries/library_search.h"
#include "support/library_in_memory.h"
#include "support/project_test.h"

namespace {

using LibraryUses = ProgramState;

constexpr const char* kProject =
    "Type=Exe\r\nReference=*\\G{1}#1.0#0#C:\\gone.dll#Gone\r\nObject={AAAA-1}#1.0#0; TREE.OCX\r\n"
    "Object={AAAA-2}#1.0#0; GRID.OCX\r\nForm=F.frm\r\nForm=G.frm\r\nName=\"P\"\r\n";

TEST_F(LibraryUses, ControlsTellWhichMissingComponentTheyAreOf) {
    ReadProject({{"P.vbp", kProject},
                 {"F.frm",
                  "VERSION 5.00\nObject = \"{aaaa-1}#1.0#0\"; \"TREE.OCX\"\n"
                  "Object = \"{AAAA-2}#1.0#0\"; \"GRID.OCX\"\nBegin VB.Form F\n  Begin TreeLib.Tree a\n  End\n"
                  "  Begin GridLib.Grid b\n  End\nEnd\nAttribute VB_Name = \"F\"\nOption Explicit\n"
                  "Sub Go_(n As TreeLib.Node)\n  a.Clear\nEnd Sub\n"},
                 {"G.frm",
                  "VERSION 5.00\nObject = \"{AAAA-1}#1.0#0\"; \"TREE.OCX\"\nBegin VB.Form G\n"
                  "  Begin TreeLib.Tree a\n  End\nEnd\nAttribute VB_Name = \"G\"\nDim x As Gone.Thing\n"}});
    const MemoryFiles nothing;
    const LibrarySearch search(nothing, {});
    for (const auto& library : gProjekt->OwnedLibraries())
        search.Find(*library);
    NoteLibraryProblems(*gProjekt, search);
    const auto problemOfTree = [] {
        NoteCostsOfMissingLibraries(*gProjekt);
        EXPECT_EQ(gProjekt->problems.All().size(), 3U) << "one for each library";
        return gProjekt->problems.All()[1].text;
    };
    EXPECT_THAT(problemOfTree(), HasSubstr("1.0. It is needed by 2 controls and 1 variable in 2 modules. Copy the "));
    Who_Calls_Who(*gProjekt);
    EXPECT_THAT(problemOfTree(), HasSubstr(" 2 controls, 1 variable and 1 call in 2 modules. Copy "));
    EXPECT_THAT(gProjekt->problems.All()[2].text, HasSubstr("1.0. No use of it was found by its name. Copy "));
    const std::vector<LibraryUse> uses = UsesOfLibraries(*gProjekt);
    ASSERT_EQ(uses.size(), 3U);
    const auto as = [](const LibraryUse& use) {
        return std::vector<int>{use.modules, use.places, use.controls, use.variables};
    };
    EXPECT_THAT(as(uses[0]), ElementsAre(1, 0, 0, 1)) << "by the name of its file";
    EXPECT_THAT(as(uses[1]), ElementsAre(2, 1, 2, 1));
    EXPECT_FALSE(uses[2].IsUsed()) << "each form with a grid names the tree as well, so it could be of either";
}

TEST_F(LibraryUses, PlacesOfALibraryThatWasFound) {
    ReadProject({{"F.frm",
                  "VERSION 5.00\nBegin VB.Form F\n  Begin Things.Thing a\n  End\nEnd\n"
                  "Attribute VB_Name = \"F\"\nDim t As Thing\nSub Go_()\n  a.Run\nEnd Sub\n"}});
    LibraryContents contents;
    contents.classes = {ClassOf("Thing", {"Run"})};
    contents.enums = {GroupOf("Size", {"Small", "Large"})};
    AddLibrary(LibraryKind::Component, "Things", contents);
    Who_Calls_Who(*gProjekt);
    const LibraryUse use = UsesOfLibraries(*gProjekt).at(0);
    EXPECT_EQ((std::vector<int>{use.classes, use.members, use.modules, use.places, use.controls, use.variables}),
              (std::vector<int>{1, 3, 1, 2, 1, 0}));
}

}  // namespace
