// Which characters end a word, and searches for whole words in a module's text.
// All searches run on the lower-case text, so the word must be lower case; they return a position or 0.
#pragma once

#include <string>
#include <string_view>

#include "source/module_text.h"

namespace modMain {

/// = : * / + - blank ' , . ( ) $ % ! # @ & the double quote, CR, LF.
[[nodiscard]] constexpr bool IstSonderZeichen(char c) {
    switch (c) {
        case '=':
        case ':':
        case '*':
        case '/':
        case '+':
        case '-':
        case ' ':
        case '\'':
        case ',':
        case '.':
        case '(':
        case ')':
        case '$':
        case '%':
        case '!':
        case '#':
        case '@':
        case '&':
        case '"':
        case '\r':
        case '\n':
            return true;
        default:
            return false;
    }
}

/// The same set without "!" and "=".
[[nodiscard]] constexpr bool IstSonderZeichenAusserAusrufUndGleich(char c) {
    return c != '!' && c != '=' && IstSonderZeichen(c);
}

}  // namespace modMain

/// Forward from `start`, comments and strings included.
[[nodiscard]] Pos Suche_GanzesWort_Im_Text(const ModuleText& text, Pos start, std::string_view word);
/// Forward from `start` in code; a "!" before the word is no border.
[[nodiscard]] Pos Suche_GanzesWort_Im_Code(const ModuleText& text, Pos start, std::string_view word);
/// Backward: the last hit that ends at or before `start`.
[[nodiscard]] Pos Suche_GanzesWort_Im_Code_Rev(const ModuleText& text, Pos start, std::string_view word);
/// Forward in code for a word that can be called: a plain "=" right before it does not count, ":=" does.
/// A start of 0 finds nothing.
[[nodiscard]] Pos Suche_CallWort_Im_Code(const ModuleText& text, Pos start, std::string_view word);
/// Forward in code for `word` and a point behind it. A start of 0 finds nothing, a hit at the text's first
/// character ends the search.
[[nodiscard]] Pos Suche_CallWort_Im_Code_Type(const ModuleText& text, Pos start, std::string_view word);
/// Backward in code; a word at the text's start does not count.
[[nodiscard]] Pos Suche_CallWort_Im_Code_Rev(const ModuleText& text, Pos start, std::string_view word);

/// Where a name is called, and as what.
struct CallWord {
    Pos pos = 0;           // of the hit, or 0
    std::string fullName;  // the whole dotted name up to the word, with its With object in front
    Pos withPos = 0;       // of the With object's text, or 0
    std::string withName;
};
/// The next hit of Suche_CallWort_Im_Code from `start`, with the dotted name that it ends.
[[nodiscard]] CallWord Suche_CallWort(const ModuleText& text, std::string_view word, Pos start);

/// Text of the object of the last With line before `pos`, which need not enclose `pos`; its position goes
/// to `withPos`. Empty when there is none.
[[nodiscard]] std::string Get_WithObject(const ModuleText& text, Pos pos, Pos& withPos);
