// How names in a path are spelled and compared, apart from any file system.
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The path with "/" for "\" and without trailing blanks; empty when no file can have it (it holds a NUL, or
/// is longer than any system takes).
[[nodiscard]] std::string WithSlashes(std::string_view path);

/// UTF-8 of a name: well-formed UTF-8 stays, all else is taken for bytes of the active code page.
[[nodiscard]] std::string NameInUtf8(std::string_view name);
/// Equal for names that differ only in letter case, or in being UTF-8 or bytes of the active code page.
[[nodiscard]] std::string NameKey(std::string_view name);

struct PathParts {
    bool isAbsolute = false;
    std::vector<std::string> names;  // without empty ones and "."; ".." stays
    bool operator==(const PathParts&) const = default;
};

/// Splits at "\" and "/".
[[nodiscard]] PathParts SplitPath(std::string_view path);
/// The same, but a "\" that is the second byte of a double-byte character belongs to its name.
[[nodiscard]] PathParts SplitDoubleBytePath(std::string_view path);
/// Takes out each ".." together with the name before it, whether or not that name exists.
[[nodiscard]] PathParts WithoutParents(const PathParts& parts);
/// The parts joined by "/"; "." for no part at all.
[[nodiscard]] std::string JoinPath(const PathParts& parts);
