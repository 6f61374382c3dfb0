// The settings that a person edits, as a copy that is changed freely and then put in force as a whole.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "shell/settings.h"

class Files;
class SettingsFile;

struct OptionValues {
    /// In the order of the settings; the last colour has no setting of its own.
    enum Colour { Publics, Privates, CallLocal, CallIn, CallOut, CallMayBe, CondCompile, Comment, String, Further };
    static constexpr std::size_t kColours = Further + 1;

    std::string language;  // "english" or "german"
    std::int16_t win32 = 1;
    std::int16_t loadLibs = 1;
    std::int16_t procVars = 1;
    std::string codePage;  // "auto" or a number
    FontSetting codeFont, treeFont;
    std::array<std::int32_t, kColours> colours{};
    bool operator==(const OptionValues&) const = default;
};

/// The settings in force.
[[nodiscard]] OptionValues CurrentOptions();
/// The settings that the program comes with.
[[nodiscard]] OptionValues DefaultOptions();
/// Puts `values` in force, reads the texts of a changed language and writes the settings file. The code page is kept
/// for the next project, as an open one has been read with the one before.
/// @param programDirectory  ends with its separator
/// @return true when the language has changed
bool ApplyOptions(const OptionValues& values, const Files& files, const std::string& programDirectory,
                  SettingsFile& settings);
