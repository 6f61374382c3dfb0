// What the window says of a library that was not found or has another version, in the user's language.
#pragma once

#include <string>

class clsProjekt;
class clsTypeLib;
struct ProblemEntry;

/// "Controls: 4, Calls: 6, Modules: 2", or that nothing was found that needs the library. UTF-8.
[[nodiscard]] std::string NeedText(const clsTypeLib& library);
/// What the user can do about a library that was not found; empty for a project. UTF-8.
[[nodiscard]] std::string RemedyText(const clsTypeLib& library);

/// The text of a problem as the window shows it. UTF-8.
/// @param projekt  may be null
[[nodiscard]] std::string ShownProblem(const clsProjekt* projekt, const ProblemEntry& entry);
