#include "display/library_problem.h"

#include "display/problem_entries.h"
#include "libraries/library_problems.h"
#include "libraries/library_search.h"
#include "shell/clsText.h"
#include "support/project_test.h"

namespace {

class LibraryProblems : public ProgramState {
protected:
    LibraryProblems() { gText.SetLanguage(DiskFiles(), OSTRIVANE_SOURCE_DIR "/"); }

    static void Read(const std::string& lines) {
        ReadProject({{"App.vbp", "Type=Exe\n" + lines + "Module=M; M.bas\n"}, {"M.bas", "Dim a"}});
    }
    static clsTypeLib& Library(std::size_t nr) { return *gProjekt->OwnedLibraries()[nr]; }
    // A line that was sought; it found this file, if any.
    static void Sought(std::size_t nr, const std::string& path = {}, const std::string& version = {}) {
        Library(nr).file.places.emplace_back();
        Library(nr).file.path = path;
        Library(nr).file.version = version;
    }
    // What the list says, one line for each problem.
    static std::string Shown() {
        const MemoryFiles files;
        NoteLibraryProblems(*gProjekt, LibrarySearch(files, {}));
        std::string shown;
        for (const ProblemEntry& entry : ProblemEntries(*gProjekt))
            shown += ShownProblem(gProjekt.get(), entry) + "\n";
        return shown;
    }
};

}  // namespace

TEST_F(LibraryProblems, OfTwoLinesWithoutAFileEachHasItsOwn) {
    Read("Reference=*\\G{1}#2.0#0\nReference=*\\G{2}#1.0#0\n");
    Sought(0);
    Sought(1);
    Library(1).need.controls = 7;
    EXPECT_THAT(Shown(), testing::ContainsRegex("[{]1[}] 2[.]0.*\n.*[{]2[}] 1[.]0[.] Needed by: Controls: 7"));
}

TEST_F(LibraryProblems, TheOtherVersionIsThatOfTheLineThatAskedForOne) {
    Read("Reference=*\\G{1}#3.0#0#a\\x.tlb#X\nReference=*\\G{1}#2.0#0#a\\x.tlb#X\n");
    Sought(0, "/a/x.tlb", "3.0");
    Sought(1, "/a/x.tlb", "3.0");
    EXPECT_EQ(Shown(), "x 2.0 was not found; version 3.0 is used.\n");
}

TEST_F(LibraryProblems, AProjectIsNamedWithOneSeparator) {
    Read("Reference=*\\A..\\Parts\\Parts.vbp\n");
    Sought(0);
    EXPECT_EQ(Shown(), "Project not found: ../Parts/Parts.vbp\n");
}
