#include "display/recent_projects.h"

#include <algorithm>

#include "platform/settings_file.h"

namespace {

constexpr std::string_view kSection = "RECENT";
constexpr std::size_t kLongestPath = 4096;

std::string KeyOf(std::size_t nr) {
    return "Project" + std::to_string(nr);
}

}  // namespace

std::vector<std::string> RecentProjects(SettingsFile& settings) {
    std::vector<std::string> paths;
    for (std::size_t nr = 1; nr <= kRecentProjects; ++nr)
        if (std::string path = settings.ReadString(kSection, KeyOf(nr), "", kLongestPath); !path.empty())
            paths.push_back(std::move(path));
    return paths;
}

void AddRecentProject(SettingsFile& settings, std::string_view path) {
    std::vector<std::string> paths = RecentProjects(settings);
    paths.erase(std::remove(paths.begin(), paths.end(), path), paths.end());
    paths.insert(paths.begin(), std::string(path));
    for (std::size_t nr = 1; nr <= kRecentProjects; ++nr)
        settings.WriteString(kSection, KeyOf(nr), nr <= paths.size() ? paths[nr - 1] : std::string());
    settings.Save();
}
