// Finds the type library in a file and reads it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/type_library.h"

/// Larger files are not taken for libraries; those known are below three megabytes, the programs around them below
/// fifty.
inline constexpr std::size_t kMaxLibraryFileBytes = std::size_t{64} << 20;

/// Reads the library that a file is (.tlb, .olb) or that is among its resources (.dll, .ocx, .exe, .oca); the ending
/// says nothing about that. A library that cannot be found or read is empty and has a problem.
/// @param resource  which of several in the resources; without it number 1, else the lowest
[[nodiscard]] TypeLibrary ReadTypeLibrary(std::string_view file, std::optional<std::uint32_t> resource = std::nullopt);

/// A path such as "vbscript.dll\3", split into the file and the number of the resource.
struct LibraryPath {
    std::string_view file;
    std::optional<std::uint32_t> resource;
};
/// Without a number at its end, the path itself. A file of digits only can be meant as well: try it first.
[[nodiscard]] LibraryPath SplitLibraryPath(std::string_view path);
