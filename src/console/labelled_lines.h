// Lines of a label and its value, aligned below each other.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

/// Pads the label to `width` characters, at least by one blank, and ends the line.
inline void AddLabelledLine(std::string& text, std::string_view label, std::string_view value, std::size_t width) {
    // Each character beyond ASCII has several bytes.
    std::size_t characters = 0;
    for (const char c : label)
        characters += (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    text.append(label).append(characters < width ? width - characters : 1, ' ').append(value).append("\n");
}

[[nodiscard]] inline std::string RightAligned(int number) {
    char digits[24];
    std::snprintf(digits, sizeof digits, "%9d", number);
    return digits;
}
