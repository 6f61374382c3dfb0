#include "project/start.h"

#include "shell/clsText.h"
#include "shell/operations.h"
#include "shell/program.h"
#include "shell/settings.h"
#include "support/project_test.h"

namespace {

using Start = ProgramState;

}  // namespace

TEST_F(Start, ReadsSettingsThenTheLanguageTheyNameThenTheRegistry) {
    MemoryFiles files{{"prog/Ostrivane.ini", "[ALLGEMEIN]\r\nLanguage=german\r\nWin32=0\r\n"},
                      {"prog/Languages/german.txt", "Deutsch\r\n"},
                      {"prog/Languages/english.txt", "English\r\n"}};
    SettingsFile settings(files, "prog/Ostrivane.ini");
    MemoryRegistry registry;
    registry.WriteValue(RegistryRoot::ClassesRoot, "CLSID\\{1}", "", "One");
    registry.WriteValue(RegistryRoot::ClassesRoot, "CLSID\\{2}\\TypeLib", "", "Two");
    gCLSIDKeys = {"{0}"};
    StartProgram(files, settings, &registry, "prog/");
    EXPECT_EQ(gText.TextNr(Text::OpenProject), "Deutsch");
    EXPECT_THAT(gCLSIDKeys, ElementsAre("{1}", "{2}"));
    EXPECT_EQ(registry.ReadValue(RegistryRoot::LocalMachine, "Software\\Ostrivane", "Version"), ProgramVersion());
}
