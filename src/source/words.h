// The characters that end a word, and searches for whole words in a module's text.
// All searches use the lower-case text, so the word must be lower case; they return a position or 0.
#pragma once

#include <string>
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

/// Searches forward from `start`, in comments and strings too.
[[nodiscard]] Pos Suche_GanzesWort_Im_Text(const ModuleText& text, Pos start, std::string_view word);
/// Searches code forward from `start`; a "!" before the word does not count as a word border.
[[nodiscard]] Pos Suche_GanzesWort_Im_Code(const ModuleText& text, Pos start, std::string_view word);
/// Searches backward: returns the last hit that ends at or before `start`.
[[nodiscard]] Pos Suche_GanzesWort_Im_Code_Rev(const ModuleText& text, Pos start, std::string_view word);
/// Searches code forward for a word that can be called: a hit directly after "=" does not count, one after ":=" does. A
/// start of 0 finds nothing.
[[nodiscard]] Pos Suche_CallWort_Im_Code(const ModuleText& text, Pos start, std::string_view word);
/// Searches code forward for `word` followed by a point. A start of 0 finds nothing, and a hit at the first character
/// of the text ends the search.
[[nodiscard]] Pos Suche_CallWort_Im_Code_Type(const ModuleText& text, Pos start, std::string_view word);
/// Searches code backward; a word at the start of the text does not count.
[[nodiscard]] Pos Suche_CallWort_Im_Code_Rev(const ModuleText& text, Pos start, std::string_view word);

/// A place where a name is called, and the dotted name it ends.
struct CallWord {
    Pos pos = 0;           // of the hit; 0 if there is none
    std::string fullName;  // the whole dotted name up to the word, after the With object if it has one
    Pos withPos = 0;       // of the With object's text; 0 if there is none
    std::string withName;
};
/// The next hit of Suche_CallWort_Im_Code from `start`, with the dotted name that it ends.
[[nodiscard]] CallWord Suche_CallWort(const ModuleText& text, std::string_view word, Pos start);

/// Text of the object of the last With line before `pos`, even if that block does not enclose `pos`; `withPos` receives
/// its position. Empty if there is no With line.
[[nodiscard]] std::string Get_WithObject(const ModuleText& text, Pos pos, Pos& withPos);
