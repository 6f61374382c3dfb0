// The code page of a project whose setting is "auto": its file names show it when they are found on disk in one page
// only.
#pragma once

#include <string>
#include <string_view>

#include "platform/files.h"

class SettingsFile;
struct Settings;

/// The supported page in which most of the module files that the project lists exist; empty if the names say nothing,
/// or fit a page that "auto" reads anyway.
/// @param projektDir  directory of the project file with its separator
[[nodiscard]] std::string FittingCodePage(const Files& files, std::string_view projektDir,
                                          std::string_view projectText);

/// The page in which a project is to be read: that of the settings; with "auto" the one that was chosen for this
/// project before, otherwise the fitting one after a question, whose answer is stored.
[[nodiscard]] std::string ChooseCodePage(const Files& files, SettingsFile& file, const Settings& settings,
                                         const std::string& path);
/// Forgets what was chosen for a project, so that the next opening asks.
void ForgetCodePage(SettingsFile& file, const std::string& path);
