// The machine-readable form of an analysed project; docs/json.md tells what it holds.
#pragma once

#include <iosfwd>

class clsProjekt;

struct JsonParts {
    bool edges = false;          // the calls were analysed
    bool localsChecked = false;  // arguments and locals know whether they are used
};

/// Writes `projekt` and the problems noted so far as one JSON object in UTF-8.
void WriteJson(std::ostream& out, clsProjekt& projekt, const JsonParts& parts = {});
