#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "active_page.h"
#include "platform/files.h"
#include "temp_directory.h"

namespace {

using testing::EndsWith;

class DiskFilesTest : public testing::Test {
protected:
    [[nodiscard]] std::string Read(std::string_view name) const { return files.ReadText(directory.Path(name)).text; }
    [[nodiscard]] FileError ReadError(std::string_view name) const {
        return files.ReadText(directory.Path(name)).error;
    }

    TempDirectory directory;
    DiskFiles files;
};
using DiskPaths = DiskFilesTest;
using DiskReading = DiskFilesTest;
using DiskWriting = DiskFilesTest;

TEST_F(DiskPaths, AreFoundInAnySpelling) {
    directory.Write("Proj/Src/Form1.frm", "form");
    std::filesystem::create_directory(directory.Path("Proj/Lib"));
    for (const char* path :
         {"Proj/Src/Form1.frm", "Proj\\Src\\Form1.frm", "proj\\SRC\\fORM1.FRM  ", "PROJ//src\\.\\form1.frm",
          "Proj\\Lib\\..\\Src\\Form1.frm", "proj\\lib\\..\\src\\form1.frm", "Proj\\NoSuch\\..\\Src\\Form1.frm",
          "proj\\a\\b\\..\\..\\src\\form1.frm"}) {
        SCOPED_TRACE(path);
        EXPECT_EQ(Read(path), "form");
        EXPECT_TRUE(files.FileExists(directory.Path(path)));
        EXPECT_GT(files.DateLastModified(directory.Path(path)), 0);
    }
    EXPECT_EQ(files.SystemPath(directory.Path("proj\\SRC\\form1.frm")), directory.Path("Proj/Src/Form1.frm"));
    EXPECT_EQ(files.SystemPath(directory.Path("proj\\Neu\\X.txt")), directory.Path("Proj/Neu/X.txt"));
}

TEST_F(DiskPaths, ExactSpellingGoesFirstThenByteOrder) {
    directory.Write("form1.frm", "lower");
    directory.Write("FORM1.frm", "upper");
    directory.Write("Form1.frm", "title");
    EXPECT_EQ(Read("form1.frm"), "lower");
    EXPECT_EQ(Read("Form1.frm"), "title");
    EXPECT_EQ(Read("fOrM1.frm"), "upper");
}

TEST_F(DiskPaths, AreMissingWhenNothingStandsThere) {
    directory.Write("a.txt", "x");
    using std::string_view_literals::operator""sv;
    const std::string longName(300, 'n');
    std::string endless;
    for (int i = 0; i < 200000; ++i)
        endless += "a\\";
    for (const std::string_view path : {""sv, "   "sv, "C:\\Windows\\x.dll"sv, "\\\\server\\share\\x"sv, "a\0b"sv,
                                        std::string_view(longName), std::string_view(endless)}) {
        EXPECT_EQ(files.ReadText(path).error, FileError::NotFound) << path.substr(0, 50);
        EXPECT_FALSE(files.FileExists(path));
        EXPECT_EQ(files.WriteWhole(directory.Path("none/").append(path), "x"), FileError::NotFound);
    }
    EXPECT_EQ(files.WriteWhole(directory.Path(longName), "x"), FileError::NotFound);
    EXPECT_EQ(directory.FileCount(), 1);
    EXPECT_EQ(ReadError("b.txt"), FileError::NotFound);
    EXPECT_EQ(ReadError("A.txt\\"), FileError::NotFound);
    EXPECT_EQ(ReadError("a.txt\\b.txt"), FileError::NotFound);
    EXPECT_EQ(ReadError("..\\..\\..\\..\\..\\..\\nowhere.txt"), FileError::NotFound);
}

TEST_F(DiskPaths, ListingsFollowTheDisk) {
    directory.Write("Old.bas", "old");
    EXPECT_EQ(Read("OLD.bas"), "old");
    EXPECT_FALSE(files.FileExists(directory.Path("NEW.bas")));
    directory.Write("New.bas", "new");
    EXPECT_EQ(Read("NEW.bas"), "new");
    std::filesystem::rename(directory.Path("Old.bas"), directory.Path("olD.bas"));
    EXPECT_EQ(Read("OLD.bas"), "old");
    std::filesystem::remove(directory.Path("olD.bas"));
    EXPECT_EQ(ReadError("OLD.bas"), FileError::NotFound);

    directory.Write("Sub/a.bas", "a");
    EXPECT_EQ(Read("SUB/A.bas"), "a");
    std::filesystem::rename(directory.Path("Sub"), directory.Path("suB"));
    EXPECT_EQ(Read("SUB/A.bas"), "a");
}

TEST_F(DiskPaths, MayHoldBytesOfTheActivePage) {
    directory.Write("Übung/Prüfung.frm", "utf-8");
    directory.Write("f\xFCr.bas", "raw");
    EXPECT_EQ(Read("\xDC"
                   "bung\\Pr\xFC"
                   "fung.frm"),
              "utf-8");
    EXPECT_EQ(Read("Übung\\pr\xDC"
                   "fung.frm"),
              "utf-8");  // the directory as the file dialog gave it
    EXPECT_EQ(Read("übung\\PRÜFUNG.frm"), "utf-8");
    EXPECT_EQ(Read("f\xFCr.bas"), "raw");
    EXPECT_EQ(Read("F\xDCR.bas"), "raw");
    // A file made anew gets a name that the system can show.
    EXPECT_EQ(files.WriteWhole(directory.Path("\xDC"
                                              "bung\\\xC4.txt"),
                               "x"),
              FileError::None);
    EXPECT_EQ(directory.Bytes("Übung/Ä.txt"), "x");

    const WithCodePage page("932");
    directory.Write("資料/表.bas", "kanji");
    EXPECT_EQ(Read("\x8E\x91\x97\xBF\\\x95\x5C.BAS"), "kanji");  // the second byte of 表 is a "\"
    EXPECT_EQ(Read("資料\\\x95\x5C.bas"), "kanji");
}

TEST_F(DiskPaths, LinksAreFollowed) {
    directory.Write("real/Deep/a.bas", "a");
    directory.Write("real/b.bas", "beside the target");
    directory.Write("c.bas", "beside the link");
    std::filesystem::create_directory_symlink(directory.Path("real/Deep"), directory.Path("Link"));
    EXPECT_EQ(Read("Link\\..\\b.bas"), "beside the target");
    EXPECT_EQ(Read("link\\..\\B.bas"), "beside the target");
    EXPECT_EQ(Read("link\\..\\C.bas"), "beside the link");
    std::filesystem::create_symlink("nowhere", directory.Path("dangling"));
    EXPECT_EQ(ReadError("dangling"), FileError::NotFound);
}

TEST_F(DiskReading, TellsWhatCannotBeRead) {
    std::filesystem::create_directory(directory.Path("Dir.bas"));
    EXPECT_EQ(ReadError("Dir.bas"), FileError::IsDirectory);
    EXPECT_EQ(ReadError("DIR.bas"), FileError::IsDirectory);
    EXPECT_FALSE(files.FileExists(directory.Path("Dir.bas")));

    ASSERT_EQ(mkfifo(directory.Path("pipe").c_str(), 0666), 0);
    EXPECT_EQ(ReadError("pipe"), FileError::NotReadable);
    EXPECT_FALSE(files.FileExists(directory.Path("pipe")));
    EXPECT_EQ(files.ReadText("/dev/zero").error, FileError::NotReadable);

    chmod(directory.Write("secret.bas", "x").c_str(), 0);
    const WithoutRootRights rights;
    EXPECT_EQ(ReadError("secret.bas"), FileError::NotReadable);
    EXPECT_EQ(ReadError("SECRET.bas"), FileError::NotReadable);
}

TEST_F(DiskReading, TakesFilesOfEverySize) {
    EXPECT_EQ(files.ReadText(directory.Write("empty", "")).error, FileError::None);
    // Around the size of the reading buffer, and with a growth by conversion.
    for (const std::size_t size : {262143u, 262144u, 262145u, 600000u}) {
        const std::string bytes(size, 'x');
        EXPECT_EQ(files.ReadText(directory.Write("big", bytes)).text, bytes);
        EXPECT_EQ(files.ReadText(directory.Write("big", bytes + "\n")).text, bytes + "\r\n");
    }
    EXPECT_THAT(files.ReadText("/proc/self/status").text, testing::HasSubstr("Pid:"));  // says that it is empty

    constexpr std::size_t kLarge = 300'000'000;
    std::filesystem::resize_file(directory.Write("large", ""), kLarge);
    EXPECT_EQ(files.ReadText(directory.Path("large")).text.size(), kLarge);
    std::filesystem::resize_file(directory.Path("large"), 2'000'000'000);
    const FileText tooLarge = files.ReadText(directory.Path("large"));
    EXPECT_EQ(tooLarge.error, FileError::TooLarge);
    EXPECT_TRUE(tooLarge.text.empty());
}

TEST_F(DiskReading, GivesTheTimeOfTheLastChange) {
    const std::string path = directory.Write("a", "x");
    const timespec times[2] = {{1000, 0}, {1'600'000'000, 123'000'000}};
    ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    EXPECT_EQ(files.DateLastModified(path), 1'600'000'000'123'000'000);
    EXPECT_EQ(files.ReadText(path).dateLastModified, 1'600'000'000'123'000'000);
    EXPECT_EQ(files.DateLastModified(directory.Path("none")), 0);
}

TEST_F(DiskWriting, ReplacesWholeAndKeepsPermissions) {
    EXPECT_EQ(files.WriteWhole(directory.Path("Report.txt"), "1\n"), FileError::None);
    chmod(directory.Path("Report.txt").c_str(), 0640);
    EXPECT_EQ(files.WriteWhole(directory.Path("REPORT.txt"), "2"), FileError::None);
    EXPECT_EQ(directory.Bytes("Report.txt"), "2");
    struct stat status {};
    ASSERT_EQ(stat(directory.Path("Report.txt").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640u);

    std::filesystem::create_symlink("Report.txt", directory.Path("link"));
    EXPECT_EQ(files.WriteWhole(directory.Path("link"), "3"), FileError::None);
    EXPECT_TRUE(std::filesystem::is_symlink(directory.Path("link")));
    EXPECT_EQ(directory.Bytes("Report.txt"), "3");
    EXPECT_EQ(directory.FileCount(), 2);  // nothing is left behind
}

TEST_F(DiskWriting, RefusesWhatItMustNotReplace) {
    EXPECT_EQ(files.WriteWhole(directory.Path("no/such/a.txt"), "x"), FileError::NotFound);
    EXPECT_EQ(files.WriteWhole("", "x"), FileError::NotFound);
    EXPECT_EQ(files.WriteWhole(directory.Path(), "x"), FileError::IsDirectory);
    ASSERT_EQ(mkfifo(directory.Path("pipe").c_str(), 0666), 0);
    EXPECT_EQ(files.WriteWhole(directory.Path("pipe"), "x"), FileError::NotWritable);
    EXPECT_EQ(files.Append(directory.Path("pipe"), "x"), FileError::NotWritable);

    chmod(directory.Write("fixed.txt", "old").c_str(), 0444);
    std::filesystem::create_directory(directory.Path("closed"));
    chmod(directory.Path("closed").c_str(), 0555);
    chmod(directory.Path().c_str(), 0777);
    const WithoutRootRights rights;
    EXPECT_EQ(files.WriteWhole(directory.Path("fixed.txt"), "new"), FileError::NotWritable);
    EXPECT_EQ(files.Append(directory.Path("fixed.txt"), "new"), FileError::NotWritable);
    EXPECT_EQ(files.WriteWhole(directory.Path("closed/a.txt"), "new"), FileError::NotWritable);
    EXPECT_EQ(files.MakeDirectory(directory.Path("closed/sub")), FileError::NotWritable);
    EXPECT_EQ(directory.Bytes("fixed.txt"), "old");
}

TEST_F(DiskWriting, AppendsToExistingFilesOnly) {
    EXPECT_EQ(files.Append(directory.Path("Deaths.txt"), "x"), FileError::NotFound);
    EXPECT_EQ(directory.FileCount(), 0);
    directory.Write("Deaths.txt", "1\r\n");
    EXPECT_EQ(files.Append(directory.Path("deaths.TXT"), "2\n"), FileError::None);
    EXPECT_EQ(directory.Bytes("Deaths.txt"), "1\r\n2\n");
    EXPECT_EQ(files.Append(directory.Path(), "x"), FileError::IsDirectory);
}

TEST_F(DiskWriting, MakesDirectoriesWithTheirParents) {
    EXPECT_EQ(files.MakeDirectory(directory.Path("A\\B\\C\\")), FileError::None);
    EXPECT_TRUE(std::filesystem::is_directory(directory.Path("A/B/C")));
    EXPECT_EQ(files.MakeDirectory(directory.Path("a/b/D")), FileError::None);
    EXPECT_TRUE(std::filesystem::is_directory(directory.Path("A/B/D")));
    EXPECT_EQ(files.MakeDirectory(directory.Path("A")), FileError::None);
    directory.Write("file", "x");
    EXPECT_EQ(files.MakeDirectory(directory.Path("file")), FileError::NotWritable);
    EXPECT_EQ(files.MakeDirectory(directory.Path("FILE/sub")), FileError::NotWritable);
}

TEST(FileErrors, AreSentencesForPeople) {
    for (const FileError error : {FileError::NotFound, FileError::IsDirectory, FileError::NotReadable,
                                  FileError::TooLarge, FileError::NotWritable})
        EXPECT_THAT(std::string(Describe(error)), EndsWith("."));
    EXPECT_EQ(Describe(FileError::None), "");
}

}  // namespace
