// Source snippets that are indented in a test, with marks instead of counted positions.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "shell/vb_text.h"

using PosRange = std::pair<Pos, Pos>;  // first and last position, both inclusive

struct Marked {
    std::string text;
    std::vector<PosRange> ranges;  // the text between {{ and }}, in the order of the {{

    /// First position of mark `nr`, from 1.
    [[nodiscard]] Pos pos(std::size_t nr = 1) const { return ranges.at(nr - 1).first; }
    /// Last position of mark `nr`.
    [[nodiscard]] Pos last(std::size_t nr = 1) const { return ranges.at(nr - 1).second; }
};

/// `snippet` without its empty first line, the indentation common to all lines and the blanks after the last line end.
/// Every line ends with CR LF, including the last one. Marks can be nested.
[[nodiscard]] Marked Vb(std::string_view snippet);
