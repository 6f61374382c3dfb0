#include "reach/declared.h"

#include "support/project_test.h"

namespace {

class DeclaredObjects : public ProgramState {};

}  // namespace

TEST_F(DeclaredObjects, TextIsSortedAndKeepsWhatItDoesNotKnow) {
    const Declared declared = Declared::FromText(
        "' ours\nleave\tm.Zeta\tkept for later\r\nentry\tM.alpha "
        "[Get]\nsomething\telse\nentry\tm.ZETA\ttwice\n\nentry\n");
    EXPECT_EQ(declared.ToText(),
              "' ours\r\nsomething\telse\r\nentry\r\nentry\tM.alpha [Get]\r\nleave\tm.Zeta\tkept for later\r\n");
    EXPECT_EQ(Declared::FromText(declared.ToText()), declared);
    ASSERT_NE(declared.Of("M.ZETA"), nullptr);
    EXPECT_EQ(declared.Of("M.ZETA")->comment, "kept for later");
    EXPECT_EQ(declared.Of("m.alpha"), nullptr);
}

TEST_F(DeclaredObjects, SettingReplacesAndACommentStaysOnItsLine) {
    Declared declared;
    declared.Set({DeclaredKind::LeaveAlone, "m.b", "x"});
    declared.Set({DeclaredKind::EntryPoint, "m.a", "two\r\nlines\tand a tab"});
    declared.Set({DeclaredKind::EntryPoint, "M.B", ""});
    EXPECT_EQ(declared.ToText(), "entry\tm.a\ttwo  lines and a tab\r\nentry\tM.B\r\n");
    EXPECT_TRUE(declared.Remove("M.A"));
    EXPECT_FALSE(declared.Remove("M.A"));
    EXPECT_EQ(declared.ToText(), "entry\tM.B\r\n");
}

TEST_F(DeclaredObjects, FileBesideTheProjectComesFirst) {
    ReadProject({{"M.bas", "Sub Here()\nEnd Sub\n"}});
    MemoryFiles& files = ProjectFiles();
    const DeclaredFiles paths = DeclaredFilesOf(*gProjekt, "settings/Ostrivane.ini");
    EXPECT_EQ(ReadDeclared(files, paths).path, paths.besideSettings);
    Declared declared;
    declared.Set({DeclaredKind::EntryPoint, "m.here", ""});
    declared.Set({DeclaredKind::EntryPoint, "m.gone", "was there once"});
    ASSERT_EQ(WriteDeclared(files, paths.besideProject, declared), FileError::None);
    EXPECT_EQ(ReadDeclared(files, paths).path, paths.besideProject);
    EXPECT_EQ(ReadDeclared(files, paths).declared, declared);
    EXPECT_THAT(Orphaned(declared, *gProjekt),
                ElementsAre(Declaration{DeclaredKind::EntryPoint, "m.gone", "was there once"}));
}
