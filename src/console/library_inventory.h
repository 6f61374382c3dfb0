// The libraries of a project, each with what it is, where it was found and how much uses it: as text and as a table.
#pragma once

#include <string>

class clsProjekt;

/// What `ostrivane-report --libraries` prints. The calls of the project must be known.
[[nodiscard]] std::string LibraryInventory(const clsProjekt& projekt);
/// The same as a table with a heading, comma-separated, with CR LF line ends.
[[nodiscard]] std::string LibraryTable(const clsProjekt& projekt);
