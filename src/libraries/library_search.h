// Finds the files of the libraries that a project names. The places are, in this order: the class registry, the path in
// the project's line, the project's folder and those above it up to the root of its repository, the user's folders. So
// someone without Windows copies the files of the old machine into one folder. A file is found by its name, without
// regard to case.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "platform/class_registry.h"
#include "platform/windows_paths.h"

class clsTypeLib;
struct Settings;

struct LibrarySources {
    RegistryTexts registry;
    std::vector<std::string> folders;
    /// The user has named one of these sources, so that a library that is missing is worth a report.
    bool isConfigured = false;
    bool operator==(const LibrarySources&) const = default;
};
[[nodiscard]] LibrarySources LibrarySourcesOf(const Settings& settings, const Files& files);

/// What a library says about itself.
struct LibraryIdentity {
    std::string typeLibID;
    std::string version;
};

class LibrarySearch {
public:
    /// `files` must outlive the search.
    LibrarySearch(const Files& files, LibrarySources sources);

    /// Comes before the libraries of a project are sought.
    /// @param projectPath  of the project file
    void Begin(std::string_view projectPath);
    /// Seeks the library's file, and sets what the registry knows of it.
    void Find(clsTypeLib& library) const;

    /// The file that has the picture of a library that was found: the registered one, else that of the library.
    [[nodiscard]] std::string PictureFile(const clsTypeLib& library) const;

    [[nodiscard]] const ClassRegistry& TheRegistry() const { return registry_; }
    [[nodiscard]] const LibrarySources& Sources() const { return sources_; }

    /// Reads who a library is; nothing if the file holds none. Without it, a file is taken by its name alone.
    /// @param resource  its number in the file, or 0
    std::function<std::optional<LibraryIdentity>(const std::string& file, int resource)> identify;

private:
    class Attempt;
    void FindProject(clsTypeLib& library) const;
    [[nodiscard]] bool FileExists(std::string_view path) const;
    [[nodiscard]] std::string InProjectFolder(std::string_view path) const;
    [[nodiscard]] std::vector<std::string> PlacesOfLine(const clsTypeLib& library) const;

    const Files& files_;
    LibrarySources sources_;
    ClassRegistry registry_;
    WindowsPaths paths_;
    std::vector<std::string> projectFolders_;  // the project's own first
    // What is in the folders asked so far, by NameKey: one that is read once for all libraries.
    mutable std::unordered_map<std::string, std::unordered_set<std::string>> folders_;
};
