// One pass over the starts of all physical lines of a module: classifies each line and collects where directives and
// Attribute lines may start.
#pragma once

#include <string_view>
#include <vector>

#include "shell/vb_text.h"

struct LineScan {
    int lineBreaks = 0;
    int blank = 0;    // physical lines of blanks only
    int comment = 0;  // lines whose first non-blank is "'"
    int code = 0;     // all other lines
    // Positions of the first non-blank in lines that do not continue another line:
    std::vector<Pos> directives;  // each "#"
    std::vector<Pos> attributes;  // each "attribute "
};

/// Scans `lowerText`, which must have CR LF at every line end.
[[nodiscard]] LineScan ScanLines(std::string_view lowerText);
