// What the console tells of an analysed project on standard output.
#pragma once

#include <string>

class clsProjekt;

struct ProjectCounts {
    int modules = 0, forms = 0, classes = 0, userControls = 0;
    int procedures = 0;
    int variables = 0;  // of modules, members of types and enumerations, arguments and locals
    int types = 0;
    int enums = 0;
    int controls = 0;
};
[[nodiscard]] ProjectCounts CountObjects(const clsProjekt& projekt);

/// A few lines of text in the language at hand, UTF-8, LF.
/// @param milliseconds  time for the structure
[[nodiscard]] std::string SummaryText(const clsProjekt& projekt, bool german, double milliseconds);
