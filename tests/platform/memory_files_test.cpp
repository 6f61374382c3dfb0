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

}  // namespace
