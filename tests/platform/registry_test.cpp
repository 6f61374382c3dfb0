#include "platform/registry.h"

#include <gmock/gmock.h>

#include "temp_directory.h"

namespace {

using testing::ElementsAre;
using testing::Optional;

constexpr RegistryRoot kClasses = RegistryRoot::ClassesRoot;
constexpr RegistryRoot kMachine = RegistryRoot::LocalMachine;

TEST(Registry, ValuesAreFoundWithoutRegardToCase) {
    MemoryRegistry registry;
    registry.WriteValue(kClasses, "CLSID\\{B}\\ProgID", "", "Lib.Class");
    registry.WriteValue(kClasses, "\\clsid\\{A}\\", "Name", "1");
    registry.WriteValue(kClasses, "CLSID\\{a}", "NAME", "2");
    EXPECT_THAT(registry.ReadValue(kClasses, "clsid\\{b}\\progid", ""), Optional(std::string("Lib.Class")));
    EXPECT_THAT(registry.ReadValue(kClasses, "CLSID\\\\{A}", "name"), Optional(std::string("2")));
    EXPECT_EQ(registry.ReadValue(kClasses, "CLSID\\{A}", ""), std::nullopt);
    EXPECT_EQ(registry.ReadValue(kMachine, "CLSID\\{A}", "Name"), std::nullopt);
    EXPECT_THAT(registry.SubKeys(kClasses, "CLSID"), ElementsAre("{B}", "{A}"));
    EXPECT_THAT(registry.SubKeys(kClasses, "none"), ElementsAre());
}

TEST(FileRegistry, KeepsValuesBetweenRunsAndSkipsDamagedLines) {
    MemoryFiles files{{"r", "HKEY_LOCAL_MACHINE\\A\tn\tv%0\nHKEY_LOCAL_MACHINE\\B\tn\nHKEY_WRONG\\C\tn\tv\n\nHKEY_"}};
    const std::string odd = "a\tb\r\n%41 \xFC";
    FileRegistry first(files, "r");
    EXPECT_THAT(first.ReadValue(kMachine, "A", "n"), Optional(std::string("v%0")));
    EXPECT_THAT(first.SubKeys(kMachine, ""), ElementsAre("A"));
    EXPECT_EQ(first.WriteValue(kMachine, "a", "N", "w"), 0);
    EXPECT_EQ(files.Bytes("r"), "HKEY_LOCAL_MACHINE\\a\tN\tw\r\n");
    EXPECT_EQ(first.WriteValue(kMachine, "Software\\Ost\trivane", odd, odd), 0);
    EXPECT_EQ(FileRegistry(files, "r").WriteValue(kClasses, "", "", "root"), 0);
    const FileRegistry registry(files, "r");
    EXPECT_THAT(registry.ReadValue(kMachine, "A", "n"), Optional(std::string("w")));
    EXPECT_THAT(registry.ReadValue(kMachine, "Software\\Ost\trivane", odd), Optional(odd));
    EXPECT_THAT(registry.ReadValue(kClasses, "", ""), Optional(std::string("root")));
}

TEST(FileRegistry, ReportsAFailedWrite) {
    const TempDirectory directory;
    DiskFiles files;
    EXPECT_EQ(FileRegistry(files, directory.Path("new/r")).WriteValue(kMachine, "A", "n", "v"), 0);
    FileRegistry registry(files, directory.Path());
    EXPECT_NE(registry.WriteValue(kMachine, "A", "n", "v"), 0);
    EXPECT_EQ(registry.ReadValue(kMachine, "A", "n"), std::nullopt);
}

}  // namespace
