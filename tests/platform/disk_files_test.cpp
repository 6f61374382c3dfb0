#include <fcntl.h>
#include <gmock/gmock.h>

#include "active_page.h"
#include "platform/files.h"
#include "temp_directory.h"

namespace {

namespace fs = std::filesystem;
using namespace std::string_view_literals;

class Disk : public testing::Test {
protected:
    [[nodiscard]] std::string Path(std::string_view name = "") const { return directory.Path(name); }
    [[nodiscard]] std::string Read(std::string_view name) const { return files.ReadText(Path(name)).text; }
    [[nodiscard]] FileError ReadError(std::string_view name) const { return files.ReadText(Path(name)).error; }
    FileError WriteWhole(std::string_view name, std::string_view bytes) { return files.WriteWhole(Path(name), bytes); }
    FileError Append(std::string_view name) { return files.Append(Path(name), "2\n"); }
    FileError MakeDirectory(std::string_view name) { return files.MakeDirectory(Path(name)); }

    TempDirectory directory;
    DiskFiles files;
};
using DiskPaths = Disk;
using DiskReading = Disk;
using DiskWriting = Disk;

TEST_F(DiskPaths, AreFoundInAnySpelling) {
    directory.Write("Proj/Src/Form1.frm", "form");
    fs::create_directory(Path("Proj/Lib"));
    for (const char* path :
         {"Proj/Src/Form1.frm", "proj\\SRC\\fORM1.FRM  ", "PROJ//src\\.\\form1.frm", "proj\\lib\\..\\src\\form1.frm",
          "Proj\\NoSuch\\..\\Src\\Form1.frm", "proj\\a\\b\\..\\..\\src\\form1.frm"}) {
        SCOPED_TRACE(path);
        EXPECT_EQ(Read(path), "form");
        EXPECT_TRUE(files.FileExists(Path(path)));
        EXPECT_GT(files.DateLastModified(Path(path)), 0);
    }
    EXPECT_EQ(files.SystemPath(Path("proj\\SRC\\form1.frm")), Path("Proj/Src/Form1.frm"));
    EXPECT_EQ(files.SystemPath(Path("proj\\Neu\\X.txt")), Path("Proj/Neu/X.txt"));
}

TEST_F(DiskPaths, ExactSpellingGoesFirstThenByteOrder) {
    for (const char* name : {"form1.frm", "FORM1.frm", "Form1.frm"})
        directory.Write(name, name);
    EXPECT_EQ(Read("form1.frm"), "form1.frm");
    EXPECT_EQ(Read("Form1.frm"), "Form1.frm");
    EXPECT_EQ(Read("fOrM1.frm"), "FORM1.frm");
}

TEST_F(DiskPaths, NamesOfADirectoryAreThoseOnDiskAndInMemory) {
    MemoryFiles memory;
    for (const char* name : {"Sub/a.txt", "Sub/B/c.txt", "Subs/d.txt"}) {
        directory.Write(name, "x");
        memory.WriteWhole(Path(name), "x");
    }
    EXPECT_THAT(files.NamesIn(Path("SUB")), testing::UnorderedElementsAre("a.txt", "B"));
    for (const char* spelled : {"SUB/", "sub\\", "Sub//"})
        EXPECT_EQ(files.NamesIn(Path(spelled)).size(), 2U) << spelled;
    EXPECT_THAT(memory.NamesIn(Path("SUB\\")), testing::UnorderedElementsAre("a.txt", "b"));
    EXPECT_TRUE(files.NamesIn(Path("Sub/a.txt")).empty() && files.NamesIn(Path("none")).empty());
}

TEST_F(DiskPaths, AreMissingWhenNoFileExists) {
    directory.Write("a.txt", "x");
    const std::string longName(300, 'n');
    std::string endless;
    for (int i = 0; i < 200000; ++i)
        endless += "a\\";
    for (const std::string_view path : {""sv, "   "sv, "C:\\Windows\\x.dll"sv, "\\\\server\\share\\x"sv, "a\0b"sv,
                                        std::string_view(longName), std::string_view(endless)}) {
        EXPECT_EQ(files.ReadText(path).error, FileError::NotFound) << path.substr(0, 50);
        EXPECT_FALSE(files.FileExists(path));
        EXPECT_EQ(files.WriteWhole(Path("none/").append(path), "x"), FileError::NotFound);
    }
    EXPECT_EQ(WriteWhole(longName, "x"), FileError::NotFound);
    EXPECT_EQ(directory.FileCount(), 1);
    for (const char* path : {"b.txt", "A.txt\\", "a.txt\\b.txt", "..\\..\\..\\..\\..\\..\\nowhere.txt"})
        EXPECT_EQ(ReadError(path), FileError::NotFound) << path;
}

TEST_F(DiskPaths, ListingsFollowTheDisk) {
    directory.Write("Old.bas", "old");
    EXPECT_EQ(Read("OLD.bas"), "old");
    directory.Write("New.bas", "new");
    EXPECT_EQ(Read("NEW.bas"), "new");
    fs::rename(Path("Old.bas"), Path("olD.bas"));
    EXPECT_EQ(Read("OLD.bas"), "old");
    fs::remove(Path("olD.bas"));
    EXPECT_EQ(ReadError("OLD.bas"), FileError::NotFound);
    directory.Write("Sub/a.bas", "a");
    EXPECT_EQ(Read("SUB/A.bas"), "a");
    fs::rename(Path("Sub"), Path("suB"));
    EXPECT_EQ(Read("SUB/A.bas"), "a");
}

TEST_F(DiskPaths, MayHoldBytesOfTheActivePage) {
    directory.Write("Übung/Würfel.frm", "utf-8");
    directory.Write("f\xFCr.bas", "raw");
    // The second path has its directory in UTF-8, as the file dialog returns it, and the rest in the code page, as in
    // the project file.
    for (const char* path : {"\xDC\x62ung\\W\xFCrfel.frm", "Übung\\w\xDCrfel.frm", "übung\\WÜRFEL.frm"})
        EXPECT_EQ(Read(path), "utf-8") << path;
    for (const char* path : {"f\xFCr.bas", "F\xDCR.bas"})
        EXPECT_EQ(Read(path), "raw");
    // A new file gets a name that the system displays correctly.
    EXPECT_EQ(WriteWhole("\xDC.txt", "x"), FileError::None);
    EXPECT_EQ(directory.Bytes("Ü.txt"), "x");

    const WithCodePage page("932");
    directory.Write("資料/表.bas", "kanji");
    EXPECT_EQ(Read("\x8E\x91\x97\xBF\\\x95\x5C.BAS"), "kanji");  // the second byte of 表 is a "\"
    EXPECT_EQ(Read("資料\\\x95\x5C.bas"), "kanji");
}

TEST_F(DiskPaths, NamesAreFoundWhateverPageTheyAreWrittenIn) {
    directory.Write("классы/Счёт.cls", "cyrillic");
    directory.Write("資料/表.bas", "kanji");
    EXPECT_EQ(Read("\xEA\xEB\xE0\xF1\xF1\xFB\\\xD1\xF7\xB8\xF2.cls"), "cyrillic");
    EXPECT_EQ(Read("\x8E\x91\x97\xBF\\\x95\x5C.bas"), "kanji");
    EXPECT_TRUE(files.FileExists(Path("\xCA\xEB\xE0\xF1\xF1\xFB\\\xD1\xF7\xB8\xF2.CLS")));
    EXPECT_EQ(ReadError("\xEA\xEB\xE0\xF1\xF1\xFB\\\xD1\xF7\xB8\xF2.bas"), FileError::NotFound);
    directory.Write("\xD1\xF7\xB8\xF2.bas", "bytes");  // a file system without UTF-8 has the very bytes
    EXPECT_EQ(Read("\xD1\xF7\xB8\xF2.bas"), "bytes");
}

TEST_F(DiskPaths, LinksAreFollowed) {
    directory.Write("real/Deep/a.bas", "a");
    directory.Write("real/b.bas", "beside the target");
    directory.Write("c.bas", "beside the link");
    fs::create_directory_symlink(Path("real/Deep"), Path("Link"));
    EXPECT_EQ(Read("link\\..\\B.bas"), "beside the target");
    EXPECT_EQ(Read("link\\..\\C.bas"), "beside the link");
    fs::create_symlink("nowhere", Path("dangling"));
    EXPECT_EQ(ReadError("dangling"), FileError::NotFound);
}

TEST_F(DiskReading, ReportsWhatCannotBeRead) {
    fs::create_directory(Path("Dir.bas"));
    EXPECT_EQ(ReadError("DIR.bas"), FileError::IsDirectory);
    EXPECT_FALSE(files.FileExists(Path("Dir.bas")));
    ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0666), 0);
    EXPECT_EQ(ReadError("pipe"), FileError::NotReadable);
    EXPECT_FALSE(files.FileExists(Path("pipe")));
    EXPECT_EQ(files.ReadText("/dev/zero").error, FileError::NotReadable);
    chmod(directory.Write("secret.bas", "x").c_str(), 0);
    const WithoutRootRights rights;
    EXPECT_EQ(ReadError("SECRET.bas"), FileError::NoPermission);
}

