// Rows about what reaches what: sentences, headings, and objects with the place that leads to them. Values that stay
// valid without the objects; texts in UTF-8.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "reach/entry_points.h"
#include "reach/links.h"

class LineNumbers;

struct ReachRow {
    enum class Kind : std::uint8_t {
        Sentence,  // wrapped, over the whole width
        Heading,
        Item,
        More,  // shows the rest of its section
    };
    Kind kind = Kind::Item;
    std::string text;
    std::string about;
    std::string_view image = {};
    bool isPossible = false;  // only a possible call leads there; the texts say so as well
    std::string key = {};     // node of the object
    std::string modulKey = {};
    int line = 0;    // of the place, in that module; 0 for none
    int place = -1;  // the same place as a number among those of the page; -1 for none
    int section = 0;
    bool operator==(const ReachRow&) const = default;
};

/// The path of an object as it is shown.
[[nodiscard]] std::string PathText(const CodeObject& object);
[[nodiscard]] ReachRow HeadingRow(int section, std::string text);
[[nodiscard]] ReachRow ObjectRow(int section, const CodeObject& object, std::string about);
/// The object that the link leads to, and the place where it begins.
[[nodiscard]] ReachRow StepRow(int section, const Link& link, LineNumbers& lines);
/// The object at which the link begins, and that place.
[[nodiscard]] ReachRow CallerRow(int section, const Link& link, LineNumbers& lines);
/// What kind of entry point it is; the place of a literal or AddressOf.
[[nodiscard]] ReachRow EntryRow(int section, const EntryPoint& entry, LineNumbers& lines,
                                const std::string& about = {});

/// "3 steps".
[[nodiscard]] std::string StepsText(int steps);
/// One line for each row, items indented below their heading.
[[nodiscard]] std::string AsText(const std::vector<ReachRow>& rows);
