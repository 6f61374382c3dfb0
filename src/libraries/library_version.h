// Versions of libraries, and which of several serves for the one that a project asks for.
#pragma once

#include <optional>
#include <string>
#include <string_view>

struct LibraryVersion {
    int major = 0;
    int minor = 0;
    auto operator<=>(const LibraryVersion&) const = default;
};

/// "1.a" is 1.10: both numbers are hexadecimal, in the project file and in the registry. Nothing for any other text.
[[nodiscard]] std::optional<LibraryVersion> VersionOf(std::string_view text);
[[nodiscard]] std::string TextOf(const LibraryVersion& version);

/// How well a version serves: exactly, as a later one that is compatible, or not.
enum class VersionFit { Exact, Later, Other };
[[nodiscard]] VersionFit FitOf(const LibraryVersion& offered, const LibraryVersion& asked);
/// Whether `a` serves better than `b`: the exact version, else the nearest later one, else the highest of all.
[[nodiscard]] bool IsBetter(const LibraryVersion& a, const LibraryVersion& b, const LibraryVersion& asked);
