#include "platform/settings_file.h"

#include <gtest/gtest.h>

#include <array>

#include "temp_directory.h"

namespace {

using namespace std::string_view_literals;

constexpr const char* kPath = "App.ini";

TEST(SettingsReading, FindsKeysWithoutRegardToCase) {
    MemoryFiles files{{kPath,
                       "Early=outside\r\n[ALLGEMEIN]\r\n; Win32=comment\r\nWin32 = 0 \r\nwin32=second\r\nEmpty=\r\n"
                       "Name=\"Courier New\"\r\nSingle=' a '\r\nHalf=\"a\r\nSum=a=b\r\nno equals sign\r\n[open\r\n"
                       " [ Visual ] \r\nWin32=9\r\nOnly=1\r\n[allgemein]\r\nLate=here"}};
    SettingsFile settings(files, kPath);
    using Case = std::array<const char*, 3>;
    for (const auto& [section, key, value] :
         {Case{"ALLGEMEIN", "Win32", "0"}, Case{"allgemein", "WIN32", "0"}, Case{"visual", "win32", "9"},
          Case{"ALLGEMEIN", "Empty", ""}, Case{"ALLGEMEIN", "Name", "Courier New"}, Case{"ALLGEMEIN", "Single", "a"},
          Case{"ALLGEMEIN", "Half", "\"a"}, Case{"ALLGEMEIN", "Sum", "a=b"}, Case{"ALLGEMEIN", "Late", "here"},
          Case{"ALLGEMEIN", "; Win32", "-"}, Case{"ALLGEMEIN", "Early", "-"}, Case{"ALLGEMEIN", "Only", "-"},
          Case{"none", "Win32", "-"}, Case{"open", "Win32", "-"}})
        EXPECT_EQ(settings.ReadString(section, key, "-"), value) << section << ' ' << key;
    EXPECT_EQ(settings.ReadString("ALLGEMEIN", "Name", "", 8), "Courier");
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
    EXPECT_TRUE(settings.Save());
    EXPECT_EQ(files.Bytes(kPath),
              "; mine\r\n[A]\r\nWin32 =0\r\nOther=x ; y\r\nnoise\r\nNew=two  lines\r\n\r\n[B]\r\nk=1\r\nLast=3\r\n\r\n"
              "[a]\r\nLate=2\r\n[C]\r\nQuoted=\"\"q\"\"\r\n");
    EXPECT_EQ(SettingsFile(files, kPath).ReadString("C", "quoted", ""), "\"q\"");
}

TEST(SettingsWriting, KeepsTheLineEndsOfTheFile) {
    MemoryFiles files{{kPath, "[A]\nk=1\n"}};
    SettingsFile settings(files, kPath);
    settings.WriteString("A", "k", "2");
    EXPECT_TRUE(settings.Save());
    EXPECT_EQ(files.Bytes(kPath), "[A]\nk=2\n");
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
    const std::string program = directory.Path("program");
    const std::string home = directory.Path("home");
    for (const std::string& path : {program, home}) {
        std::filesystem::create_directory(path);
        chmod(path.c_str(), 0777);
    }
    for (const char* separator : {"", "\\", "/"})
        EXPECT_EQ(SettingsPath(program + separator, "App.ini"), program + "/App.ini");

    chmod(program.c_str(), 0555);
    const WithEnvironment userHome("HOME", home.c_str());
    const WithoutRootRights rights;
    for (const char* config : {"/cfg", "/.config"}) {
        const WithEnvironment named("XDG_CONFIG_HOME", config == "/cfg"sv ? (home + config).c_str() : nullptr);
        EXPECT_EQ(SettingsPath(program, "App.ini"), home + config + "/ostrivane/App.ini");
        EXPECT_TRUE(std::filesystem::is_directory(home + config + "/ostrivane"));
    }
}

TEST(LeadingNumber, TakesTheNumberAtTheStart) {
    using Case = std::pair<const char*, double>;
    for (const auto& [text, number] :
         {Case{"10", 10.0}, Case{"10,5", 10.5}, Case{" -3.25 twips", -3.25}, Case{"+7", 7}, Case{",5x", 0.5},
          Case{"1e2", 100}, Case{"16711935", 16711935}, Case{"", 0}, Case{"x", 0}, Case{"-", 0}, Case{"+-1", 0},
          Case{"inf", 0}, Case{"nan", 0}, Case{"1e999", 0}, Case{"1,2,3", 1.2}, Case{"0x10", 0}})
        EXPECT_EQ(LeadingNumber(text), number) << text;
}

}  // namespace
