// Stretches of a file's bytes, and what is left without them. What is deleted from a module is kept as such stretches,
// so the rest of the file stays as it is to the byte: its line ends, its code page, its mark.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "project/object_cut.h"

/// The same bytes as rising stretches that do not touch each other.
[[nodiscard]] std::vector<Stretch> Merged(std::vector<Stretch> stretches);

/// @param gone  as Merged gives them
[[nodiscard]] std::string Without(std::string_view bytes, const std::vector<Stretch>& gone);

/// Where stretches of the text that is read from Without(bytes, gone) are in `bytes`. A stretch includes what is gone
/// inside of it. One that begins a line begins it in `bytes` as well.
/// @param inText  rising; positions count from 1
[[nodiscard]] std::vector<Stretch> InFile(std::string_view bytes, const std::vector<Stretch>& gone,
                                          const std::vector<Stretch>& inText);

/// The position in the text read from Without(bytes, gone) at which a byte was, or is.
[[nodiscard]] Pos InText(std::string_view bytes, const std::vector<Stretch>& gone, Pos byte);
