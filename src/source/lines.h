// Functions on a piece of Visual Basic text alone, without its module: removal of comments, positions outside string
// literals, content of brackets. Texts are lower case where words matter; positions are 1-based.
#pragma once

#include <string>
#include <string_view>

#include "shell/vb_text.h"

namespace modMain {

/// True if `pos` is inside a string literal of `text`: an odd number of quotes precedes it or is at it.
[[nodiscard]] bool PositionInString(std::string_view text, Pos pos);
/// True if more "(" than ")" precede `pos` outside strings.
[[nodiscard]] bool PositionInKlammer(std::string_view text, Pos pos);

/// `text` up to its first "'" outside strings, right-trimmed; the unchanged text if it has no comment.
[[nodiscard]] std::string_view Get_ZeileOhneKommentar(std::string_view text);
/// Same, trimmed on both sides.
[[nodiscard]] std::string_view GetCodeAusString(std::string_view text);
/// Joins a logical line to one line and removes its comment.
[[nodiscard]] std::string Get_Clean_VBZeile(std::string_view text);

/// Position of the first `find` after `pos` outside strings, or 0.
[[nodiscard]] Pos Get_StringPos_RechtsVonPos(std::string_view text, std::string_view find, Pos pos);
/// Position of the last `find` that ends before `pos` outside strings, or 0.
[[nodiscard]] Pos Get_StringPos_LinksVonPos(std::string_view text, std::string_view find, Pos pos);
/// Number of `find` outside strings after `von` up to and including `bis`.
[[nodiscard]] int Get_AnzStr_InString(std::string_view text, std::string_view find, Pos von, Pos bis);

/// Position of the nearest separating blank to the left of `pos`, or 0. The indentation of a continuation line does not
/// separate if an operator, a bracket or a point continues the expression over the line break.
[[nodiscard]] Pos Get_Next_BlankPos_Left(std::string_view text, Pos pos);
/// The nearest position at or left of `pos` that is not a blank, or 0.
[[nodiscard]] Pos Get_Next_NotBlankPos_Left(std::string_view text, Pos pos);

/// Content of the innermost round brackets around `pos`; `start` receives its first position, `ende` that of the
/// closing bracket. Without such brackets the result is empty and both are 0.
[[nodiscard]] std::string_view Get_KlammerInhalt(std::string_view text, Pos pos, Pos& start, Pos& ende);

}  // namespace modMain
