// How the window showed a project when it was left: kept in the settings file for the projects used last, so that each
// comes back the same.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "display/baum.h"
#include "shell/settings.h"

class SettingsFile;

struct ProjectView {
    SplitMode arrangement = SplitMode::Content;
    int zoom = 0;                   // of the code, in points
    NodeId selected = {};           // of the current object; its key is empty if there was none
    std::vector<NodeId> open = {};  // nodes of the project tree that are expanded
    bool operator==(const ProjectView&) const = default;
};

/// As the settings file holds it, on one line, and back. A text that does not begin like one gives nothing; nodes that
/// make no sense are left out.
[[nodiscard]] std::string TextOf(const ProjectView& view);
[[nodiscard]] std::optional<ProjectView> ProjectViewFrom(std::string_view text);

inline constexpr std::size_t kProjectViews = 20;

/// What was stored for the project file at `path`.
[[nodiscard]] std::optional<ProjectView> StoredView(SettingsFile& settings, std::string_view path);
/// Puts the project first and writes the settings; beyond kProjectViews the oldest are dropped.
void StoreView(SettingsFile& settings, std::string_view path, const ProjectView& view);
