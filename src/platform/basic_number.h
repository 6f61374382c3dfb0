// Numbers as VBScript spells them in source and in texts.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

struct NumberRead {
    std::size_t length = 0;  // characters of the number; 0 when none stands there
    double number = 0;
    bool overflows = false;
};

/// Reads the number at the start of `text`: "12", ".5", "1e-3", "&HFF", "&O17&". It has no sign, and what
/// follows it is the caller's business.
[[nodiscard]] NumberRead ReadNumber(std::string_view text);
/// Value of a text that is one number with an optional sign, blanks around it allowed.
[[nodiscard]] std::optional<double> NumberOfText(std::string_view text);
/// The English text of a number, of up to 15 digits: "-1", "0.5", "1E+15".
[[nodiscard]] std::string TextOfNumber(double number);