TEST_F(DiskReading, TakesFilesOfEverySize) {
    EXPECT_EQ(files.ReadText(directory.Write("empty", "")).error, FileError::None);
    // Sizes around that of the reading buffer, and one that conversion enlarges.
    for (const std::size_t size : {262143u, 262144u, 262145u, 600000u}) {
        const std::string bytes(size, 'x');
        EXPECT_EQ(files.ReadText(directory.Write("big", bytes)).text, bytes);
        EXPECT_EQ(files.ReadText(directory.Write("big", bytes + "\n")).text, bytes + "\r\n");
    }
    EXPECT_THAT(files.ReadText("/proc/self/status").text, testing::HasSubstr("Pid:"));  // reports a size of 0
    constexpr std::size_t kLarge = 300'000'000;
    fs::resize_file(directory.Write("large", ""), kLarge);
    EXPECT_EQ(Read("large").size(), kLarge);
    fs::resize_file(Path("large"), 2'000'000'000);
    EXPECT_EQ(ReadError("large"), FileError::TooLarge);
}

TEST_F(DiskReading, TakesStretchesOfAFileAsInMemory) {
    directory.Write("Sub/A.bin", "0123456789");
    const MemoryFiles memory{{Path("Sub/A.bin"), "0123456789"}};
    const std::string path = Path("sub\\a.BIN");
    for (const auto& [from, length, bytes] : {std::tuple(0, 4, "0123"), std::tuple(8, 4, "89"), std::tuple(10, 4, ""),
                                              std::tuple(50, 4, ""), std::tuple(0, 99, "0123456789")}) {
        EXPECT_EQ(files.ReadStretch(path, from, length).bytes, bytes);
        EXPECT_EQ(memory.ReadStretch(path, from, length).bytes, bytes);
    }
    EXPECT_EQ(files.ReadStretch(Path("none"), 0, 4).error, FileError::NotFound);
    EXPECT_EQ(files.ReadStretch(Path("Sub"), 0, 4).error, FileError::IsDirectory);
}

TEST_F(DiskReading, ReturnsTheTimeOfTheLastChange) {
    const std::string path = directory.Write("a", "x");
    const timespec times[2] = {{1000, 0}, {1'600'000'000, 123'000'000}};
    ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    EXPECT_EQ(files.DateLastModified(path), 1'600'000'000'123'000'000);
    EXPECT_EQ(files.ReadText(path).dateLastModified, 1'600'000'000'123'000'000);
    EXPECT_EQ(files.DateLastModified(Path("none")), 0);
}

TEST_F(DiskWriting, ReplacesWholeAndKeepsPermissionsAndLinks) {
    EXPECT_EQ(WriteWhole("Report.txt", "1\n"), FileError::None);
    chmod(Path("Report.txt").c_str(), 0640);
    EXPECT_EQ(WriteWhole("REPORT.txt", "2"), FileError::None);
    EXPECT_EQ(directory.Bytes("Report.txt"), "2");
    EXPECT_EQ(fs::status(Path("Report.txt")).permissions(), fs::perms(0640));
    fs::create_symlink("Report.txt", Path("link"));
    EXPECT_EQ(WriteWhole("link", "3"), FileError::None);
    EXPECT_TRUE(fs::is_symlink(Path("link")));
    EXPECT_EQ(directory.Bytes("Report.txt"), "3");
    EXPECT_EQ(directory.FileCount(), 2);  // leaves no temporary file
}

TEST_F(DiskWriting, RefusesWhatItMustNotReplaceAndAppendsToExistingFilesOnly) {
    EXPECT_EQ(Append("Deaths.txt"), FileError::NotFound);
    EXPECT_EQ(directory.FileCount(), 0);
    directory.Write("Deaths.txt", "1\r\n");
    EXPECT_EQ(Append("deaths.TXT"), FileError::None);
    EXPECT_EQ(directory.Bytes("Deaths.txt"), "1\r\n2\n");
    EXPECT_EQ(WriteWhole("no/such/a.txt", "x"), FileError::NotFound);
    EXPECT_EQ(WriteWhole("", "x"), FileError::IsDirectory);
    ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0666), 0);
    EXPECT_EQ(WriteWhole("pipe", "x"), FileError::NotWritable);
    EXPECT_EQ(Append("pipe"), FileError::NotWritable);

    chmod(directory.Write("fixed.txt", "old").c_str(), 0444);
    fs::create_directory(Path("closed"));
    chmod(Path("closed").c_str(), 0555);
    chmod(Path().c_str(), 0777);
    const WithoutRootRights rights;
    EXPECT_EQ(WriteWhole("fixed.txt", "new"), FileError::NoPermission);
    EXPECT_EQ(Append("fixed.txt"), FileError::NoPermission);
    EXPECT_EQ(WriteWhole("closed/a.txt", "new"), FileError::NoPermission);
    EXPECT_EQ(MakeDirectory("closed/sub"), FileError::NoPermission);
    EXPECT_EQ(directory.Bytes("fixed.txt"), "old");
}

TEST_F(DiskWriting, MakesDirectoriesWithTheirParents) {
    for (const char* path : {"A\\B\\C\\", "a/b/D", "A"})
        EXPECT_EQ(MakeDirectory(path), FileError::None) << path;
    EXPECT_TRUE(fs::is_directory(Path("A/B/C")) && fs::is_directory(Path("A/B/D")));
    directory.Write("file", "x");
    for (const char* path : {"file", "FILE/sub"})
        EXPECT_EQ(MakeDirectory(path), FileError::NotWritable) << path;
}

}  // namespace
