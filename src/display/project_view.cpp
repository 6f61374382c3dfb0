#include "display/project_view.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "platform/settings_file.h"

namespace {

constexpr std::string_view kSection = "VIEWS";
constexpr std::size_t kLongestPath = 4096;
constexpr std::size_t kLongestView = 1 << 18;
constexpr std::size_t kMostOpen = 2000;
constexpr std::string_view kArrangements[] = {"content", "calls"};
constexpr std::string_view kKinds = "ogr";  // object, group, root
// No name, path or key of a node contains one, and the settings file keeps it inside of a value.
constexpr char kSeparator = '\t';

std::string NodeText(const NodeId& node) {
    return node.key.empty() ? "-" : kKinds[static_cast<std::size_t>(node.kind)] + node.key;
}

NodeId NodeFrom(std::string_view text) {
    const std::size_t kind = text.size() < 2 ? std::string_view::npos : kKinds.find(text.front());
    return kind == std::string_view::npos ? NodeId() : NodeId(static_cast<NodeKind>(kind), text.substr(1));
}

std::string_view NextField(std::string_view& text) {
    const std::string_view field = text.substr(0, text.find(kSeparator));
    text.remove_prefix(std::min(field.size() + 1, text.size()));
    return field;
}

std::string KeyOf(const char* what, std::size_t nr) {
    return what + std::to_string(nr);
}

// Path and text of all that are stored, newest first.
std::vector<std::pair<std::string, std::string>> AllViews(SettingsFile& settings) {
    std::vector<std::pair<std::string, std::string>> views;
    for (std::size_t nr = 1; nr <= kProjectViews; ++nr) {
        std::string path = settings.ReadString(kSection, KeyOf("Project", nr), "", kLongestPath);
        if (path.empty())
            break;
        views.emplace_back(std::move(path), settings.ReadString(kSection, KeyOf("View", nr), "", kLongestView));
    }
    return views;
}

}  // namespace

std::string TextOf(const ProjectView& view) {
    std::string text(kArrangements[static_cast<std::size_t>(view.arrangement)]);
    text += kSeparator + std::to_string(view.zoom) + kSeparator + NodeText(view.selected);
    for (std::size_t nr = 0; nr < std::min(view.open.size(), kMostOpen); ++nr)
        text += kSeparator + NodeText(view.open[nr]);
    return text;
}

std::optional<ProjectView> ProjectViewFrom(std::string_view text) {
    const std::string_view arrangement = NextField(text);
    const auto* const known = std::ranges::find(kArrangements, arrangement);
    ProjectView view;
    const std::string_view zoom = NextField(text);
    const auto [end, error] = std::from_chars(zoom.data(), zoom.data() + zoom.size(), view.zoom);
    if (known == std::end(kArrangements) || error != std::errc() || end != zoom.data() + zoom.size())
        return {};
    view.arrangement = static_cast<SplitMode>(known - std::begin(kArrangements));
    view.selected = NodeFrom(NextField(text));
    while (!text.empty() && view.open.size() < kMostOpen)
        if (NodeId node = NodeFrom(NextField(text)); !node.key.empty())
            view.open.push_back(std::move(node));
    return view;
}

std::optional<ProjectView> StoredView(SettingsFile& settings, std::string_view path) {
    for (const auto& [stored, text] : AllViews(settings))
        if (stored == path)
            return ProjectViewFrom(text);
    return {};
}

void StoreView(SettingsFile& settings, std::string_view path, const ProjectView& view) {
    auto views = AllViews(settings);
    std::erase_if(views, [&path](const auto& stored) { return stored.first == path; });
    views.emplace(views.begin(), path, TextOf(view));
    for (std::size_t nr = 1; nr <= std::min(views.size(), kProjectViews); ++nr) {
        settings.WriteString(kSection, KeyOf("Project", nr), views[nr - 1].first);
        settings.WriteString(kSection, KeyOf("View", nr), views[nr - 1].second);
    }
    settings.Save();
}
