// The user's settings: globals while the program runs, one sectioned file in between.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "platform/settings_file.h"

// Section "ALLGEMEIN"
extern std::string gOpenSaveDir;  // directory of the last project opened
extern std::int16_t gOptWin32;    // 1: the project is taken as compiled for 32 bits
extern std::int16_t gOptLoadLibs;
extern std::int16_t gOptProcVars;
extern std::string gOptCodePage;  // "auto" or the number of a code page

// Section "VISUALIZATION"; colours are 32-bit BGR values
struct FontSetting {
    float size;
    std::string name;
    bool bold = false;
    bool italic = false;
    bool operator==(const FontSetting&) const = default;
};
extern FontSetting gCodeFont;
extern FontSetting gTreeFont;
extern std::int32_t gColPublics, gColPrivates, gColCallLocal, gColCallIn, gColCallOut, gColCallMayBe, gColCondCompile,
    gColComment, gColString;

/// Layout of the right side, "Content" or "Calls", and what the content area shows, "Code", "Graph" or "Chart".
extern std::string gSplitMode, gContentMode;

/// Path of the settings file.
extern std::string gIniFile;

/// Conditional compilation constants of the project, (name, value), both lower case; row 0 stays empty,
/// rows 1 and 2 are win32 and win16.
extern std::vector<std::pair<std::string, std::string>> gCondComps;

/// All settings back to their defaults.
void Optionen_Defaults();
/// Reads all keys but the window's, makes the language known to gText and the code page the active one.
/// A file that is absent gives the defaults.
void Optionen_Ini_Load(SettingsFile& file);
/// Writes them. A write that fails isn't noticed.
void Optionen_Ini_Save(SettingsFile& file);
/// Writes the directory of the last project only.
void Save_OpenDir(SettingsFile& file);

/// Rows 1 and 2 of gCondComps, as gOptWin32 has it: at the start from its default, and when the user changes the
/// option. Reading the settings leaves them alone.
void CondComps_Win32_Win16();

/// Geometry of the main window and of its splitters in twips; an empty text is "not stored".
struct WindowSize {
    bool maximised = false;
    std::string Top, Left, Height, Width;
    std::string SplitX_Content, SplitY_Content, SplitX_Content_Hide, SplitY_Content_Hide;
    std::string SplitX_Calls, SplitY_Calls, SplitX_Calls_Hide, SplitY_Calls_Hide;
    bool operator==(const WindowSize&) const = default;
};
[[nodiscard]] WindowSize SizeSave_Read(SettingsFile& file);
/// Position and size are left alone while the window is maximised.
void SizeSave_Write(SettingsFile& file, const WindowSize& size);
