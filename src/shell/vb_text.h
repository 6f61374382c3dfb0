// Text functions with the semantics of Visual Basic. Positions are 1-based, 0 means none, and one byte is one
// character. Only these functions convert to the 0-based positions of C++.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// 1-based character position or number of characters; 0 means none.
using Pos = std::int32_t;

/// A Visual Basic run-time error. The failing operation throws it, Attempt catches it.
struct VbError {
    int number;
    const char* description;
};

[[noreturn]] void ThrowInvalidCall();          // error 5, as from Mid and Left
[[noreturn]] void ThrowSubscriptOutOfRange();  // error 9

/// `length` characters from `start`, or fewer if the text ends before; empty if `start` is after the end.
/// Throws VbError 5 if `start` is below 1 or `length` is negative.
[[nodiscard]] inline std::string_view Mid(std::string_view text, Pos start, Pos length) {
    if (start < 1 || length < 0) [[unlikely]]
        ThrowInvalidCall();
    const auto begin = static_cast<std::size_t>(start) - 1;
    if (begin >= text.size())
        return {};
    return text.substr(begin, static_cast<std::size_t>(length));
}

/// All characters from `start` on. Throws VbError 5 if `start` is below 1.
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

/// Position of the first `find` at or after `start`, or 0.
[[nodiscard]] Pos InStr(Pos start, std::string_view text, std::string_view find);
[[nodiscard]] inline Pos InStr(std::string_view text, std::string_view find) {
    return InStr(1, text, find);
}

/// Position of the last `find` that ends at or before `start`, or 0. A `start` of -1 means the end of the text.
[[nodiscard]] Pos InStrRev(std::string_view text, std::string_view find, Pos start = -1);

/// Removes blanks, but not tabs.
[[nodiscard]] std::string_view LTrim(std::string_view text);
[[nodiscard]] std::string_view RTrim(std::string_view text);
[[nodiscard]] inline std::string_view Trim(std::string_view text) {
    return LTrim(RTrim(text));
}

/// Replaces every `find` in `text` by `by`, from left to right in one pass.
[[nodiscard]] std::string Replace(std::string_view text, std::string_view find, std::string_view by);

inline constexpr std::string_view vbCrLf = "\r\n";

// Characters and sequences that the readers search for.
inline constexpr char gQuote = '"';
inline constexpr char gChrR = '\xAE';
inline constexpr std::string_view gContinuation = "_\r\n";
