// The projects and diagrams opened last, newest first, kept in the settings file.
#pragma once

#include <string>
#include <string_view>
#include <vector>

class SettingsFile;

inline constexpr std::size_t kRecentProjects = 8;

[[nodiscard]] std::vector<std::string> RecentProjects(SettingsFile& settings);
/// Puts `path` first and writes the settings; the list contains it once.
void AddRecentProject(SettingsFile& settings, std::string_view path);

/// The same for diagrams.
[[nodiscard]] std::vector<std::string> RecentGraphs(SettingsFile& settings);
void AddRecentGraph(SettingsFile& settings, std::string_view path);
