// Code points and UTF-8, as far as code pages, file names and UTF-16 files need them.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

inline constexpr char32_t kReplacementCharacter = 0xFFFD;

/// Takes the code point that starts at the 0-based `pos` and moves `pos` behind it. Returns nothing for an
/// ill-formed sequence; `pos` then moves on by one byte.
[[nodiscard]] std::optional<char32_t> TakeUtf8(std::string_view text, std::size_t& pos);
/// Appends a code point; surrogates and numbers beyond Unicode become U+FFFD.
void AppendUtf8(std::string& text, char32_t codePoint);
/// Simple lower case of one code point, the same in every locale.
[[nodiscard]] char32_t LowerCodePoint(char32_t codePoint);
