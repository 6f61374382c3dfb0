// Converts the bytes of a file to its text: byte order marks, UTF-16, line ends.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/files.h"

/// Larger files are not read: positions are 32-bit numbers, and some steps double the size of a text.
inline constexpr std::size_t kMaxTextBytes = std::size_t{1} << 30;

/// Sets all members of `file` except the date from the bytes of the file.
void SetText(FileText& file, std::string_view bytes);
/// Same, but moves `bytes` into `file` if they need no conversion.
void SetText(FileText& file, std::string&& bytes);
