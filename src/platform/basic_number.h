// Reads and formats numbers as VBScript does.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

struct NumberRead {
    std::size_t length = 0;  // characters of the number; 0 if the text does not start with one
    double number = 0;
    bool overflows = false;
};

/// Reads the number at the start of `text`: "12", ".5", "1e-3", "&HFF", "&O17&". A sign is not part of it; any text may
/// follow.
[[nodiscard]] NumberRead ReadNumber(std::string_view text);
/// The value of a text that consists of one number with an optional sign, surrounded by optional blanks.
[[nodiscard]] std::optional<double> NumberOfText(std::string_view text);
/// The English text of a number, with up to 15 digits: "-1", "0.5", "1E+15".
[[nodiscard]] std::string TextOfNumber(double number);
