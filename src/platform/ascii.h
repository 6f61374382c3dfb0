// Tests and conversions of ASCII letters and blanks, for formats whose keywords are ASCII in every code page.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace ascii {

[[nodiscard]] constexpr bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}
[[nodiscard]] constexpr bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
[[nodiscard]] constexpr char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

[[nodiscard]] inline std::string LowerCase(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), Lower);
    return lower;
}

/// True if both texts are equal, ignoring the case of ASCII letters.
[[nodiscard]] inline bool SameText(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char left, char right) { return Lower(left) == Lower(right); });
}

[[nodiscard]] inline std::string_view TrimLeft(std::string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    return text;
}
[[nodiscard]] inline std::string_view TrimRight(std::string_view text) {
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}
[[nodiscard]] inline std::string_view Trim(std::string_view text) {
    return TrimLeft(TrimRight(text));
}

}  // namespace ascii
