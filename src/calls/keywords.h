// Keywords and signs with a meaning of their own in the analysis of calls. The name of each keyword holds its number,
// so that one look-up distinguishes keywords from other names.
#pragma once

#include <cstdint>
#include <string_view>

#include "model/names.h"

enum class Keyword : std::uint8_t {
    None,
    // with an action each
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
    Print,  // also handled as a name
    Call,
    To,
    And,
    Or,
    Xor,
    Not,
    Load,
    Unload,
    End,    // only matters next to other tokens
    Other,  // not a name, no further meaning
};

/// Assigns the numbers to the names of the keywords.
void NumberKeywords(Names& names);

[[nodiscard]] inline Keyword KeywordOf(Name name) {
    return name.Known() ? static_cast<Keyword>(name.Tag()) : Keyword::None;
}

/// True if a word of this number is a name only after a point.
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

/// True for digits with an optional "." part and exponent and an optional leading sign, and for the &H and &O forms.
[[nodiscard]] bool IsNumericAtAll(std::string_view word);
[[nodiscard]] inline bool IsNumeric(std::string_view word) {
    // Nearly every word starts with a letter, which decides at once.
    return !word.empty() && !(word[0] >= 'a' && word[0] <= 'z') && IsNumericAtAll(word);
}
