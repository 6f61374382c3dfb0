// The file of a library: where it was found, and every place where it was sought.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// The places in the order in which they are asked.
enum class LibraryStep : std::uint8_t { Registry, ProjectLine, ProjectFolder, LibraryFolder };

enum class LibraryOutcome : std::uint8_t {
    Found,
    Missing,        // no such file
    NotRegistered,  // the registry does not know the library, or there is no registry
    OtherLibrary,   // the file holds another library
    WrongVersion    // the version does not fit; used if there is no better one
};

/// One place where a library was sought.
struct LibraryPlace {
    LibraryStep step = LibraryStep::Registry;
    LibraryOutcome outcome = LibraryOutcome::Missing;
    std::string place;  // a file, a folder, or a key of the registry
    bool operator==(const LibraryPlace&) const = default;
};

struct LibraryFile {
    std::string path;     // as the system spells it; empty if it was not found or not sought
    int resource = 0;     // number of the library among the resources of the file; 0 if the path names none
    std::string version;  // "2.1", hexadecimal as in the project file; empty if only the project file says it
    std::vector<LibraryPlace> places;

    [[nodiscard]] bool IsSought() const { return !places.empty(); }
    [[nodiscard]] bool IsFound() const { return !path.empty(); }
    [[nodiscard]] bool IsMissing() const { return IsSought() && !IsFound(); }
    bool operator==(const LibraryFile&) const = default;
};

/// How much of a project depends on a library that was not found.
struct LibraryNeed {
    int controls = 0;
    int variables = 0;
    int calls = 0;
    int modules = 0;
    [[nodiscard]] bool IsNone() const { return controls + variables + calls == 0; }
    bool operator==(const LibraryNeed&) const = default;
};

/// "registry", "project line", "project folder", "library folder".
[[nodiscard]] constexpr std::string_view TextOf(LibraryStep step) {
    switch (step) {
        case LibraryStep::Registry:
            return "registry";
        case LibraryStep::ProjectLine:
            return "project line";
        case LibraryStep::ProjectFolder:
            return "project folder";
        case LibraryStep::LibraryFolder:
            return "library folder";
    }
    return {};
}

/// "found", "missing", "not registered", "other library", "wrong version".
[[nodiscard]] constexpr std::string_view TextOf(LibraryOutcome outcome) {
    switch (outcome) {
        case LibraryOutcome::Found:
            return "found";
        case LibraryOutcome::Missing:
            return "missing";
        case LibraryOutcome::NotRegistered:
            return "not registered";
        case LibraryOutcome::OtherLibrary:
            return "other library";
        case LibraryOutcome::WrongVersion:
            return "wrong version";
    }
    return {};
}
