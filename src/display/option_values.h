// The settings that a person edits, as a copy that is changed freely and then put in force as a whole.
#pragma once

#include <string>

#include "shell/settings.h"

class Files;
class SettingsFile;

/// What can be edited as the program comes with it; the rest as it is in `settings`.
[[nodiscard]] Settings DefaultOptions(const Settings& settings);
/// Puts `values` in force, reads the texts of a changed language and writes the settings file. The code page is kept
/// for the next project, as an open one has been read with the one before.
/// @param programDirectory  ends with its separator
/// @return true when the language has changed
bool ApplyOptions(const Settings& values, Settings& inForce, const Files& files, const std::string& programDirectory,
                  SettingsFile& file);
