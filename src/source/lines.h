// Functions on a piece of Visual Basic text alone, without its module: removal of comments, joining
// of logical lines. Texts are lower case where words matter.
#pragma once

#include <string>
#include <string_view>

#include "shell/vb_text.h"

namespace modMain {

/// `text` up to its first "'" outside strings, right-trimmed; the unchanged text if it has no comment.
[[nodiscard]] std::string_view Get_ZeileOhneKommentar(std::string_view text);
/// Same, trimmed on both sides.
[[nodiscard]] std::string_view GetCodeAusString(std::string_view text);
/// Joins a logical line to one line and removes its comment.
[[nodiscard]] std::string Get_Clean_VBZeile(std::string_view text);

}  // namespace modMain

/// Number of the physical line that holds `pos`, from 1.
[[nodiscard]] int LineOf(std::string_view text, Pos pos);
