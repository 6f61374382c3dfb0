// Extracts words, quoted contents and path parts from code paths, project file lines and file names.
#pragma once

#include <string>
#include <string_view>

#include "shell/vb_text.h"

namespace modMain {

/// Word number `nr` (from 1) of `text`, or an empty text. A word is a run of characters other than blank ( ) , . - + *
/// / = ' : and the double quote. Quotes do not group, and the text ends after its first "'".
[[nodiscard]] std::string GetWortNrAusString(std::string_view text, int nr);

/// The text between the first two double quotes, or an empty text.
[[nodiscard]] std::string_view GetStringContent(std::string_view text);

/// Mode 1: the directory of `path` with its separator, as spelled. Any other mode: the file name.
/// The directory is empty if the path has no separator. Both "\" and "/" are separators.
[[nodiscard]] std::string_view DirOrFileName(std::string_view path, int mode);

}  // namespace modMain
