// What is worth a report after the libraries of a project were sought.
#pragma once

#include <string>
#include <string_view>

class LibrarySearch;
class clsProjekt;
class clsTypeLib;

// Tags of the problems about libraries.
inline constexpr std::string_view kMissingLibrary = "clsTypeLib: FillPropertys (file)";
inline constexpr std::string_view kOtherVersion = "clsTypeLib: FillPropertys (version)";
inline constexpr std::string_view kUnreadableRegistry = "modRegistrySearch: GetAllKeys";

/// The file that the line of a library names, without its folder and the number of a resource; empty if it names none.
[[nodiscard]] std::string FileNameOf(const clsTypeLib& library);

/// One sentence for a library that was not found, and another that says what to do.
/// @param cost  a sentence between them that says what depends on the library; may be empty
[[nodiscard]] std::string MissingLibraryText(const clsTypeLib& library, std::string_view cost = {});

/// Whether the problem says that this library was not found or has another version.
/// @param text  as NoteLibraryProblems wrote it, or NoteCost after it
[[nodiscard]] bool IsProblemOf(const clsTypeLib& library, std::string_view tag, std::string_view text,
                               std::string_view subject);

/// Says in the problem of a library that was not found what depends on it.
void NoteCost(clsProjekt& projekt, const clsTypeLib& library, std::string_view cost);

/// Adds a problem to the project for each library that was not found or is of a wrong version, and for each registry
/// file that could not be read. As long as the user has named no source of libraries, they are hints.
void NoteLibraryProblems(clsProjekt& projekt, const LibrarySearch& search);

/// Adds what is broken in the file of a library; the library holds what could be read.
void NoteBrokenLibrary(clsProjekt& projekt, const clsTypeLib& library, std::string what);
