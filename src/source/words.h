// The characters that end a word, and searches for whole words in a module's text.
// All searches use the lower-case text, so the word must be lower case; they return a position or 0.
#pragma once

#include <string_view>

#include "source/module_text.h"

namespace modMain {

/// True for = : * / + - blank ' , . ( ) $ % ! # @ & the double quote, CR, LF.
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

/// Same without "!" and "=".
[[nodiscard]] constexpr bool IstSonderZeichenAusserAusrufUndGleich(char c) {
    return c != '!' && c != '=' && IstSonderZeichen(c);
}

}  // namespace modMain

/// Searches code forward from `start`; a "!" before the word does not count as a word border.
[[nodiscard]] Pos Suche_GanzesWort_Im_Code(const ModuleText& text, Pos start, std::string_view word);
/// Searches code forward for a word that can be called: a hit directly after "=" does not count, one after ":=" does. A
/// start of 0 finds nothing.
[[nodiscard]] Pos Suche_CallWort_Im_Code(const ModuleText& text, Pos start, std::string_view word);
