#include "findings/project_overview.h"

#include "support/golden.h"
#include "support/project_test.h"

namespace {

class Overviews : public ProgramState {
protected:
    static ProjectOverview Of(const std::string& projectLines) {
        const std::string lines = projectLines + "\r\nName=\"App\"\r\n";
        return OverviewOf(ReadProject({{"App.vbp", lines + "Module=M; M.bas\r\nForm=F.frm\r\nClass=C; gone.cls\r\n"},
                                       {"M.bas", "Public a\r\nSub Main()\r\n' says why\r\nEnd Sub\r\n"},
                                       {"F.frm", "VERSION 5.00\r\nBegin VB.Form F\r\nEnd\r\n"}}));
    }
};

TEST_F(Overviews, StartIsTheObjectThatTheProjectFileNames) {
    EXPECT_EQ(Of("Type=OleDll\r\nStartup=\"Sub Main\"").startUpPath, "m.main");
    const ProjectOverview form = Of("Type=Exe\r\nStartup=\"F\"");
    EXPECT_EQ(form.type, "Standard EXE");
    EXPECT_EQ(form.startUp, "F");
    EXPECT_EQ(form.startUpPath, "f");
    EXPECT_EQ(Of("Type=Strange\r\nStartup=\"Elsewhere\"").startUpPath, "");
    const ProjectOverview none = Of("Type=OleDll\r\nStartup=\"(None)\"");
    EXPECT_EQ(none.type, "ActiveX DLL");
    EXPECT_EQ(none.startUp, "");
}

TEST_F(Overviews, OnlyASubIsSubMain) {
    const clsProjekt& projekt =
        ReadProject({{"App.vbp", "Type=Exe\r\nStartup=\"Sub Main\"\r\nModule=A; A.bas\r\nModule=M; M.bas\r\n"},
                     {"A.bas", "Public Function Main()\r\nEnd Function\r\n"},
                     {"M.bas", "Sub Main()\r\nEnd Sub\r\n"}});
    EXPECT_EQ(OverviewOf(projekt).startUpPath, "m.main");
}

TEST_F(Overviews, WhatIsMissingIsCounted) {
    Of("Reference=*\\G{0}#2.0#0#found.tlb#Found\r\nReference=*\\G{1}#2.0#0#C:\\far\\gone.tlb#Gone\r\n"
       "Object={2}#1.0#0; unsought.ocx");
    clsTypeLib& found = *gProjekt->OwnedLibraries()[0];
    found.file.path = "found.tlb";
    for (const std::size_t sought : {0, 1})
        gProjekt->OwnedLibraries()[sought]->file.places.emplace_back();
    const ProjectOverview overview = OverviewOf(*gProjekt);
    EXPECT_EQ(overview.libraries, 3);
    EXPECT_EQ(overview.librariesMissing, 1);
    EXPECT_EQ(overview.filesMissing, 1);
    EXPECT_EQ(overview.problems, 1);
}

TEST_F(Overviews, DeadObjectsAreUnknownBeforeAllCallsAreRead) {
    EXPECT_FALSE(Of("Type=Exe").deaths);
    Tote_Untote_Kennzeichnen(*gProjekt);
    EXPECT_FALSE(OverviewOf(*gProjekt).deaths);
    Analyse();
    const std::optional<ProjectOverview::Deaths> deaths = OverviewOf(*gProjekt).deaths;
    ASSERT_TRUE(deaths);
    EXPECT_EQ(*deaths, (ProjectOverview::Deaths{.dead = 2, .undead = 0, .of = 2}));
}

TEST_F(Overviews, LargestModulesAreTenAtMostAndFallInSize) {
    ReadSample();
    const ProjectOverview overview = OverviewOf(*gProjekt);
    ASSERT_EQ(overview.largest.size(), 10U);
    EXPECT_TRUE(std::ranges::is_sorted(overview.largest, std::greater<>(), &ProjectOverview::Module::codeLines));
    EXPECT_EQ(overview.AllModules(), gProjekt->CountAllModules());
}

}  // namespace
