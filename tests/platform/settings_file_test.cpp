#include "platform/settings_file.h"

#include <gtest/gtest.h>

#include "temp_directory.h"

namespace {

constexpr const char* kPath = "App.ini";

TEST(SettingsReading, FindsKeysWithoutRegardToCase) {
    MemoryFiles files{{kPath,
                       "Early=outside\r\n"
                       "[ALLGEMEIN]\r\n"
                       "; Win32=comment\r\n"
                       "Win32 = 0 \r\n"
                       "win32=second\r\n"
                       "Empty=\r\n"
                       "Name=\"Courier New\"\r\n"
                       "Single=' a '\r\n"
                       "Half=\"a\r\n"
                       "Sum=a=b\r\n"
                       "no equals sign\r\n"
                       "[open\r\n"
                       " [ Visual ] \r\n"
                       "Win32=9\r\n"
                       "Only=1\r\n"
                       "[allgemein]\r\n"
                       "Late=here"}};
    SettingsFile settings(files, kPath);
    struct Case {
        const char* section;
        const char* key;
        const char* value;
    };
    for (const Case& c :
         {Case{"ALLGEMEIN", "Win32", "0"}, Case{"allgemein", "WIN32", "0"}, Case{"visual", "win32", "9"},
          Case{"ALLGEMEIN", "Empty", ""}, Case{"ALLGEMEIN", "Name", "Courier New"}, Case{"ALLGEMEIN", "Single", "a"},
          Case{"ALLGEMEIN", "Half", "\"a"}, Case{"ALLGEMEIN", "Sum", "a=b"}, Case{"ALLGEMEIN", "Late", "here"},
          Case{"ALLGEMEIN", "; Win32", "fallback"}, Case{"ALLGEMEIN", "Early", "fallback"},
          Case{"ALLGEMEIN", "Only", "fallback"}, Case{"none", "Win32", "fallback"}, Case{"open", "Win32", "fallback"}})
        EXPECT_EQ(settings.ReadString(c.section, c.key, "fallback"), c.value) << c.section << ' ' << c.key;
    EXPECT_EQ(settings.ReadString("ALLGEMEIN", "Name", "", 8), "Courier");
}

TEST(SettingsReading, AMissingFileGivesTheFallbacks) {
    MemoryFiles files;
    SettingsFile settings(files, kPath);
    EXPECT_EQ(settings.ReadString("A", "b", "c"), "c");
    EXPECT_FALSE(files.FileExists(kPath));
}

TEST(SettingsWriting, ChangesOnlyWhatWasWritten) {
    MemoryFiles files{
        {kPath, "; mine\r\n[A]\r\nWin32 = 1\r\nOther=x ; y\r\nnoise\r\n\r\n[B]\r\nk=1\r\n\r\n[a]\r\nLate=1\r\n"}};
    SettingsFile settings(files, kPath);
    settings.WriteString("a", "win32", "0");
    settings.WriteString("A", "New", "two\r\nlines ");
    settings.WriteString("A", "late", "2");
    settings.WriteString("b", "Last", "3");
    settings.WriteString("C", "Quoted", "\"q\"");
    EXPECT_EQ(settings.ReadString("A", "WIN32", ""), "0");
    EXPECT_TRUE(settings.Save());
    EXPECT_EQ(files.Bytes(kPath),
              "; mine\r\n[A]\r\nWin32 =0\r\nOther=x ; y\r\nnoise\r\nNew=two  lines\r\n\r\n[B]\r\nk=1\r\nLast=3\r\n\r\n"
              "[a]\r\nLate=2\r\n[C]\r\nQuoted=\"\"q\"\"\r\n");
    EXPECT_EQ(SettingsFile(files, kPath).ReadString("C", "quoted", ""), "\"q\"");
}

TEST(SettingsWriting, KeepsTheLineEndsOfTheFile) {
    MemoryFiles files{{"lf.ini", "[A]\nk=1\n"}, {"mixed.ini", "[A]\nk=1\r\n"}};
    for (const char* path : {"lf.ini", "mixed.ini", "new.ini"}) {
        SettingsFile settings(files, path);
        settings.WriteString("A", "k", "2");
        EXPECT_TRUE(settings.Save());
    }
    EXPECT_EQ(files.Bytes("lf.ini"), "[A]\nk=2\n");
    EXPECT_EQ(files.Bytes("mixed.ini"), "[A]\r\nk=2\r\n");
    EXPECT_EQ(files.Bytes("new.ini"), "[A]\r\nk=2\r\n");
}

TEST(SettingsWriting, LeavesAFileAloneThatCouldNotBeRead) {
    const TempDirectory directory;
    DiskFiles files;
    chmod(directory.Write("App.ini", "[A]\r\nk=1\r\n").c_str(), 0222);
    chmod(directory.Path().c_str(), 0777);
    {
        const WithoutRootRights rights;
        SettingsFile settings(files, directory.Path("App.ini"));
        EXPECT_EQ(settings.ReadString("A", "k", "fallback"), "fallback");
        settings.WriteString("A", "k", "2");
        EXPECT_FALSE(settings.Save());
        EXPECT_FALSE(SettingsFile(files, directory.Path("none/App.ini")).Save());
    }
    chmod(directory.Path("App.ini").c_str(), 0644);
    EXPECT_EQ(directory.Bytes("App.ini"), "[A]\r\nk=1\r\n");
}

TEST(SettingsPath, IsBesideTheProgramOrInTheUsersConfiguration) {
    const TempDirectory directory;
    std::filesystem::create_directory(directory.Path("program"));
    std::filesystem::create_directory(directory.Path("home"));
    const std::string program = directory.Path("program");
    chmod(directory.Path("home").c_str(), 0777);
    EXPECT_EQ(SettingsPath(program, "App.ini"), program + "/App.ini");
    EXPECT_EQ(SettingsPath(program + "\\", "App.ini"), program + "/App.ini");
    EXPECT_EQ(SettingsPath(program + "/", "App.ini"), program + "/App.ini");

    chmod(program.c_str(), 0555);
    const WithEnvironment home("HOME", directory.Path("home").c_str());
    const WithoutRootRights rights;
    {
        const WithEnvironment config("XDG_CONFIG_HOME", directory.Path("home/cfg").c_str());
        EXPECT_EQ(SettingsPath(program, "App.ini"), directory.Path("home/cfg/ostrivane/App.ini"));
        EXPECT_TRUE(std::filesystem::is_directory(directory.Path("home/cfg/ostrivane")));
    }
    const WithEnvironment config("XDG_CONFIG_HOME", nullptr);
    EXPECT_EQ(SettingsPath(program, "App.ini"), directory.Path("home/.config/ostrivane/App.ini"));
}

TEST(LeadingNumber, TakesTheNumberAtTheStart) {
    struct Case {
        const char* text;
        double number;
    };
    for (const Case& c :
         {Case{"10", 10}, Case{"10,5", 10.5}, Case{" -3.25 twips", -3.25}, Case{"+7", 7}, Case{".5", 0.5},
          Case{",5x", 0.5}, Case{"1e2", 100}, Case{"16711935", 16711935}, Case{"", 0}, Case{"x", 0}, Case{"-", 0},
          Case{"+-1", 0}, Case{"inf", 0}, Case{"nan", 0}, Case{"1e999", 0}, Case{"1,2,3", 1.2}, Case{"0x10", 0}})
        EXPECT_EQ(LeadingNumber(c.text), c.number) << c.text;
}

}  // namespace
