#include "shell/settings.h"

#include <gmock/gmock.h>

#include "support/program_state.h"

namespace {

using testing::ElementsAre;
using testing::Pair;

constexpr const char* kIni = "o\\Ostrivane.ini";

class SettingsOfAFile : public ProgramState {
protected:
    void Load(const std::string& lines) {
        files_.WriteWhole(kIni, lines);
        SettingsFile file(files_, kIni);
        settings_ = Optionen_Ini_Load(file);
    }

    MemoryFiles files_;
    Settings settings_;
};

constexpr const char* kDefaults =
    "[ALLGEMEIN]\r\nwin32=1\r\nLoadLibs=1\r\nReadCalls=1\r\nAskAtClosing=0\r\nProcVarsInTreeView=1\r\nLanguage=english\r\nCodePage="
    "auto\r\n"
    "LibraryFolders=\r\nWinePrefix=\r\nRegistryFiles=\r\n"
    "[VISUALIZATION]\r\nFontSize=10\r\nFontName=Courier New\r\nFontBold=0\r\nFontItalic=0\r\n"
    "TreeFontSize=8\r\nTreeFontName=MS Sans Serif\r\nTreeFontBold=0\r\nTreeFontItalic=0\r\n"
    "Col Publics=255\r\nCol Privates=16744448\r\nCol CallLocal=16744448\r\nCol CallIn=8421631\r\n"
    "Col CallOut=255\r\nCol CallMayBe=8388736\r\nCol CondCompile=32896\r\nCol Comment=30720\r\n"
    "Col String=9868950\r\n";

constexpr const char* kOthers =
    "[ALLGEMEIN]\r\nwin32=0\r\nLoadLibs=0\r\nReadCalls=0\r\nAskAtClosing=1\r\nProcVarsInTreeView=-1\r\nLanguage=german\r\nCodePage="
    "1251\r\n"
    "LibraryFolders=/libs;/more libs\r\nWinePrefix=none\r\nRegistryFiles=/old.reg\r\n"
    "[VISUALIZATION]\r\nFontSize=10.5\r\nFontName=Consolas\r\nFontBold=1\r\nFontItalic=0\r\n"
    "TreeFontSize=9\r\nTreeFontName=Tahoma\r\nTreeFontBold=0\r\nTreeFontItalic=1\r\n"
    "Col Publics=1\r\nCol Privates=2\r\nCol CallLocal=3\r\nCol CallIn=4\r\nCol CallOut=5\r\nCol CallMayBe=6\r\n"
    "Col CondCompile=7\r\nCol Comment=8\r\nCol String=-2147483633\r\n";

TEST_F(SettingsOfAFile, MissingFileGivesTheDefaultsAndTheFirstSaveCreatesIt) {
    Load(kOthers);
    SettingsFile file(files_, "new.ini");
    settings_ = Optionen_Ini_Load(file);
    EXPECT_EQ(settings_.OpenSaveDir, "1");
    EXPECT_FALSE(files_.FileExists("new.ini"));
    Optionen_Ini_Save(file, settings_);
    EXPECT_EQ(files_.Bytes("new.ini"), kDefaults);
}

TEST_F(SettingsOfAFile, WhatWasReadIsSavedAgain) {
    Load(kOthers);
    EXPECT_EQ(settings_.CodePage, "1251");
    EXPECT_EQ(settings_.LibraryFolders, (std::vector<std::string>{"/libs", "/more libs"}));
    EXPECT_EQ(settings_.TreeFont, (FontSetting{9, "Tahoma", false, true}));
    EXPECT_EQ((std::vector<int>{settings_.Win32, settings_.LoadLibs, settings_.ReadCalls, settings_.ProcVars,
                                settings_.ColPublics, settings_.ColString}),
              (std::vector<int>{0, 0, 0, -1, 1, -2147483633}));
    settings_.OpenSaveDir = "c:\\other\\";  // saved separately
    SettingsFile file(files_, "new.ini");
    Optionen_Ini_Save(file, settings_);
    EXPECT_EQ(files_.Bytes("new.ini"), kOthers);
}

TEST_F(SettingsOfAFile, OddFontsFallBack) {
    using Case = std::pair<const char*, float>;
    for (const auto& [line, size] : {Case{"FontSize=0", 10.0}, Case{"FontSize=", 10}, Case{"FontSize=big", 10},
                                     Case{"FontSize=10,5", 10.5}, Case{"fontsize = 12.25 pt", 12.25}}) {
        Load("[VISUALIZATION]\r\n" + std::string(line));
        EXPECT_EQ(settings_.CodeFont.size, size) << line;
    }
    Load(
        "[VISUALIZATION]\r\nTreeFontSize=0\r\nTreeFontName=\r\nFontName=\r\nFontBold=-1\r\nFontItalic=2\r\n"
        "TreeFontBold=yes");
    EXPECT_EQ(settings_.CodeFont, (FontSetting{10, "Courier New", true, true}));
    EXPECT_EQ(settings_.TreeFont, (FontSetting{8, "MS Sans Serif", false, false}));
}

TEST_F(SettingsOfAFile, OnlyGermanIsAnotherLanguage) {
    for (const auto& [set, language] : {std::pair{"german", "german"}, {"french", "english"}, {"", "english"}}) {
        Load("[ALLGEMEIN]\r\nLanguage=" + std::string(set));
        EXPECT_EQ(settings_.Language, language) << set;
    }
}

TEST_F(SettingsOfAFile, DirectoryOfTheLastProjectIsSavedAlone) {
    SettingsFile file(files_, kIni);
    settings_.OpenSaveDir = "  c:\\my projects\\ ";
    settings_.Win32 = 0;
    Save_OpenDir(file, settings_);
    EXPECT_EQ(files_.Bytes(kIni), "[ALLGEMEIN]\r\nOpenSaveDir=c:\\my projects\\\r\n");
}

TEST_F(SettingsOfAFile, WindowSizeIsKept) {
    SettingsFile file(files_, kIni);
    EXPECT_EQ(SizeSave_Read(file), WindowSize()) << "with nothing stored the window keeps its design size";
    const WindowSize size{false, "1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12"};
    SizeSave_Write(file, size);
    SettingsFile again(files_, kIni);
    EXPECT_EQ(SizeSave_Read(again), size);
    // A maximised window does not change the stored place.
    SizeSave_Write(again, {true, "91", "92", "93", "94", "95", "6", "7", "8", "9", "10", "11", "12"});
    EXPECT_EQ(SizeSave_Read(again), (WindowSize{true, "1", "2", "3", "4", "95", "6", "7", "8", "9", "10", "11", "12"}));
    // A stored 0 means the design position for two splitters.
    SizeSave_Write(file, {false, "0", "0", "0", "0", "0", "0", "0", "0", "0", "0", "0", "0"});
    EXPECT_EQ(SizeSave_Read(file), (WindowSize{false, "0", "0", "0", "0", "", "", "0", "0", "0", "0", "0", "0"}));
}

}  // namespace
