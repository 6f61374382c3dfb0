#include "libraries/project_entry.h"

#include <gtest/gtest.h>

#include "model/clsProjekt.h"

namespace {

struct Case {
    std::string_view line;
    std::string_view name, typeLibID, version, file, description;
};

void ExpectLibraries(void (*fill)(clsProjekt&, clsTypeLib&, std::string_view), std::string_view libTyp,
                     std::initializer_list<Case> cases) {
    for (const Case& c : cases) {
        SCOPED_TRACE(c.line);
        MemoryFiles files;
        clsProjekt projekt(files);
        clsTypeLib& library = projekt.NewLibrary();
        fill(projekt, library, c.line);
        EXPECT_EQ(library.ProjektEintrag, c.line);
        EXPECT_EQ(TextOf(library.LibTyp), libTyp);
        EXPECT_EQ(library.CodePathOrg(), c.name);
        EXPECT_EQ(library.TypeLibID, c.typeLibID);
        EXPECT_EQ(library.Version, c.version);
        EXPECT_EQ(library.InprocServer32, c.file);
        EXPECT_EQ(library.Description, c.description);
    }
}

}  // namespace

TEST(References, TakeTheirDataFromTheLine) {
    ExpectLibraries(
        FillPropertysRef, "reference",
        {{R"(Reference=*\G{00020430-0000-0000-C000-000000000046}#2.0#0#..\system32\stdole2.tlb#OLE Automation)",
          "stdole2", "{00020430-0000-0000-C000-000000000046}", "2.0", R"(..\system32\stdole2.tlb)", "OLE Automation"},
         {R"(Reference=*\G{1}#6.0#9#C:\Program Files\My.Lib.dll)", "My.Lib", "{1}", "6.0",
          R"(C:\Program Files\My.Lib.dll)", ""},
         {R"(Reference=*\G{1}#1.0#0#csharp.tlb#C# Tools #2)", "csharp", "{1}", "1.0", "csharp.tlb", "C# Tools #2"},
         // The number of a resource in the file is not part of the name.
         {R"(Reference=*\G{1}#1.0#0#C:\vbscript.dll\2#VBScript)", "vbscript", "{1}", "1.0", R"(C:\vbscript.dll\2)",
          "VBScript"},
         // A reference to another project has its path in place of the identifier.
         {R"(Reference=*\A..\Other\Other.vbp)", "Other", R"(..\Other\Other.vbp)", "", R"(..\Other\Other.vbp)", ""}});
}

TEST(References, OfBrokenLinesKeepTheReadableParts) {
    ExpectLibraries(FillPropertysRef, "reference",
                    {{"Reference", "", "", "", "", ""},
                     {"Reference=", "", "", "", "", ""},
                     {R"(Reference=*\G)", "", "", "", "", ""},
                     {R"(Reference=*\G{1}#2.0)", "{1}", "{1}", "2.0", "{1}", ""},
                     {R"(Reference=*\G####)", "", "", "", "", ""}});
}

TEST(Components, TakeTheirDataFromTheLine) {
    ExpectLibraries(
        FillPropertys, "component",
        {{"Object={831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0; MSCOMCTL.OCX", "MSCOMCTL",
          "{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}", "2.0", "MSCOMCTL.OCX", ""},
         {R"(Object={1}#1.2#0; ..\Controls\my.grid.ocx)", "my.grid", "{1}", "1.2", R"(..\Controls\my.grid.ocx)", ""},
         {R"(Object=*\A..\Grid\Grid.vbp)", "Grid", R"(..\Grid\Grid.vbp)", "", R"(..\Grid\Grid.vbp)", ""},
         {"Object=", "", "", "", "", ""}});
}
