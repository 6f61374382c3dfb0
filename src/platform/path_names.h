// Spelling and comparison of names in paths, independent of any file system.
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The path with "/" for "\" and without trailing blanks; empty if no file can have it (it contains a NUL or exceeds
/// the system's length limit).
[[nodiscard]] std::string WithSlashes(std::string_view path);

/// Converts a name to UTF-8: well-formed UTF-8 is kept, anything else is read as bytes of the active code page.
[[nodiscard]] std::string NameInUtf8(std::string_view name);
/// The same key for names that differ only in letter case, or of which one is UTF-8 and one in the active code page.
[[nodiscard]] std::string NameKey(std::string_view name);

struct PathParts {
    bool isAbsolute = false;
    std::vector<std::string> names;  // without empty names and "."; ".." is kept
    bool operator==(const PathParts&) const = default;
};

/// Splits at "\" and "/".
[[nodiscard]] PathParts SplitPath(std::string_view path);
/// Same, but a "\" that is the second byte of a double-byte character of the active page is part of its name.
[[nodiscard]] PathParts SplitDoubleBytePath(std::string_view path);
/// The path in UTF-8 and without "..", read in each supported code page that defines all bytes of it; empty for a path
/// that is UTF-8 itself. A path does not say in which page it was written.
[[nodiscard]] std::vector<PathParts> PartsInOtherPages(std::string_view path);
/// Removes each ".." together with the name before it, whether or not that name exists.
[[nodiscard]] PathParts WithoutParents(const PathParts& parts);
/// The parts joined by "/"; "." if there are none.
[[nodiscard]] std::string JoinPath(const PathParts& parts);
