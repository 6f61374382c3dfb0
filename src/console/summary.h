// What the console prints about an analysed project on standard output.
#pragma once

#include <string>

class clsProjekt;

/// A few lines of text in the language of the program, UTF-8, LF.
/// @param milliseconds      time for the structure
/// @param callMilliseconds  time for the calls, or below 0 when they were not analysed
[[nodiscard]] std::string SummaryText(const clsProjekt& projekt, double milliseconds, double callMilliseconds = -1);
