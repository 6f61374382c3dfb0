// The words and signs that the analysis of calls treats by themselves. Each word's name in the pool carries its number,
// so that one look-up tells a keyword from a name.
#pragma once

#include <cstdint>
#include <string_view>

#include "model/names.h"

enum class Keyword : std::uint8_t {
    None,
    // with actions of their own
    As,
    New,
    If,
    ElseIf,
    While,
    Until,
    Case,
    For,
    With,
    Then,
    Set,
    Open,
    Get,
    Print,  // "print" is judged as a name as well
    Call,
    To,
    And,
    Or,
    Xor,
    Not,
    Load,
    Unload,
    End,    // asked for by what stands near them
    Other,  // no name, nothing else
};

/// Gives the keywords' names their numbers; quick when they have them.
void NumberKeywords();

[[nodiscard]] inline Keyword KeywordOf(Name name) {
    return name.Known() ? static_cast<Keyword>(name.Tag()) : Keyword::None;
}

/// Whether a word of this number stays no name unless a point follows it.
[[nodiscard]] constexpr bool IsNoName(Keyword keyword) {
    switch (keyword) {
        case Keyword::None:
        case Keyword::Print:
        case Keyword::And:
        case Keyword::Or:
        case Keyword::Xor:
            return false;
        default:
            return true;
    }
}

/// Digits with an optional "." part and exponent, an optional sign in front, or the &H and &O forms.
[[nodiscard]] bool IsNumericAtAll(std::string_view word);
[[nodiscard]] inline bool IsNumeric(std::string_view word) {
    // A letter in front settles it for nearly every word.
    return !word.empty() && !(word[0] >= 'a' && word[0] <= 'z') && IsNumericAtAll(word);
}
