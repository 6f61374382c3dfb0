// The machine-readable form of an analysed project; docs/json.md describes it.
#pragma once

#include <iosfwd>

class Reasons;
class clsProjekt;

struct JsonParts {
    bool edges = false;                // calls were analysed
    bool localsChecked = false;        // the uses of arguments and locals are included
    bool libraryFiles = false;         // where the libraries were sought is included
    const Reasons* reasons = nullptr;  // reach, reasons and grades of objects, and entry points are included
};

/// Writes `projekt` and the problems noted so far as one JSON object in UTF-8.
void WriteJson(std::ostream& out, clsProjekt& projekt, const JsonParts& parts = {});
