#include "display/recent_projects.h"

#include <algorithm>

#include "platform/settings_file.h"

namespace {

constexpr std::string_view kSection = "RECENT";
constexpr std::size_t kLongestPath = 4096;

std::string KeyOf(std::string_view kind, std::size_t nr) {
    return std::string(kind) + std::to_string(nr);
}

std::vector<std::string> Recent(SettingsFile& settings, std::string_view kind) {
    std::vector<std::string> paths;
    for (std::size_t nr = 1; nr <= kRecentProjects; ++nr)
        if (std::string path = settings.ReadString(kSection, KeyOf(kind, nr), "", kLongestPath); !path.empty())
            paths.push_back(std::move(path));
    return paths;
}

void AddRecent(SettingsFile& settings, std::string_view kind, std::string_view path) {
    std::vector<std::string> paths = Recent(settings, kind);
    paths.erase(std::remove(paths.begin(), paths.end(), path), paths.end());
    paths.insert(paths.begin(), std::string(path));
    for (std::size_t nr = 1; nr <= kRecentProjects; ++nr)
        settings.WriteString(kSection, KeyOf(kind, nr), nr <= paths.size() ? paths[nr - 1] : std::string());
    settings.Save();
}

constexpr std::string_view kProject = "Project";
constexpr std::string_view kGraph = "Graph";

}  // namespace

std::vector<std::string> RecentProjects(SettingsFile& settings) {
    return Recent(settings, kProject);
}

void AddRecentProject(SettingsFile& settings, std::string_view path) {
    AddRecent(settings, kProject, path);
}

std::vector<std::string> RecentGraphs(SettingsFile& settings) {
    return Recent(settings, kGraph);
}

void AddRecentGraph(SettingsFile& settings, std::string_view path) {
    AddRecent(settings, kGraph, path);
}
