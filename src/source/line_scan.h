// One look at the beginning of every physical line of a module: what the line counts as, and where directives and
// Attribute lines may stand.
#pragma once

#include <string_view>
#include <vector>

#include "shell/vb_text.h"

struct LineScan {
    int lineBreaks = 0;
    int blank = 0;    // physical lines of nothing but blanks
    int comment = 0;  // "'" is the first character that is no blank
    int code = 0;     // all others
    // First characters behind the blanks of a line that does not continue the one before:
    std::vector<Pos> directives;  // each "#"
    std::vector<Pos> attributes;  // each "attribute "
};

/// `lowerText` has CR LF at every line end.
[[nodiscard]] LineScan ScanLines(std::string_view lowerText);
