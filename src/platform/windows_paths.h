// Paths of a Windows machine, such as "C:\Windows\System32\MSCOMCTL.OCX", and the files of a Wine prefix that they
// mean.
#pragma once

#include <string>
#include <string_view>
#include <vector>

class ClassRegistry;
class Files;

/// The directory of the Wine prefix to use, or an empty text. `setting` is that directory, "none", or empty for the one
/// that the user has: the environment's WINEPREFIX or else .wine in the home directory.
[[nodiscard]] std::string FindWinePrefix(const Files& files, std::string_view setting);

class WindowsPaths {
public:
    /// `registry` must outlive this object. The prefix is that of the registry; without one no path has a file.
    explicit WindowsPaths(const ClassRegistry& registry) : registry_(registry) {}

    /// The path without quotes and "\\?\", with the values of its variables, as %SystemRoot% has one.
    [[nodiscard]] std::string Plain(std::string_view path) const;
    /// Where the file of a path may be, the best place first. A program of 32 bits finds another directory under the
    /// name System32. A bare name is sought in the directories of the system.
    [[nodiscard]] std::vector<std::string> PlacesOf(std::string_view path) const;
    /// Where the directories of the system have a file of this name.
    [[nodiscard]] std::vector<std::string> SystemPlacesOf(std::string_view fileName) const;

private:
    [[nodiscard]] std::string Expanded(std::string_view path, int depth) const;
    [[nodiscard]] std::string VariableValue(std::string_view name) const;
    void AddPlaces(std::vector<std::string>& places, std::string_view path) const;

    const ClassRegistry& registry_;
};

/// True for "C:\..." and the like.
[[nodiscard]] bool HasDrive(std::string_view path);
