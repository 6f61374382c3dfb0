// From the bytes of a file to its text: byte order marks, UTF-16, line ends.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/files.h"

/// Files above this size are not read: positions are 32-bit numbers, and some stages double a text.
inline constexpr std::size_t kMaxTextBytes = std::size_t{1} << 30;

/// Sets everything of `file` but the date from the file's bytes.
void SetText(FileText& file, std::string_view bytes);
/// The same; takes over the memory of `bytes` when they can stay as they are.
void SetText(FileText& file, std::string&& bytes);
