// Code points and UTF-8, for code pages, file names and UTF-16 files.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

inline constexpr char32_t kReplacementCharacter = 0xFFFD;

/// Decodes the code point that starts at the 0-based `pos` and moves `pos` after it. For an ill-formed sequence,
/// returns nothing and moves `pos` by one byte.
[[nodiscard]] std::optional<char32_t> TakeUtf8(std::string_view text, std::size_t& pos);
/// Appends a code point as UTF-8; surrogates and numbers beyond Unicode become U+FFFD.
void AppendUtf8(std::string& text, char32_t codePoint);
/// Simple lower case of one code point, the same in every locale.
[[nodiscard]] char32_t LowerCodePoint(char32_t codePoint);
