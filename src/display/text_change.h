// Where places of a text are after it has changed in one stretch.
#pragma once

#include <string_view>

class TextChange {
public:
    TextChange(std::string_view before, std::string_view after);
    /// The same place, counted from 0; inside of the stretch that differs the nearest one that is left.
    [[nodiscard]] std::size_t Moved(std::size_t place) const;

private:
    std::size_t same_;  // characters before the stretch
    std::size_t endBefore_, endAfter_;
};

/// The place at which a line begins, from 0, and back.
[[nodiscard]] std::size_t LineBegin(std::string_view text, int line);
[[nodiscard]] int LineAtPlace(std::string_view text, std::size_t place);
