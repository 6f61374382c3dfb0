#include "project/start.h"

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
    StartProgram(files, settings, &registry, "prog/");
    EXPECT_EQ(gText.TextNr(Text::OpenProject), "Deutsch");
    EXPECT_EQ(registry.ReadValue(RegistryRoot::LocalMachine, "Software\\Ostrivane", "Version"), ProgramVersion());
}
