#include "platform/class_registry.h"

#include <gmock/gmock.h>

#include <fstream>

#include "platform/windows_paths.h"

namespace {

using testing::ElementsAre;
using testing::Optional;

constexpr RegistryRoot kClasses = RegistryRoot::ClassesRoot;
constexpr RegistryRoot kMachine = RegistryRoot::LocalMachine;

std::string OfCorpus(const std::string& name) {
    std::ifstream file(OSTRIVANE_SOURCE_DIR "/fuzz/corpus/registry/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

const std::string kUserReg =
    "WINE REGISTRY Version 2\n;; All keys relative to REGISTRY\\\\User\\\\S-1-5-21-0-0-0-1000\n\n"
    "[Software\\\\Classes\\\\CLSID\\\\{A}] 1\n@=\"the user's\"\n";

MemoryFiles Prefix() {
    return {{"w/system.reg", OfCorpus("prefix.reg")}, {"w/user.reg", kUserReg}};
}

std::string Utf16(std::string_view ascii) {
    std::string bytes = "\xFF\xFE";
    for (const char c : ascii)
        bytes.append(1, c).append(1, '\0');
    return bytes;
}

// The default value of a key of the classes.
std::string Default(const Registry& registry, std::string_view key) {
    return registry.ReadValue(kClasses, key, "").value_or("-");
}

}  // namespace

TEST(ClassRegistry, AWinePrefixAnswersAsForAProgramOf32Bits) {
    const MemoryFiles files = Prefix();
    const ClassRegistry registry(files, {{}, "w"});
    EXPECT_FALSE(registry.IsRead());
    EXPECT_EQ(Default(registry, "clsid\\{a}"), "the user's");
    EXPECT_TRUE(registry.IsRead());
    EXPECT_TRUE(registry.Is64Bit());
    EXPECT_THAT(registry.ReadValue(kMachine, "Software\\Classes\\CLSID\\{a}", ""),
                Optional(std::string("Tree \"one\" \xE2\x82\xAC\xC3\xA4"
                                     "bcA")));
    EXPECT_EQ(Default(registry, "CLSID\\{B}\\ProgID"), "B.32");
    EXPECT_THAT(registry.ReadValue(kClasses, "CLSID\\{B}\\ProgID", "number"), Optional(std::string("31")));
    EXPECT_THAT(registry.ReadValue(kClasses, "CLSID\\{B}\\ProgID", "Wide"), Optional(std::string("A\xEF\xBF\xBD")));
    EXPECT_EQ(registry.ReadValue(kClasses, "CLSID\\{B}\\ProgID", "Binary"), std::nullopt);
    EXPECT_EQ(Default(registry, "Key\\with ] bracket"), "odd");
    EXPECT_EQ(Default(registry, "CLSID\\{C}"), "-");
    EXPECT_THAT(registry.SubKeys(kClasses, "CLSID"), ElementsAre("{B}", "{A}", "{B}x41"));
    EXPECT_THAT(registry.SubKeys(kClasses, "CLSID\\{B}"), ElementsAre("ProgID", "ToolboxBitmap32", "TypeLib"));
    EXPECT_THAT(registry.SubKeys(kClasses, "TypeLib\\{11}\\1.0"), ElementsAre("0"));
    EXPECT_THAT(registry.ClassesOf("11"), ElementsAre("{A}", "{B}"));
    EXPECT_THAT(registry.Unreadable(), ElementsAre());
}

TEST(ClassRegistry, ExportedFilesAreImportedOneAfterTheOther) {
    const std::string second =
        "REGEDIT4\n\n[-HKEY_CLASSES_ROOT\\CLSID\\{A}]\n\n[HKEY_CLASSES_ROOT\\CLSID\\{B}\\InprocServer32]\n"
        "\"ThreadingModel\"=-\n[HKEY_CLASSES_ROOT\\CLSID\\{D}\\ProgID]\n@=hex(2):64,\\\n  e4,00\n"
        "[-HKEY_CLASSES_ROOT\\TypeLib]\n[HKEY_CLASSES_ROOT\\TypeLib\\{12}\\1.0]\n@=\"new\"\n";
    const MemoryFiles files{{"1.reg", Utf16(OfCorpus("exported.reg"))}, {"2.reg", second}, {"3.reg", "no registry"}};
    const ClassRegistry one(files, {{"1.reg"}, {}});
    EXPECT_EQ(Default(one, "CLSID\\{A}"), "line\r\n[no key]\r\nend");
    EXPECT_EQ(Default(one, "CLSID\\{B}\\InprocServer32"), "C:\\b");
    EXPECT_EQ(Default(one, "a [b] c"), "C:\\user \"x\"");
    EXPECT_THAT(one.ClassesOf("{11}"), ElementsAre("{A}", "{B}"));

    const ClassRegistry all(files, {{"1.reg", "2.reg", "3.reg", "absent.reg"}, {}});
    EXPECT_EQ(Default(all, "CLSID\\{A}"), "-");
    EXPECT_EQ(Default(all, "CLSID\\{A}\\TypeLib"), "-");
    EXPECT_EQ(Default(all, "CLSID\\{D}\\ProgID"), "d\xE4");
    EXPECT_THAT(all.ClassesOf("{11}"), ElementsAre("{B}"));
    EXPECT_THAT(all.SubKeys(kClasses, "CLSID"), ElementsAre("{B}", "{D}"));
    EXPECT_THAT(all.SubKeys(kClasses, "TypeLib"), ElementsAre("{12}"));
    EXPECT_EQ(Default(all, "TypeLib\\{11}\\1.0"), "-");
    EXPECT_THAT(all.Unreadable(), ElementsAre("3.reg", "absent.reg"));
}

TEST(ClassRegistry, AChangedFileIsReadAgain) {
    MemoryFiles files = Prefix();
    ClassRegistry registry(files, {{}, "w"});
    EXPECT_EQ(Default(registry, "CLSID\\{A}"), "the user's");
    registry.ForgetIfChanged();
    EXPECT_TRUE(registry.IsRead());
    files.WriteWhole("w/user.reg", "WINE REGISTRY Version 2\n");
    registry.ForgetIfChanged();
    EXPECT_NE(Default(registry, "CLSID\\{A}"), "the user's");
}

TEST(WindowsPaths, LeadIntoThePrefix) {
    const MemoryFiles files = Prefix();
    const ClassRegistry registry(files, {{}, "w"});
    const WindowsPaths paths(registry);
    EXPECT_EQ(paths.Plain("\"C:\\a b\\c.exe\" /automation"), "C:\\a b\\c.exe");
    EXPECT_EQ(paths.Plain("%systemroot%\\x.dll"), "C:\\windows\\x.dll");
    EXPECT_EQ(paths.Plain("100%\\%none%\\%%SystemDrive%"), "100%\\%none%\\%C:");
    EXPECT_EQ(paths.Plain("\\\\?\\UNC\\server\\x.dll"), "\\\\server\\x.dll");
    EXPECT_THAT(paths.PlacesOf("\\\\?\\D:\\X\\y.dll"), ElementsAre("w/dosdevices/d:/X/y.dll"));
    EXPECT_THAT(paths.PlacesOf("C:/Windows/System32/x.ocx"),
                ElementsAre("w/dosdevices/c:/windows/syswow64/x.ocx", "w/drive_c/windows/syswow64/x.ocx",
                            "w/dosdevices/c:/Windows/System32/x.ocx", "w/drive_c/Windows/System32/x.ocx"));
    EXPECT_THAT(paths.PlacesOf("\\\\?\\unix\\home\\x.dll"), ElementsAre("/home/x.dll"));
    EXPECT_EQ(paths.PlacesOf("x.dll").front(), "w/dosdevices/c:/windows/syswow64/x.dll");
    EXPECT_THAT(WindowsPaths(ClassRegistry(files, {})).PlacesOf("C:\\x.dll"), ElementsAre());
}

TEST(WindowsPaths, VariablesThatNameEachOtherEnd) {
    std::string text =
        "REGEDIT4\n[HKEY_LOCAL_MACHINE\\System\\CurrentControlSet\\Control\\Session Manager\\Environment]\n";
    text += "\"a\"=\"%b%%b%%b%%b%%b%%b%%b%%b%\"\n\"b\"=\"%a%%a%%a%%a%%a%%a%%a%%a%\"\n";
    const MemoryFiles files{{"1.reg", text}};
    const ClassRegistry registry(files, {{"1.reg"}, {}});
    EXPECT_LE(WindowsPaths(registry).Plain("%a%%a%%a%%a%").size(), 100000U);
}
