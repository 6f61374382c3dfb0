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

std::string OfCorpus(const std::string& name) {
    return DiskFiles().ReadText(OSTRIVANE_SOURCE_DIR "/fuzz/corpus/settings/" + name).text;
}

TEST_F(SettingsOfAFile, MissingFileGivesTheDefaultsAndTheFirstSaveCreatesIt) {
    Load(OfCorpus("others.ini"));
    SettingsFile file(files_, "new.ini");
    settings_ = Optionen_Ini_Load(file);
    EXPECT_EQ(settings_.OpenSaveDir, "1");
    EXPECT_FALSE(files_.FileExists("new.ini"));
    Optionen_Ini_Save(file, settings_);
    EXPECT_EQ(files_.Bytes("new.ini"), OfCorpus("defaults.ini"));
}

TEST_F(SettingsOfAFile, WhatWasReadIsSavedAgain) {
    Load(OfCorpus("others.ini"));
    EXPECT_EQ(settings_.CodePage, "1251");
    EXPECT_EQ(settings_.LibraryFolders, (std::vector<std::string>{"/libs", "/more libs"}));
    EXPECT_EQ(settings_.TreeFont, (FontSetting{9, "Tahoma", false, true}));
    EXPECT_EQ((std::vector<int>{settings_.Win32, settings_.LoadLibs, settings_.ReadCalls, settings_.ProcVars,
                                settings_.ColPublics, settings_.ColString}),
              (std::vector<int>{0, 0, 0, -1, 1, -2147483633}));
    settings_.OpenSaveDir = "c:\\other\\";  // saved separately
    SettingsFile file(files_, "new.ini");
    Optionen_Ini_Save(file, settings_);
    EXPECT_EQ(files_.Bytes("new.ini"), OfCorpus("others.ini"));
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
