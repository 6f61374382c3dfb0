// The summary of an analysed project on standard output.
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

struct CallCounts {
    int really = 0, mayBe = 0, uses = 0;
    int dead = 0, undead = 0;
};
[[nodiscard]] CallCounts CountCalls(const clsProjekt& projekt);

/// A few lines of text in the language of the program, UTF-8, LF.
/// @param milliseconds      time for the structure
/// @param callMilliseconds  time for the calls, or below 0 when they were not analysed
[[nodiscard]] std::string SummaryText(const clsProjekt& projekt, bool german, double milliseconds,
                                      double callMilliseconds = -1);
