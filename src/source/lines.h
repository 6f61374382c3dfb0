// A piece of Visual Basic text read without the help of a module: what is code in a line, positions outside
// string literals, the content of brackets. Texts are lower case where words matter; positions count from 1.
#pragma once

#include <string>
#include <string_view>

#include "shell/vb_text.h"

namespace modMain {

/// True if `pos` is inside a string literal of `text`: an odd number of quotes stands at or before it.
[[nodiscard]] bool PositionInString(std::string_view text, Pos pos);
/// True if more "(" than ")" stand before `pos` outside strings.
[[nodiscard]] bool PositionInKlammer(std::string_view text, Pos pos);

/// `text` up to its first "'" outside strings, right-trimmed; the whole text, as it stands, if there is none.
[[nodiscard]] std::string_view Get_ZeileOhneKommentar(std::string_view text);
/// The same, trimmed.
[[nodiscard]] std::string_view GetCodeAusString(std::string_view text);
/// A logical line on one line without its comment.
[[nodiscard]] std::string Get_Clean_VBZeile(std::string_view text);

/// First `find` behind `pos` that lies outside strings, or 0.
[[nodiscard]] Pos Get_StringPos_RechtsVonPos(std::string_view text, std::string_view find, Pos pos);
/// Last `find` that ends before `pos` and lies outside strings, or 0.
[[nodiscard]] Pos Get_StringPos_LinksVonPos(std::string_view text, std::string_view find, Pos pos);
/// Number of `find` outside strings behind `von` and not above `bis`.
[[nodiscard]] int Get_AnzStr_InString(std::string_view text, std::string_view find, Pos von, Pos bis);

/// The nearest blank to the left of `pos` that separates, or 0: the indentation of a continuation line does
/// not separate where an operator, a bracket or a point carries the expression over the line break.
[[nodiscard]] Pos Get_Next_BlankPos_Left(std::string_view text, Pos pos);
/// The nearest position at or left of `pos` that holds no blank, or 0.
[[nodiscard]] Pos Get_Next_NotBlankPos_Left(std::string_view text, Pos pos);

/// Content of the innermost round brackets around `pos`; `start` is its first position, `ende` the closing
/// bracket. Without such brackets the result is empty and both are 0.
[[nodiscard]] std::string_view Get_KlammerInhalt(std::string_view text, Pos pos, Pos& start, Pos& ende);

}  // namespace modMain
