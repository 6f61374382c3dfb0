// Counts of the open project and of the objects alive, for the developer's summary.
#pragma once

#include <string>

class clsProjekt;

/// The summary, lines ended by LF; without a project only the instances of classes count.
[[nodiscard]] std::string DiagnosticSummary(const clsProjekt* projekt);
