// Texts in the language of Graphviz.
#pragma once

#include <string>
#include <string_view>

/// A name or a caption in double quotes, for Graphviz to show as it is: backslashes and character entities in it mean
/// nothing, a line break begins another line, and other control characters are blanks.
/// @param text  UTF-8
[[nodiscard]] std::string DotQuoted(std::string_view text);
