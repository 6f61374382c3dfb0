// The settings that the user edits: a copy that is changed freely and then applied as a whole.
#pragma once

#include <string>

#include "shell/settings.h"

class Files;
class SettingsFile;

/// The defaults of everything that can be edited; the rest as in `settings`.
[[nodiscard]] Settings DefaultOptions(const Settings& settings);
/// Applies `values`, reads the texts of a changed language and writes the settings file. A changed code page applies to
/// the next project, as the open one was read with the former page.
/// @param programDirectory  ends with its separator
/// @return true when the language has changed
bool ApplyOptions(const Settings& values, Settings& inForce, const Files& files, const std::string& programDirectory,
                  SettingsFile& file);
