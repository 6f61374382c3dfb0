// Counts of the open project, those that the console prints, and of the objects alive, for the developer's summary.
#pragma once

#include <string>

class clsProjekt;

/// The summary in the language of the program, UTF-8, lines ended by LF; without a project only the instances of
/// classes count.
[[nodiscard]] std::string DiagnosticSummary(const clsProjekt* projekt);
