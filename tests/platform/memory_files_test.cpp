#include <gtest/gtest.h>

#include "platform/files.h"

namespace {

TEST(MemoryFiles, AreFoundInAnySpellingOfThePath) {
    const MemoryFiles files{{"Proj/Src/Form1.frm", "x"}, {"F\xFCr.bas", "y"}, {"/top.bas", "z"}};
    for (const char* path : {"proj\\SRC\\form1.FRM", "Proj\\Lib\\..\\Src\\Form1.frm  ", "./Proj//Src/Form1.frm",
                             "f\xDCR.BAS", "FÜR.bas", "/../TOP.bas"})
        EXPECT_TRUE(files.FileExists(path)) << path;
    for (const char* path : {"Form1.frm", "Proj", "Proj/Src/Form1.frm/x", "", "../Proj/Src/Form1.frm"})
        EXPECT_FALSE(files.FileExists(path)) << path;
}

TEST(MemoryFiles, AnswerLikeADisk) {
    MemoryFiles files{{"d/a.txt", "1\n"}};
    EXPECT_EQ(files.ReadText("D\\A.TXT").text, "1\r\n");
    EXPECT_EQ(files.ReadText("b.txt").error, FileError::NotFound);
    EXPECT_EQ(files.ReadText("D").error, FileError::IsDirectory);
    EXPECT_EQ(files.Append("b.txt", "x"), FileError::NotFound);
    EXPECT_EQ(files.WriteWhole("d", "x"), FileError::IsDirectory);
    EXPECT_EQ(files.WriteWhole("", "x"), FileError::NotFound);
    const FileTime before = files.DateLastModified("d/a.txt");
    EXPECT_EQ(files.Append("d/A.txt", "2\n"), FileError::None);
    EXPECT_EQ(files.Bytes("d/a.txt"), "1\n2\n");
    EXPECT_GT(files.DateLastModified("d/a.txt"), before);
}

}  // namespace
