// The charts of all modules as tables, for terminals and spreadsheets.
#pragma once

#include <string>

class clsProjekt;

/// What `ostrivane-report --stats` prints: one table for each chart under its name, UTF-8, LF.
[[nodiscard]] std::string StatisticsText(const clsProjekt& projekt);
/// The numbers of all charts as one table with a heading, comma-separated, UTF-8, with CR LF line ends. Without dead
/// code while the calls are not known.
[[nodiscard]] std::string StatisticsTable(const clsProjekt& projekt);
