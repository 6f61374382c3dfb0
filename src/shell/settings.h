// The user's settings: a value while the program runs, stored in a file with sections.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/settings_file.h"

struct FontSetting {
    float size = 0;
    std::string name;
    bool bold = false;
    bool italic = false;
    bool operator==(const FontSetting&) const = default;
};

/// Layout of the window, and what its content area shows.
enum class SplitMode : std::uint8_t { Content, Calls };
enum class ContentMode : std::uint8_t { Code, Graph, Chart, Overview };

/// The settings; a new object has the defaults.
struct Settings {
    // Section "ALLGEMEIN"
    std::string OpenSaveDir = "1";  // directory of the last project opened
    std::int16_t Win32 = 1;         // 1: conditional compilation for 32 bits
    std::int16_t LoadLibs = 1;
    std::int16_t ReadCalls = 1;        // 1: calls are read when a project opens
    std::int16_t RefreshAuto = 0;      // 1: changed files are read again without being asked for
    std::int16_t AskAtClosing = 0;     // 1: a question before the window closes with a project open
    std::int16_t ProcVars = 1;         // 1: the project tree shows arguments and locals
    std::int16_t GraphLegend = 1;      // 1: the diagram has a legend
    std::int16_t GraphMap = 1;         // 1: and an overview map, when it is larger than the view
    std::int16_t GraphFrames = 0;      // 1: and frames around the symbols of each module
    std::string Language = "english";  // or "german"
    std::string CodePage = "auto";     // or the number of a code page
    // Where libraries are sought; directories and files of this system
    std::vector<std::string> LibraryFolders;
    std::string WinePrefix;  // "none", or empty for the one that the user has
    std::vector<std::string> RegistryFiles;

    // Section "VISUALIZATION"; colours are 32-bit BGR values
    FontSetting CodeFont{10, "Courier New"};
    FontSetting TreeFont{8, "MS Sans Serif"};
    std::int32_t ColPublics = 255;
    std::int32_t ColPrivates = 16744448;
    std::int32_t ColCallLocal = 16744448;
    std::int32_t ColCallIn = 8421631;
    std::int32_t ColCallOut = 255;
    std::int32_t ColCallMayBe = 8388736;
    std::int32_t ColCondCompile = 32896;
    std::int32_t ColComment = 30720;
    std::int32_t ColString = 9868950;

    // Not stored
    SplitMode Split = SplitMode::Content;
    ContentMode Content = ContentMode::Code;

    bool operator==(const Settings&) const = default;
};

/// A list as the settings file holds it, "a;b", and back. Blanks around an entry and empty entries are dropped.
[[nodiscard]] std::vector<std::string> SplitList(std::string_view text);
[[nodiscard]] std::string JoinList(const std::vector<std::string>& entries);

/// Reads all keys except those of the window. A missing file gives the defaults.
[[nodiscard]] Settings Optionen_Ini_Load(SettingsFile& file);
/// Writes them. A failed write is ignored.
void Optionen_Ini_Save(SettingsFile& file, const Settings& settings);
/// Writes the directory of the last project only.
void Save_OpenDir(SettingsFile& file, const Settings& settings);

/// Writes what the diagram shows beside its symbols only.
void GraphExtras_Save(SettingsFile& file, const Settings& settings);

/// Geometry of the main window and of its splitters in twips; an empty text is "not stored".
struct WindowSize {
    bool maximised = false;
    std::string Top, Left, Height, Width;
    std::string SplitX_Content, SplitY_Content, SplitX_Content_Hide, SplitY_Content_Hide;
    std::string SplitX_Calls, SplitY_Calls, SplitX_Calls_Hide, SplitY_Calls_Hide;
    bool operator==(const WindowSize&) const = default;
};
[[nodiscard]] WindowSize SizeSave_Read(SettingsFile& file);
/// Leaves the stored position and size as they are while the window is maximised, so that it can return to them.
void SizeSave_Write(SettingsFile& file, const WindowSize& size);
