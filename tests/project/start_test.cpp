#include "project/start.h"

#include <gmock/gmock.h>

#include "shell/clsText.h"
#include "shell/operations.h"
#include "shell/program.h"
#include "shell/settings.h"
#include "support/ports.h"
#include "support/program_state.h"
#include "support/read_project.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

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
    EXPECT_EQ(gText.TextNr(1), "Deutsch");
    EXPECT_THAT(gCondComps, ElementsAre(Pair("", ""), Pair("win32", "-1"), Pair("win16", "0")));
    EXPECT_THAT(gCLSIDKeys, ElementsAre("{1}", "{2}"));
    EXPECT_EQ(registry.ReadValue(RegistryRoot::LocalMachine, "Software\\Ostrivane", "Version"), ProgramVersion());
}

TEST_F(Start, GlobalsAreAsBeforeTheFirstProject) {
    ReadProject({{"P.vbp", "CondComp=\"X = 1\"\r\nModule=A; A.bas\r\nModule=B; B.bas\r\n"}, {"A.bas", "Dim a\r\n"}});
    gAbort = true;
    gSplitMode = "Calls";
    gContentMode = "Graph";
    gOptWin32 = 0;
    gCLSIDKeys = {"{1}"};
    InitGlobals();
    EXPECT_EQ(gProjekt, nullptr);
    EXPECT_EQ(modMain::GetObjectFromCodePath("a"), nullptr);
    EXPECT_EQ(gPublicNameSpace.Count(), 0);
    EXPECT_FALSE(gAbort);
    EXPECT_EQ(gSplitMode, "Content");
    EXPECT_EQ(gContentMode, "Code");
    EXPECT_THAT(gCondComps, ElementsAre(Pair("", ""), Pair("win32", "-1"), Pair("win16", "0")));
    EXPECT_THAT(gCLSIDKeys, IsEmpty());
    EXPECT_THAT(Problems(), IsEmpty());
}
