// The machine-readable form of an analysed project; docs/json.md tells what it holds.
#pragma once

#include <iosfwd>

class clsProjekt;

/// Writes `projekt` and the problems noted so far as one JSON object in UTF-8.
void WriteJson(std::ostream& out, clsProjekt& projekt);
