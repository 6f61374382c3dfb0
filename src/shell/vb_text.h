// The few text functions of Visual Basic that everything here is told in. Positions count from 1, 0 means
// none, a byte is a character. Only these functions know that C++ counts from 0.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// 1-based character position or a number of characters; 0 is "none".
using Pos = std::int32_t;

/// An error of the language's run time, thrown by the operation that fails and caught by Attempt.
struct VbError {
    int number;
    const char* description;
};

[[noreturn]] void ThrowInvalidCall();          // error 5, as Mid and Left raise it
[[noreturn]] void ThrowSubscriptOutOfRange();  // error 9

/// `length` characters from `start`, fewer when the text ends before; a start behind the end gives an empty
/// text. Throws VbError 5 when `start` is below 1 or `length` negative.
[[nodiscard]] inline std::string_view Mid(std::string_view text, Pos start, Pos length) {
    if (start < 1 || length < 0) [[unlikely]]
        ThrowInvalidCall();
    const auto begin = static_cast<std::size_t>(start) - 1;
    if (begin >= text.size())
        return {};
    return text.substr(begin, static_cast<std::size_t>(length));
}

/// Everything from `start` on. Throws VbError 5 when `start` is below 1.
[[nodiscard]] inline std::string_view Mid(std::string_view text, Pos start) {
    return Mid(text, start, static_cast<Pos>(text.size()));
}

/// The character at `pos`, or NUL outside the text.
[[nodiscard]] inline char CharAt(std::string_view text, Pos pos) {
    return pos >= 1 && static_cast<std::size_t>(pos) <= text.size() ? text[static_cast<std::size_t>(pos) - 1] : '\0';
}

[[nodiscard]] inline Pos Len(std::string_view text) {
    return static_cast<Pos>(text.size());
}

/// First `find` at or behind `start`, or 0.
[[nodiscard]] Pos InStr(Pos start, std::string_view text, std::string_view find);
[[nodiscard]] inline Pos InStr(std::string_view text, std::string_view find) {
    return InStr(1, text, find);
}

/// Last `find` that ends at or before `start`, or 0. `start` -1 means the end of the text.
[[nodiscard]] Pos InStrRev(std::string_view text, std::string_view find, Pos start = -1);

/// Blanks taken off; a tab is no blank.
[[nodiscard]] std::string_view LTrim(std::string_view text);
[[nodiscard]] std::string_view RTrim(std::string_view text);
[[nodiscard]] inline std::string_view Trim(std::string_view text) {
    return LTrim(RTrim(text));
}

/// `text` with every `find`, from left to right in one pass, exchanged for `by`.
[[nodiscard]] std::string Replace(std::string_view text, std::string_view find, std::string_view by);

inline constexpr std::string_view vbCrLf = "\r\n";

// Characters and sequences that the readers test for.
inline constexpr char gQuote = '"';
inline constexpr char gChrR = '\xAE';
inline constexpr char gChrC = '\xA9';
inline constexpr std::string_view gContinuation = "_\r\n";
inline constexpr std::string_view gContinuationBlank = " _\r\n";
