#include "platform/registry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "temp_directory.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

constexpr RegistryRoot kClasses = RegistryRoot::ClassesRoot;
constexpr RegistryRoot kMachine = RegistryRoot::LocalMachine;

TEST(Registry, ValuesAreFoundWithoutRegardToCase) {
    MemoryRegistry registry;
    EXPECT_EQ(registry.WriteValue(kClasses, "CLSID\\{B}\\ProgID", "", "Lib.Class"), 0);
    registry.WriteValue(kClasses, "\\clsid\\{A}\\", "Name", "1");
    registry.WriteValue(kClasses, "CLSID\\{a}", "NAME", "2");
    EXPECT_THAT(registry.ReadValue(kClasses, "clsid\\{b}\\progid", ""), Optional(std::string("Lib.Class")));
    EXPECT_THAT(registry.ReadValue(kClasses, "CLSID\\\\{A}", "name"), Optional(std::string("2")));
    EXPECT_EQ(registry.ReadValue(kClasses, "CLSID\\{A}", ""), std::nullopt);
    EXPECT_EQ(registry.ReadValue(kClasses, "CLSID\\{C}", ""), std::nullopt);
    EXPECT_EQ(registry.ReadValue(kMachine, "CLSID\\{A}", "Name"), std::nullopt);
    EXPECT_THAT(registry.SubKeys(kClasses, "CLSID"), ElementsAre("{B}", "{A}"));
    EXPECT_THAT(registry.SubKeys(kClasses, ""), ElementsAre("CLSID"));
    EXPECT_THAT(registry.SubKeys(kClasses, "none"), IsEmpty());
}

TEST(FileRegistry, KeepsValuesFromRunToRun) {
    MemoryFiles files;
    const std::string odd = "a\tb\r\n%41 \xFC";
    {
        FileRegistry registry(files, "cfg/registry.txt");
        EXPECT_EQ(registry.ReadValue(kMachine, "Software\\Ostrivane", "Version"), std::nullopt);
        EXPECT_EQ(registry.WriteValue(kMachine, "Software\\Ostrivane", "Version", "1.0.0"), 0);
        EXPECT_EQ(registry.WriteValue(kMachine, "software\\OSTRIVANE", "version", "1.0.1"), 0);
        EXPECT_EQ(registry.WriteValue(kMachine, "Software\\Ost\trivane", odd, odd), 0);
    }
    EXPECT_EQ(FileRegistry(files, "cfg/registry.txt").WriteValue(kClasses, "", "", "root"), 0);
    const FileRegistry registry(files, "cfg/registry.txt");
    EXPECT_THAT(registry.ReadValue(kMachine, "Software\\Ostrivane", "Version"), Optional(std::string("1.0.1")));
    EXPECT_THAT(registry.ReadValue(kMachine, "Software\\Ost\trivane", odd), Optional(odd));
    EXPECT_THAT(registry.ReadValue(kClasses, "", ""), Optional(std::string("root")));
    EXPECT_THAT(files.Bytes("cfg/registry.txt"),
                testing::StartsWith("HKEY_LOCAL_MACHINE\\software\\OSTRIVANE\tversion\t1.0.1\r\n"));
}

TEST(FileRegistry, PassesOverTornLines) {
    MemoryFiles files{{"r", "HKEY_LOCAL_MACHINE\\A\tn\tv%0\nHKEY_LOCAL_MACHINE\\B\tn\nHKEY_WRONG\\C\tn\tv\n\nHKEY_"}};
    FileRegistry registry(files, "r");
    EXPECT_THAT(registry.ReadValue(kMachine, "A", "n"), Optional(std::string("v%0")));
    EXPECT_THAT(registry.SubKeys(kMachine, ""), ElementsAre("A"));
    EXPECT_EQ(registry.WriteValue(kMachine, "A", "n", "w"), 0);
    EXPECT_EQ(files.Bytes("r"), "HKEY_LOCAL_MACHINE\\A\tn\tw\r\n");
}

TEST(FileRegistry, ReportsAFailedWrite) {
    const TempDirectory directory;
    DiskFiles files;
    EXPECT_EQ(FileRegistry(files, directory.Path("new/r")).WriteValue(kMachine, "A", "n", "v"), 0);
    EXPECT_EQ(directory.Bytes("new/r"), "HKEY_LOCAL_MACHINE\\A\tn\tv\r\n");
    FileRegistry registry(files, directory.Path());
    EXPECT_NE(registry.WriteValue(kMachine, "A", "n", "v"), 0);
    EXPECT_EQ(registry.ReadValue(kMachine, "A", "n"), std::nullopt);
}

}  // namespace
